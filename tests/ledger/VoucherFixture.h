#pragma once

#include "ledger/vouchers/TfrmJV.h"
#include "ledger/vouchers/TfrmJVs.h"
#include "store/Query.h"
#include "ui/FormDriver.h"
#include "ui/HeadlessApp.h"

#include <string>

namespace corvane::testing {

// A company whose fiscal year 2017 is open and whose new documents default to period 3 of 2017,
// with a cash and a sales account and one subaccount of each level.
class VoucherTest : public UiCompanyTest {
protected:
    void SetUp() override {
        UiCompanyTest::SetUp();
        InsertRow("Company", {{"CompanyNo", 1},
                              {"CompanyName", "Ledger Test Co"},
                              {"FiscalYear", 2017},
                              {"DefaultPeriodYYYY", 2017},
                              {"DefaultPeriodPP", 3}});
        AddAccount(1, "1000", "Cash");
        AddAccount(2, "4000", "Sales");
        AddAccount(3, "9000", "Old account", true);
        for (const char* table : {"GLAcSub1", "GLAcSub2", "GLAcSub3"})
            InsertRow(table, {{"SubAccountID", 1},
                              {"SubAccount", "10"},
                              {"SubAccountName", std::string("East ") + table[7]}});
    }

    void AddAccount(int id, const std::string& number, const std::string& name,
                    bool suspended = false) {
        InsertRow("GLAccnt", {{"GLAccountID", id},
                              {"GLAccount", number},
                              {"AccountName", name},
                              {"AccountType", 1},
                              {"Suspended", suspended}});
    }

    void SetNextNumber(int next) { InsertRow("JVCtl", {{"NextJVID", 50}, {"NextJVNumber", next}}); }

    // A saved voucher written straight to the tables, as a subledger's posting run writes one.
    void AddVoucher(int id, int number, const std::string& source, const std::string& type,
                    bool posted, std::int64_t cents = 1000) {
        InsertRow("JV", {{"JVID", id},
                         {"GLYear", 2017},
                         {"GLPeriod", 3},
                         {"JVNumber", number},
                         {"Source", source},
                         {"TransType", type},
                         {"TransDate", Date::FromYmd(2017, 3, 15)},
                         {"TransDescription", "Voucher " + std::to_string(number)},
                         {"JVAmount", Money::FromCents(cents)},
                         {"Posted", posted},
                         {"AutoReverse", false}});
        InsertRow(
            "JVDet",
            {{"JVID", id}, {"Seq", 1}, {"GLAccountID", 1}, {"GLAmount", Money::FromCents(cents)}});
        InsertRow("JVDet", {{"JVID", id},
                            {"Seq", 2},
                            {"GLAccountID", 2},
                            {"SubAccount2ID", 1},
                            {"GLAmount", Money::FromCents(-cents)}});
    }

    // The voucher form on a new voucher, on the screen.
    ledger::TfrmJV& NewVoucherForm() {
        ledger::TfrmJV& form = app.CreateForm<ledger::TfrmJV>(db_);
        form.EntryTable.Insert();
        form.Show();
        return form;
    }

    // The voucher form on the saved voucher jvid, in edit, on the screen.
    ledger::TfrmJV& SavedVoucherInEdit(int jvid) {
        ledger::TfrmJV& form = app.CreateForm<ledger::TfrmJV>(db_);
        EXPECT_TRUE(form.tblJV.Locate("JVID", {jvid}));
        form.tblJV.Edit();
        form.Show();
        return form;
    }

    // A description and two lines that balance: 5 on account 1000 and -5 on 4000.
    static void TypeBalancedVoucher(ui::FormDriver& d, const std::string& description) {
        d.EnterText("editDescription", description);
        TypeLine(d, "1000", "5");
        TypeLine(d, "4000", "-5");
    }

    // Types one line into the grid: a new line, its account and amount; the line stays in edit
    // until the next command.
    static void TypeLine(ui::FormDriver& d, const std::string& account, const std::string& amount) {
        d.Click("popNewLine");
        d.EnterCell("grdLines", "GLAccountID", account);
        d.EnterCell("grdLines", "GLAmount", amount);
    }

    std::string SqlText(const std::string& sql) {
        store::Query q(db_, sql);
        q.Open();
        std::string rows;
        for (; !q.Eof(); q.Next()) {
            std::string row;
            for (const auto& f : q.Fields())
                row += (row.empty() ? "" : ",") + f->AsString();
            rows += (rows.empty() ? "" : "|") + row;
        }
        return rows;
    }

    // The saved lines of one voucher, "Seq,account,amount" joined by '|'.
    std::string SavedLines(std::int64_t jvid) {
        return SqlText("SELECT Seq, GLAccountID, GLAmount FROM JVDet WHERE JVID = " +
                       std::to_string(jvid) + " ORDER BY Seq");
    }
    std::string SavedRowsOf(ledger::TfrmJV& form) {
        std::string id = std::to_string(form.EntryTable.FieldByName("JVID").AsInteger());
        return SqlText("SELECT COUNT(*) AS n FROM JV WHERE JVID = " + id) + "/" +
               SqlText("SELECT COUNT(*) AS n FROM JVDet WHERE JVID = " + id);
    }
    // The lines the form holds, in the same shape as SavedLines.
    std::string FormLines(const ledger::TfrmJV& form) {
        return SqlText("SELECT Seq, GLAccountID, GLAmount FROM \"\\Memory\\" +
                       form.LinesTableName() + "\" ORDER BY Seq");
    }

    // A closed voucher form is gone: posting may start.
    bool VoucherFormOpen() const { return app.FindForm("frmJV") != nullptr; }

    std::string LastMessage() const { return dialogs.LastText(); }
};

} // namespace corvane::testing
