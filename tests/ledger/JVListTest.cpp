#include "VoucherFixture.h"
#include "ledger/domain/VoucherTexts.h"
#include "shell/main/FormRegistry.h"
#include "support/RegistryForms.h"

using namespace corvane;
using corvane::testing::VoucherTest;

namespace {

class JVList : public VoucherTest {
protected:
    void SetUp() override {
        VoucherTest::SetUp();
        AddVoucher(1, 1001, "GL", "JV", false);
        AddVoucher(2, 1002, "AP", "Chq", false);
        AddVoucher(3, 1003, "GL", "JV", true);
        list = &app.CreateForm<ledger::TfrmJVs>(db_);
        list->Show();
    }
    void Select(int jvid) { ASSERT_TRUE(list->tblJV.Locate("JVID", {jvid})); }
    ledger::TfrmJV& VoucherForm() { return dynamic_cast<ledger::TfrmJV&>(app.GetForm("frmJV")); }

    ledger::TfrmJVs* list = nullptr;
};

} // namespace

TEST_F(JVList, ShowsPeriodAndTheRelabelledSource) {
    EXPECT_EQ(list->Caption, "Journal Vouchers");
    Select(2);
    EXPECT_EQ(list->tblJV.FieldByName("Periodppyyyy").AsString(), "03/2017");
    EXPECT_EQ(list->tblJV.FieldByName("SourceType").AsString(), "AP Pmt");
    Select(1);
    EXPECT_EQ(list->tblJV.FieldByName("SourceType").AsString(), "GL JV");
}

TEST_F(JVList, ThePeriodTitleTurnsTheOrderRound) {
    ui::FormDriver d(*list);
    EXPECT_EQ(list->tblJV.IndexName(), "PeriodJVNumber");
    d.ClickTitle("grdList", "Periodppyyyy");
    EXPECT_EQ(list->tblJV.IndexName(), "PeriodJVNumberDESC");
    EXPECT_EQ(list->tblJV.FieldByName("JVNumber").AsInteger(), 1003);
    d.ClickTitle("grdList", "Periodppyyyy");
    EXPECT_EQ(list->tblJV.IndexName(), "PeriodJVNumber");
    d.ClickTitle("grdList", "TransDescription");
    EXPECT_EQ(list->tblJV.IndexName(), "Description_PeriodJVNumberDESC");
    d.ClickTitle("grdList", "JVNumber");
    EXPECT_EQ(list->tblJV.IndexName(), "JVNumber");
}

TEST_F(JVList, OnlyUnpostedManualVouchersCanBeDeleted) {
    ui::FormDriver d(*list);
    Select(2);
    dialogs.Answer("Delete JV '1002'?", ui::mbYes);
    d.Click("mnuDelete");
    EXPECT_EQ(LastMessage(), "Unable to delete JV '1002'...\nIts source is not GL");
    Select(3);
    dialogs.Answer("Delete JV '1003'?", ui::mbYes);
    d.Click("mnuDelete");
    EXPECT_EQ(LastMessage(), "Unable to delete JV '1003'...\nIt has already been posted.\n"
                             "(Posted JVs can be unposted from the \"Edit\" screen).");
    EXPECT_EQ(CountRows("JV"), 3);
    EXPECT_EQ(CountRows("JVDet"), 6);

    Select(1);
    dialogs.Answer("Delete JV '1001'?", ui::mbNo);
    d.Click("mnuDelete");
    EXPECT_EQ(CountRows("JV"), 3);
    dialogs.Answer("Delete JV '1001'?", ui::mbYes);
    d.Click("mnuDelete");
    EXPECT_EQ(SqlText("SELECT JVID FROM JV ORDER BY JVID"), "2|3");
    EXPECT_EQ(SqlText("SELECT DISTINCT JVID FROM JVDet ORDER BY JVID"), "2|3");
}

TEST_F(JVList, CopyRefusesOtherSourcesAndCopiesAManualVoucherWhole) {
    SetNextNumber(1004);
    ui::FormDriver d(*list);
    Select(2);
    d.Click("mnuCopy");
    EXPECT_EQ(LastMessage(), "Unable to copy JV '1002'...\nIts source is not GL");
    EXPECT_EQ(app.FindForm("frmJV"), nullptr);

    Select(3); // a posted manual voucher may be copied
    d.Click("mnuCopy");
    ledger::TfrmJV& form = VoucherForm();
    EXPECT_EQ(form.Caption, "New (copied) Journal Voucher");
    EXPECT_EQ(form.tblJV.FieldByName("JVNumber").AsInteger(), 1004);
    EXPECT_EQ(form.tblJV.FieldByName("TransDescription").AsString(), "Voucher 1003");
    EXPECT_FALSE(form.tblJV.FieldByName("Posted").AsBoolean());
    EXPECT_EQ(form.stbTotals.SimpleText, "Debits: 10.00   Credits: 10.00CR");
    EXPECT_EQ(CountRows("JVDet"), 6) << "the copied lines wait for OK";
    ui::FormDriver(form).Click("btnOK");
    EXPECT_EQ(SqlText("SELECT Seq, GLAccountID, SubAccount2ID, GLAmount FROM JVDet WHERE JVID = 50 "
                      "ORDER BY Seq"),
              "1,1,,10|2,2,1,-10");
    EXPECT_EQ(SqlText("SELECT JVNumber, JVAmount, Posted FROM JV WHERE JVID = 50"),
              "1004,10,False");
    EXPECT_EQ(list->tblJV.FieldByName("JVID").AsInteger(), 50) << "the list follows the copy";
}

TEST_F(JVList, APostedVoucherOpensWithoutEditing) {
    Select(3);
    ui::FormDriver(*list).Click("mnuEdit");
    ledger::TfrmJV& form = VoucherForm();
    EXPECT_TRUE(form.Visible());
    EXPECT_EQ(form.tblJV.State(), store::DataSetState::Browse);
    EXPECT_TRUE(form.lblPosted.Visible);
    EXPECT_EQ(form.Caption, "JV 1003");
}

TEST_F(JVList, FindGoesToANumberAndTheFilterNarrowsBySource) {
    ui::FormDriver d(*list);
    host.ScriptModal("frmJVsFind", [](ui::Form& f) {
        ui::FormDriver s(f);
        s.EnterText("editJVNumber", "1002");
        s.Click("btnOK");
    });
    d.Click("mnuFind");
    EXPECT_EQ(list->tblJV.FieldByName("JVID").AsInteger(), 2);
    host.ScriptModal("frmJVsFilter", [](ui::Form& f) {
        ui::FormDriver s(f);
        s.EnterText("editSource", "GL");
        s.Choose("rgPosted", "No");
        s.Click("btnOK");
    });
    d.Click("mnuFilter");
    EXPECT_EQ(list->Caption, "Journal Vouchers (Filtered)");
    EXPECT_EQ(list->tblJV.RecordCount(), 1);
}

TEST_F(JVList, PostOpensThePostingDialogOfTheRegistry) {
    shell::FormRegistry registry;
    bool opened = false;
    registry.Register("frmJVsPost", [&](shell::FormContext& ctx) -> ui::Form& {
        opened = true;
        return ctx.App.CreateForm<ui::Form>("frmJVsPost");
    });
    EXPECT_FALSE(list->mnuPost.Visible) << "a list without the program's forms cannot post";
    app.FreeForm(*list);
    list = nullptr;
    corvane::testing::RegistryForms forms(app, db_, registry);
    ledger::TfrmJVs& withPosting = app.CreateForm<ledger::TfrmJVs>(db_);
    EXPECT_TRUE(withPosting.mnuPost.Visible);
    EXPECT_FALSE(withPosting.mnuHistory.Visible) << "no history form is registered";
    withPosting.Show();
    host.ScriptModal("frmJVsPost", [](ui::Form& f) { f.SetModalResult(ui::mrCancel); });
    ui::FormDriver(withPosting).Click("mnuPost");
    EXPECT_TRUE(opened);
    EXPECT_EQ(host.PendingScripts(), 0u);
}
