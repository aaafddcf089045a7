#include "InquiryFixture.h"
#include "ledger/inquiry/TfrmGLHistory.h"
#include "ledger/vouchers/TfrmJV.h"

using namespace corvane;
using corvane::testing::InquiryTest;

namespace {

// Lines of every kind of document, posted: a manual voucher, a payables invoice, a receivables
// payment and a payables cheque, in periods 3 to 5 of 2017.
class GLHistory : public InquiryTest {
protected:
    void SetUp() override {
        InquiryTest::SetUp();
        AddVoucher(1, 2017, 3, {{Cash, M(100)}, {Sales, M(-100)}});
        AddVoucher(2, 2017, 4, {{Rent, M(40), 7}, {Accruals, M(-40)}}, false, "AP", "Inv");
        AddVoucher(3, 2017, 5, {{Cash, M(25)}, {Sales, M(-25)}}, false, "AR", "Pmt");
        AddVoucher(4, 2017, 5, {{Accruals, M(10)}, {Cash, M(-10)}}, false, "AP", "Chq");
        PostAll();
        list = &app.CreateForm<ledger::TfrmGLHistory>(db_);
        list->Show();
    }
    store::Table& Rows() { return list->tblGLHist; }
    // The lines shown, in order, as "JV number/account": "1001/1 1001/4".
    std::string Shown() {
        std::string shown;
        for (Rows().First(); !Rows().Eof(); Rows().Next())
            shown += (shown.empty() ? "" : " ") + Rows().FieldByName("JVNumber").AsString() + "/" +
                     Rows().FieldByName("GLAccountID").AsString();
        return shown;
    }
    void Filter(std::function<void(ui::FormDriver&)> choices) {
        WhenModal("frmGLHistoryFilter", [choices](ui::FormDriver& f) {
            f.Click("btnReset");
            choices(f);
            f.Click("btnOK");
        });
        ui::FormDriver(*list).Click("mnuFilter");
    }
    void At(int jvid, int account) {
        ASSERT_TRUE(Rows().Locate("JVID;GLAccountID", {jvid, account}));
    }
    ledger::TfrmJV* VoucherForm() { return dynamic_cast<ledger::TfrmJV*>(app.FindForm("frmJV")); }

    ledger::TfrmGLHistory* list = nullptr;
};

} // namespace

TEST_F(GLHistory, NewestFirstWithPeriodSourceAndAccountLabels) {
    EXPECT_EQ(list->Caption, "GL History");
    EXPECT_EQ(Rows().IndexName(), ledger::TfrmGLHistory::kAllIndex);
    // Within a period and date, the higher voucher number first.
    EXPECT_EQ(Shown(), "1004/3 1004/2 1003/4 1003/3 1002/2 1002/1 1001/4 1001/3");

    At(4, 3);
    EXPECT_EQ(Rows().FieldByName("Periodppyyyy").AsString(), "05/2017");
    EXPECT_EQ(Rows().FieldByName("SourceType").AsString(), "AP Pmt");
    At(3, 4);
    EXPECT_EQ(Rows().FieldByName("SourceType").AsString(), "AR Pmt");
    At(2, 1);
    EXPECT_EQ(Rows().FieldByName("SourceType").AsString(), "AP Inv");
    std::vector<std::string> cells = ui::FormDriver(*list).GridRow("grdList");
    ASSERT_EQ(cells.size(), 8u);
    EXPECT_EQ(cells[0], "04/2017");
    EXPECT_EQ(cells[2], "1002");
    EXPECT_EQ(cells[5], "5100-EAST");
    EXPECT_EQ(cells[6], "Rent - East");
    EXPECT_EQ(cells[7], "40.00");
}

TEST_F(GLHistory, SourcePairsPeriodAndYearFilterTheTable) {
    Filter([](ui::FormDriver& f) { f.Choose("cboSource", "AP Payments"); });
    EXPECT_EQ(Rows().Filter(), "(Source = 'AP') AND (TransType = 'Chq')");
    EXPECT_EQ(list->Caption, "GL History (Filtered)");
    EXPECT_EQ(Shown(), "1004/3 1004/2");

    Filter([](ui::FormDriver& f) { f.Choose("cboSource", "AR Payments"); });
    EXPECT_EQ(Shown(), "1003/4 1003/3");
    Filter([](ui::FormDriver& f) { f.Choose("cboSource", "GL JVs"); });
    EXPECT_EQ(Shown(), "1001/4 1001/3");
    Filter([](ui::FormDriver& f) { f.Choose("cboSource", "Inv Adjustments"); });
    EXPECT_EQ(Shown(), "");

    Filter([](ui::FormDriver& f) {
        f.EnterText("editYear", "2017");
        f.Choose("cboPeriod", "4");
    });
    EXPECT_EQ(Rows().Filter(), "(GLYear = 2017) AND (GLPeriod = 4)");
    EXPECT_EQ(Shown(), "1002/2 1002/1");
    Filter([](ui::FormDriver& f) { f.EnterText("editYear", "2018"); });
    EXPECT_EQ(Shown(), "");

    // All back to <All>: the filter is off.
    Filter([](ui::FormDriver&) {});
    EXPECT_FALSE(Rows().Filtered());
    EXPECT_EQ(list->Caption, "GL History");
}

TEST_F(GLHistory, AccountTypeIsTestedRowByRow) {
    Filter([](ui::FormDriver& f) { f.Choose("cboType", "Revenue"); });
    EXPECT_EQ(Rows().Filter(), "");
    EXPECT_TRUE(Rows().Filtered());
    EXPECT_EQ(list->Caption, "GL History (Filtered)");
    EXPECT_EQ(Shown(), "1003/4 1001/4");

    // With a condition of the table as well, both must hold.
    Filter([](ui::FormDriver& f) {
        f.Choose("cboType", "Liability");
        f.Choose("cboSource", "AP Payments");
    });
    EXPECT_EQ(Shown(), "1004/2");
    Filter([](ui::FormDriver& f) { f.Choose("cboType", "Equity"); });
    EXPECT_EQ(Shown(), "");
}

TEST_F(GLHistory, AnAccountSwitchesToTheAccountOrder) {
    Filter([](ui::FormDriver& f) { f.Choose("cboAccount", "1000"); });
    EXPECT_EQ(Rows().IndexName(), ledger::TfrmGLHistory::kAccountIndex);
    EXPECT_EQ(Rows().Filter(), "(GLAccountID = 3)");
    EXPECT_EQ(Shown(), "1004/3 1003/3 1001/3");

    Filter([](ui::FormDriver&) {});
    EXPECT_EQ(Rows().IndexName(), ledger::TfrmGLHistory::kAllIndex);
    EXPECT_EQ(Shown(), "1004/3 1004/2 1003/4 1003/3 1002/2 1002/1 1001/4 1001/3");
}

TEST_F(GLHistory, JVAndSourceOpenTheVoucherAsPosted) {
    ui::FormDriver d(*list);
    At(1, 3);
    d.Click("mnuJV");
    ledger::TfrmJV* form = VoucherForm();
    ASSERT_NE(form, nullptr);
    EXPECT_TRUE(form->Visible());
    EXPECT_EQ(form->Caption, "JV 1001");
    EXPECT_EQ(form->EntryTable.State(), store::DataSetState::Browse);
    EXPECT_TRUE(ui::FormDriver(*form).Visible("lblPosted"));
    ui::FormDriver(*form).Close();

    // A document of a subledger has no form yet; a manual voucher is its own document.
    At(2, 1);
    d.Click("mnuSource");
    EXPECT_EQ(LastMessage(), "AP Invoices is not available in this version of Corvane yet.");
    At(4, 2);
    d.Click("mnuSource");
    EXPECT_EQ(LastMessage(), "AP Payments is not available in this version of Corvane yet.");
    At(1, 4);
    d.Click("mnuSource");
    ASSERT_NE(VoucherForm(), nullptr);
    EXPECT_EQ(VoucherForm()->Caption, "JV 1001");
}

TEST_F(GLHistory, AVoucherGoneSinceSaysItMayHaveBeenUnpostedAndDeleted) {
    InsertRow("GLHist", {{"GLAccountID", Cash},
                         {"GLYear", 2016},
                         {"GLPeriod", 1},
                         {"Source", "GL"},
                         {"TransType", "JV"},
                         {"JVNumber", 1500},
                         {"TransDate", Date::FromYmd(2016, 1, 5)},
                         {"Amount", M(1)},
                         {"JVID", 99}});
    ui::FormDriver d(*list);
    d.Click("mnuRefresh");
    ASSERT_TRUE(Rows().Locate("JVNumber", {1500}));
    d.Click("mnuJV");
    EXPECT_EQ(LastMessage(), "JV '1500' ...\nIt may have been unposted and deleted");
    d.Click("mnuCopyJV");
    EXPECT_EQ(LastMessage(), "JV '1500' ...\nIt may have been unposted and deleted");
    EXPECT_EQ(VoucherForm(), nullptr);
}

TEST_F(GLHistory, CopyJVMakesANewUnpostedManualVoucher) {
    ui::FormDriver d(*list);
    At(2, 1);
    d.Click("mnuCopyJV");
    EXPECT_EQ(LastMessage(), "Unable to copy JV '1002'...\nIts source is not GL");
    EXPECT_EQ(VoucherForm(), nullptr);

    At(1, 3);
    d.Click("mnuCopyJV");
    ledger::TfrmJV* form = VoucherForm();
    ASSERT_NE(form, nullptr);
    EXPECT_EQ(form->Caption, "New (copied) Journal Voucher");
    EXPECT_EQ(form->EntryTable.State(), store::DataSetState::Insert);
    EXPECT_EQ(form->EntryTable.FieldByName("TransDescription").AsString(), "Voucher 1");
    EXPECT_FALSE(form->EntryTable.FieldByName("Posted").AsBoolean());
    EXPECT_EQ(form->Totals().Debits(), M(100));
    EXPECT_EQ(CountRows("JV"), 4);
}

TEST_F(GLHistory, UnpostedLinesLeaveTheHistory) {
    ASSERT_TRUE(Unpost(1));
    ui::FormDriver(*list).Click("mnuRefresh");
    EXPECT_EQ(Shown(), "1004/3 1004/2 1003/4 1003/3 1002/2 1002/1");
}
