#include "shell/FakeCompanyShell.h"
#include "shell/companies/TfrmSelectCompany.h"
#include "shell/companies/TfrmWelcome.h"

#include <filesystem>

namespace corvane::testing {
namespace {

class CompanySelectTest : public CompanyFormsTest {
protected:
    ui::ModalResult Select(const std::string& company) {
        auto& form = app.CreateForm<shell::TfrmSelectCompany>(shell);
        WhenShown("frmSelectCompany", [&, company](ui::FormDriver& d) {
            ClickCompany(d, company);
            d.Click("btnOK");
        });
        return form.ShowModal();
    }
};

TEST_F(CompanySelectTest, OpeningACompanyWithoutItsWizardRunRunsIt) {
    shell.Settings().WriteString("Companies", "Acme", MakeDatabase("Acme"));
    shell.TableEmpty = true;
    EXPECT_EQ(Select("Acme"), ui::mrOK);
    EXPECT_EQ(shell.Calls,
              (std::vector<std::string>{"OpenCompany Acme|" + Common("Acme"), "CheckLogin",
                                        "EnableMainMenus on", "RunGettingStarted Acme"}));
}

TEST_F(CompanySelectTest, AFailedLoginClosesTheFormWithTheMenusOff) {
    shell.Settings().WriteString("Companies", "Acme", MakeDatabase("Acme"));
    shell.LoginSucceeds = false;
    EXPECT_EQ(Select("Acme"), ui::mrCancel);
    EXPECT_EQ(shell.Calls.back(), "EnableMainMenus off");
    EXPECT_EQ(shell.Calls.size(), 3u);
}

TEST_F(CompanySelectTest, AMissingSampleIsCreatedInstead) {
    WhenShown("frmCompanyDatabase", [&](ui::FormDriver& d) {
        EXPECT_EQ(d.GetForm().Caption, "Create Sample Data");
        EXPECT_FALSE(app.GetForm("frmSelectCompany").Visible());
        d.Click("btnOK");
    });
    EXPECT_EQ(Select("Sample Data"), ui::mrOK);
    EXPECT_EQ(shell.Calls.back(), "FillSampleData");
    EXPECT_TRUE(std::filesystem::exists(Common("Data") + "/company.DAT"));
}

TEST_F(CompanySelectTest, NothingSelectedIsRefused) {
    shell.Settings().EraseSection("Companies");
    auto& form = app.CreateForm<shell::TfrmSelectCompany>(shell);
    WhenShown("frmSelectCompany", [&](ui::FormDriver& d) {
        d.Click("btnOK");
        EXPECT_TRUE(d.GetForm().Visible());
        d.Click("btnCancel");
    });
    EXPECT_EQ(form.ShowModal(), ui::mrCancel);
    EXPECT_EQ(Shown(), (std::vector<std::string>{"No company selected"}));
    EXPECT_TRUE(shell.Calls.empty());
}

// ----- the first run

class WelcomeTest : public CompanyFormsTest {
protected:
    ui::ModalResult Welcome(std::function<void(ui::FormDriver&)> act) {
        auto& form = app.CreateForm<shell::TfrmWelcome>(shell);
        WhenShown("frmWelcome", std::move(act));
        return form.ShowModal();
    }
};

TEST_F(WelcomeTest, OwnCompanyBeforeTheSampleIsRefusedAndPointsBackToTheSample) {
    auto result = Welcome([&](ui::FormDriver& d) {
        EXPECT_EQ(d.Text("optChoice"), "Let's look at a sample company first");
        d.Choose("optChoice", "Set up my own company");
        d.Click("btnOK");
        EXPECT_TRUE(d.GetForm().Visible());
        EXPECT_EQ(d.Text("optChoice"), "Let's look at a sample company first");
        d.Click("btnCancel");
    });
    EXPECT_EQ(result, ui::mrCancel);
    EXPECT_EQ(Shown(), (std::vector<std::string>{
                           "Please choose Sample Data before setting up your live data.\n\nYou "
                           "can set up your own company next time or from the menu.\nThen you can "
                           "switch between your live data and sample data for experimenting and "
                           "learning."}));
    EXPECT_TRUE(shell.Calls.empty());
}

TEST_F(WelcomeTest, OwnCompanyAfterTheSampleAddsItAndRebuildsTheMenu) {
    MakeDatabase("Data");
    WhenShown("frmCompanyDatabase", [&](ui::FormDriver& d) {
        EXPECT_EQ(d.GetForm().Caption, "Add New Company");
        d.EnterText("editCompanyName", "Acme");
        d.Click("btnOK");
    });
    auto result = Welcome([&](ui::FormDriver& d) {
        d.Choose("optChoice", "Set up my own company");
        d.Click("btnOK");
    });
    EXPECT_EQ(result, ui::mrOK);
    EXPECT_EQ(FolderOf("Acme"), Common("Data1"));
    EXPECT_EQ(shell.Calls.back(), "RebuildCompaniesMenu");
}

TEST_F(WelcomeTest, TheSampleOpensWhenItExistsAndAFailureKeepsTheFormOpen) {
    MakeDatabase("Data");
    shell.OpenSucceeds = false;
    auto result = Welcome([&](ui::FormDriver& d) {
        d.Click("btnOK");
        EXPECT_TRUE(d.GetForm().Visible());
        shell.OpenSucceeds = true;
        d.Click("btnOK");
    });
    EXPECT_EQ(result, ui::mrOK);
    EXPECT_EQ(shell.Calls, (std::vector<std::string>{
                               "OpenCompany Sample Data|" + Common("Data"),
                               "OpenCompany Sample Data|" + Common("Data"),
                               "CheckLogin",
                               "EnableMainMenus on",
                           }));
}

TEST_F(WelcomeTest, AMissingSampleIsCreatedAndACancelledCreationKeepsTheFormOpen) {
    WhenShown("frmCompanyDatabase", [&](ui::FormDriver& d) { d.Click("btnCancel"); });
    WhenShown("frmCompanyDatabase", [&](ui::FormDriver& d) {
        EXPECT_EQ(d.GetForm().Caption, "Create Sample Data");
        d.Click("btnOK");
    });
    int opened = 0;
    auto result = Welcome([&](ui::FormDriver& d) {
        d.Click("btnOK");
        opened += d.GetForm().Visible();
        d.Click("btnOK");
    });
    EXPECT_EQ(opened, 1);
    EXPECT_EQ(result, ui::mrOK);
    EXPECT_EQ(shell.Calls.back(), "FillSampleData");
}

} // namespace
} // namespace corvane::testing
