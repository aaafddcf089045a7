#include "core/Exception.h"
#include "ledger/accounts/TfrmGLAccountSearch.h"
#include "ledger/company/TfrmCompany.h"
#include "store/Query.h"
#include "ui/FormDriver.h"
#include "ui/HeadlessApp.h"

using namespace corvane;
using namespace corvane::ledger;
using corvane::ui::FormDriver;

namespace {

// The account boxes of "Your Company" stand for every form with one.
class AccountBoxTest : public corvane::testing::UiCompanyTest {
protected:
    void SetUp() override {
        UiCompanyTest::SetUp();
        InsertRow("Company", {{"CompanyNo", 1}, {"CompanyName", "Acme"}, {"FiscalYear", 2017}});
        InsertRow("GLAccnt", {{"GLAccountID", 1},
                              {"GLAccount", "4000"},
                              {"AccountName", "Sales"},
                              {"AccountType", 3}});
        InsertRow("GLAccnt", {{"GLAccountID", 2},
                              {"GLAccount", "4100"},
                              {"AccountName", "Fees"},
                              {"AccountType", 3}});
        form = &app.CreateForm<TfrmCompany>(db_);
        form->Show();
        FormDriver(*form).Click("tabDefaults");
    }
    TfrmCompany* form = nullptr;
};

} // namespace

TEST_F(AccountBoxTest, TypedKeyOpensTheSearchAndTheChoiceIsStoredAsTheId) {
    FormDriver f(*form);
    std::string findText;
    host.ScriptModal("frmGLAccountSearch", [&](ui::Form& search) {
        FormDriver s(search);
        findText = s.Text("editFindGLAccount");
        EXPECT_EQ(search.Caption, "GL Account");
        s.EnterText("editFindGLAccount", "41");
        s.Click("btnOK");
    });
    f.Focus("editDfltSalesGLAccount");
    f.Type("4");
    EXPECT_EQ(findText, "4");
    EXPECT_EQ(form->tblCompany.FieldByName("DfltSalesGLAccountID").AsInteger(), 2);
    EXPECT_EQ(f.Text("editDfltSalesGLAccount"), "4100");

    // A cancelled search changes nothing.
    host.ScriptModal("frmGLAccountSearch",
                     [](ui::Form& search) { FormDriver(search).Click("btnCancel"); });
    f.PressKey("editDfltSalesGLAccount", ui::Ctrl(ui::Key::Enter));
    EXPECT_EQ(host.PendingScripts(), 0u);
    EXPECT_EQ(form->tblCompany.FieldByName("DfltSalesGLAccountID").AsInteger(), 2);
    f.Click("btnOK");
    EXPECT_FALSE(form->Visible()) << dialogs.LastText();
}

TEST_F(AccountBoxTest, UnknownAndVanishedAccountsAreRefused) {
    form->tblCompany.Edit();
    EXPECT_THROW(form->tblCompany.FieldByName("DfltCOGSGLAccountID").SetAsInteger(9), Exception);
    try {
        form->tblCompany.FieldByName("DfltCOGSGLAccountID").SetAsInteger(9);
    } catch (const Exception& e) {
        EXPECT_EQ(std::string(e.what()), "GL Account not found");
    }
    form->tblCompany.FieldByName("DfltCOGSGLAccountID").SetAsInteger(1);
    EXPECT_EQ(FormDriver(*form).Text("editDfltCOGSGLAccount"), "4000");

    store::Query remove(db_, "DELETE FROM GLAccnt WHERE GLAccountID = 1");
    remove.ExecSQL();
    FormDriver f(*form);
    f.Click("btnOK");
    EXPECT_EQ(dialogs.LastText(), "GL Account no longer exists");
    EXPECT_TRUE(form->Visible());
    EXPECT_EQ(f.FocusedName(), "editDfltCOGSGLAccount");
}
