#include "InquiryFixture.h"
#include "ledger/LedgerForms.h"
#include "ledger/accounts/TfrmGLAccount.h"
#include "ledger/accounts/TfrmGLAccounts.h"
#include "ledger/inquiry/TfrmGLHistory.h"
#include "ledger/inquiry/TfrmGLHistoryFilter.h"
#include "ledger/vouchers/TfrmJV.h"
#include "ledger/vouchers/TfrmJVs.h"
#include "shell/main/FormRegistry.h"
#include "shell/main/ShellForms.h"
#include "shell/main/TfrmCorvane.h"
#include "support/RegistryForms.h"
#include "support/ScopedDataHome.h"

#include <cstdlib>
#include <filesystem>
#include <optional>

using namespace corvane;
using corvane::testing::InquiryTest;
using corvane::testing::ScopedDataHome;

namespace {

// Posted lines of two years on cash and sales, and the ledger's forms registered as the
// program registers them.
class JVHistory : public InquiryTest {
protected:
    void SetUp() override {
        InquiryTest::SetUp();
        ledger::RegisterLedgerForms(registry_);
        AddVoucher(1, 2017, 3, {{Cash, M(100)}, {Sales, M(-100)}});
        AddVoucher(2, 2017, 4, {{Rent, M(40)}, {Accruals, M(-40)}});
        AddVoucher(3, 2018, 1, {{Cash, M(7)}, {Rent, M(-7)}});
        PostAll();
    }
    ledger::TfrmJVs& Vouchers() {
        auto& list = app.CreateForm<ledger::TfrmJVs>(db_);
        list.Show();
        return list;
    }
    ledger::TfrmGLHistory* History() {
        return dynamic_cast<ledger::TfrmGLHistory*>(app.FindForm("frmGLHistory"));
    }
    // The history's lines in order, as "JVID/account".
    std::string Shown(ledger::TfrmGLHistory& history) {
        std::string shown;
        store::Table& rows = history.tblGLHist;
        for (rows.First(); !rows.Eof(); rows.Next())
            shown += (shown.empty() ? "" : " ") + rows.FieldByName("JVID").AsString() + "/" +
                     rows.FieldByName("GLAccountID").AsString();
        return shown;
    }

    shell::FormRegistry registry_;
    corvane::testing::RegistryForms forms_{app, db_, registry_};
};

// The same company opened by the main form, for what goes through it: rights and help.
class JVHistoryWithMainForm : public JVHistory {
protected:
    void SetUp() override {
        JVHistory::SetUp();
        shell::RegisterShellForms(registry_);
        InsertRow("Company", {{"CompanyNo", 1},
                              {"CompanyName", "Acme Ltd."},
                              {"FiscalYear", 2017},
                              {"ApplicationVersion", "2017.8"}});
        InsertRow(
            "Users",
            {{"UserName", "bob"}, {"Password", ""}, {"Security", true}, {"GLHistory", false}});
        InsertRow("Users",
                  {{"UserName", "ann"}, {"Password", ""}, {"Security", true}, {"GLHistory", true}});
        main_ = &app.CreateForm<shell::TfrmCorvane>(registry_, std::vector<std::string>{});
        ASSERT_TRUE(main_->OpenCompany("", folder_.Path()));
        main_->SecurityActive = true;
    }

    corvane::testing::TempFolder dataHome_;
    ScopedDataHome env_{dataHome_.Path()};
    shell::TfrmCorvane* main_ = nullptr;
};

// The account form and the tip it leaves when it goes.
class GLAccountTip : public InquiryTest {
protected:
    ledger::TfrmGLAccount& AccountForm() { return app.CreateForm<ledger::TfrmGLAccount>(db_); }
    void AddStatement() {
        InsertRow("FStmt", {{"StmtID", 1}, {"StmtTitle", "Balance Sheet"}, {"ColumnFormat", "1"}});
    }
    int TipsShown() const {
        int tips = 0;
        for (const ui::Message& m : dialogs.Shown())
            tips += m.Text == ledger::TfrmGLAccount::ChartChangedTip;
        return tips;
    }
    void AddAccountThrough(ledger::TfrmGLAccount& form, const std::string& number) {
        form.EntryTable.Insert();
        form.Show();
        ui::FormDriver f(form);
        f.EnterText("editGLAccount", number);
        f.EnterText("editAccountName", "Account " + number);
        f.Choose("rgpAccountType", "1 Asset");
        f.Click("btnOK");
        ASSERT_FALSE(form.Visible()) << LastMessage();
    }
};

} // namespace

TEST_F(JVHistory, HistoryFromTheVouchersAsksForTheFilterThenListsAllLinesNewestFirst) {
    ledger::TfrmJVs& list = Vouchers();
    ASSERT_TRUE(list.mnuHistory.Visible);
    WhenModal("frmGLHistoryFilter", [](ui::FormDriver& f) { f.Click("btnOK"); });
    ui::FormDriver(list).Click("mnuHistory");
    EXPECT_EQ(host.PendingScripts(), 0u);
    ledger::TfrmGLHistory* history = History();
    ASSERT_NE(history, nullptr);
    EXPECT_TRUE(history->Visible());
    EXPECT_EQ(history->Caption, "GL History");
    EXPECT_EQ(history->tblGLHist.IndexName(), ledger::TfrmGLHistory::kAllIndex);
    EXPECT_EQ(Shown(*history), "3/1 3/3 2/2 2/1 1/4 1/3");
}

TEST_F(JVHistory, AnAccountShownEarlierDoesNotCarryOverAndTheChosenFilterHolds) {
    ledger::TfrmJVs& list = Vouchers();
    auto& history = app.CreateForm<ledger::TfrmGLHistory>(db_);
    history.ShowAccount(Cash, 2017);
    ASSERT_EQ(Shown(history), "1/3");
    std::string accountOffered = "unset";
    WhenModal("frmGLHistoryFilter", [&](ui::FormDriver& f) {
        accountOffered = f.Text("cboAccount");
        f.Choose("cboPeriod", "4");
        f.Click("btnOK");
    });
    ui::FormDriver(list).Click("mnuHistory");
    EXPECT_EQ(accountOffered, "");
    EXPECT_EQ(history.tblGLHist.IndexName(), ledger::TfrmGLHistory::kAllIndex);
    EXPECT_EQ(history.Caption, "GL History (Filtered)");
    EXPECT_EQ(Shown(history), "2/2 2/1");
}

TEST_F(JVHistory, HistoryFromTheAccountsShowsTheCurrentAccountOfEveryYear) {
    auto& accounts = app.CreateForm<ledger::TfrmGLAccounts>(db_);
    accounts.MakeRegisteredForm = [this](std::string_view name) -> ui::Form* {
        const shell::FormFactory* factory = registry_.Find(name);
        if (!factory) return nullptr;
        shell::FormContext context{app, db_, nullptr};
        return &(*factory)(context);
    };
    accounts.Show();
    ASSERT_TRUE(accounts.tblGLAccnt.Locate("GLAccountID", {Cash}));
    ui::FormDriver(accounts).Click("mnuHistory");
    ledger::TfrmGLHistory* history = History();
    ASSERT_NE(history, nullptr);
    EXPECT_TRUE(history->Visible());
    EXPECT_EQ(history->Caption, "GL History (Filtered)");
    EXPECT_EQ(history->tblGLHist.IndexName(), ledger::TfrmGLHistory::kAccountIndex);
    EXPECT_EQ(Shown(*history), "3/3 1/3");

    // Another account replaces the first, not narrows it.
    ASSERT_TRUE(accounts.tblGLAccnt.Locate("GLAccountID", {Rent}));
    ui::FormDriver(accounts).Click("mnuHistory");
    EXPECT_EQ(Shown(*history), "3/1 2/1");
}

TEST_F(JVHistoryWithMainForm, HistoryFromTheVouchersAsksForTheRightToTheHistory) {
    main_->CurrentUserName = "bob";
    ledger::TfrmJVs& list = Vouchers();
    ui::FormDriver(list).Click("mnuHistory");
    EXPECT_EQ(LastMessage(), "bob is not allowed access to GL History.");
    EXPECT_EQ(History(), nullptr);

    main_->CurrentUserName = "ann";
    WhenModal("frmGLHistoryFilter", [](ui::FormDriver& f) { f.Click("btnOK"); });
    ui::FormDriver(list).Click("mnuHistory");
    ASSERT_NE(History(), nullptr);
    EXPECT_TRUE(History()->Visible());
}

// The guide is built with the program: Help Contents opens its contents, and the voucher's Help
// button and F1 on any form open the page of that form.
TEST_F(JVHistoryWithMainForm, HelpOpensTheGuideAtTheFormsTopic) {
    auto opened = [this] {
        const auto& calls = desktop.Calls();
        return calls.empty() ? std::string() : calls.back();
    };
    auto page = [](const std::string& call) { return call.substr(call.find("file://") + 7); };
    ui::FormDriver(*main_).Click("mnuHelpContents");
    EXPECT_EQ(LastMessage(), "") << "the guide is there";
    ASSERT_NE(opened().find("/guide/index.html"), std::string::npos) << opened();
    EXPECT_TRUE(std::filesystem::exists(page(opened())));
    auto& form = app.CreateForm<ledger::TfrmJV>(db_);
    form.EntryTable.Insert();
    form.Show();
    ui::FormDriver(form).Click("btnHelp");
    EXPECT_NE(opened().find("/guide/journal-vouchers.html"), std::string::npos) << opened();
    EXPECT_TRUE(std::filesystem::exists(page(opened())));
    EXPECT_TRUE(form.Visible());
    ui::FormDriver(form).PressKey(ui::KeyStroke(ui::Key::F1));
    EXPECT_NE(opened().find("/guide/journal-vouchers.html"), std::string::npos) << opened();
}

TEST_F(GLAccountTip, ShownOnceWhenAnAccountWasAddedAndStatementsExist) {
    AddStatement();
    ledger::TfrmGLAccount& form = AccountForm();
    AddAccountThrough(form, "1500");
    AddAccountThrough(form, "1600");
    EXPECT_EQ(TipsShown(), 0) << "the tip waits until the form goes";
    app.FreeForm(form);
    EXPECT_EQ(TipsShown(), 1);
}

TEST_F(GLAccountTip, ShownWhenAnAccountWasChanged) {
    AddStatement();
    ledger::TfrmGLAccount& form = AccountForm();
    ASSERT_TRUE(form.tblGLAccnt.Locate("GLAccountID", {Cash}));
    form.Show();
    ui::FormDriver f(form);
    f.EnterText("editAccountName", "Cash at bank");
    f.Click("btnOK");
    ASSERT_FALSE(form.Visible()) << LastMessage();
    app.FreeForm(form);
    EXPECT_EQ(TipsShown(), 1);
}

TEST_F(GLAccountTip, ShownWhenTheListDeletesAnAccount) {
    AddStatement();
    InsertRow(
        "GLAccnt",
        {{"GLAccountID", 90}, {"GLAccount", "1900"}, {"AccountName", "Spare"}, {"AccountType", 1}});
    auto& list = app.CreateForm<ledger::TfrmGLAccounts>(db_);
    list.Show();
    ASSERT_TRUE(list.tblGLAccnt.Locate("GLAccountID", {90}));
    dialogs.Answer("Delete '1900: Spare'?", ui::mbYes);
    ui::FormDriver(list).Click("mnuDelete");
    EXPECT_FALSE(list.tblGLAccnt.Locate("GLAccountID", {90}));
    EXPECT_EQ(TipsShown(), 1);
}

TEST_F(GLAccountTip, NotShownWithoutStatementsOrWithoutAChange) {
    ledger::TfrmGLAccount& changed = AccountForm();
    AddAccountThrough(changed, "1500");
    app.FreeForm(changed);
    EXPECT_EQ(TipsShown(), 0) << "no statement to update";

    AddStatement();
    ledger::TfrmGLAccount& untouched = AccountForm();
    untouched.EntryTable.Insert();
    untouched.Show();
    ui::FormDriver f(untouched);
    f.EnterText("editGLAccount", "1700");
    f.Click("btnCancel");
    ASSERT_FALSE(untouched.Visible());
    app.FreeForm(untouched);
    EXPECT_EQ(TipsShown(), 0) << "a cancelled account changes nothing";
}
