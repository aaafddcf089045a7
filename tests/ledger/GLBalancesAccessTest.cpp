#include "InquiryFixture.h"
#include "ledger/LedgerForms.h"
#include "ledger/inquiry/TfrmGLBalances.h"
#include "shell/main/FormRegistry.h"
#include "shell/main/ShellForms.h"
#include "shell/main/TfrmCorvane.h"
#include "support/ScopedDataHome.h"

#include <cstdlib>
#include <optional>

using namespace corvane;
using corvane::testing::InquiryTest;
using corvane::testing::ScopedDataHome;

namespace {

// The totals as the program opens them: through the main form, with security on.
class GLBalancesAccess : public InquiryTest {
protected:
    void SetUp() override {
        InquiryTest::SetUp();
        shell::RegisterShellForms(registry_);
        ledger::RegisterLedgerForms(registry_);
        InsertRow("Company", {{"CompanyNo", 1},
                              {"CompanyName", "Acme Ltd."},
                              {"FiscalYear", 2017},
                              {"ApplicationVersion", "2017.8"}});
        AddVoucher(1, 2017, 3, {{Cash, M(100)}, {Sales, M(-100)}});
        PostAll();
    }

    corvane::testing::TempFolder dataHome_;
    ScopedDataHome env_{dataHome_.Path()};
    shell::FormRegistry registry_;
};

} // namespace

TEST_F(GLBalancesAccess, HistoryAsksForTheRightToTheHistory) {
    InsertRow("Users", {{"UserName", "bob"},
                        {"Password", ""},
                        {"Security", true},
                        {"GLBalances", true},
                        {"GLHistory", false}});
    InsertRow("Users", {{"UserName", "ann"},
                        {"Password", ""},
                        {"Security", true},
                        {"GLBalances", true},
                        {"GLHistory", true}});
    auto& main = app.CreateForm<shell::TfrmCorvane>(registry_, std::vector<std::string>{});
    ASSERT_TRUE(main.OpenCompany("", folder_.Path()));
    main.SecurityActive = true;
    main.CurrentUserName = "bob";
    auto& totals = app.CreateForm<ledger::TfrmGLBalances>(main.Database);
    totals.Show();
    ASSERT_TRUE(totals.qryGLAccnt.Locate("GLAccountID", {Cash}));

    ui::FormDriver(totals).Click("mnuHistory");
    EXPECT_EQ(LastMessage(), "bob is not allowed access to GL History.");
    EXPECT_EQ(app.FindForm("frmGLHistory"), nullptr);

    main.CurrentUserName = "ann";
    ui::FormDriver(totals).Click("mnuHistory");
    ui::Form* history = app.FindForm("frmGLHistory");
    ASSERT_NE(history, nullptr);
    EXPECT_TRUE(history->Visible());
    EXPECT_EQ(history->Caption, "GL History (Filtered)");
}
