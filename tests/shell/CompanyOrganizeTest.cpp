#include "shell/FakeCompanyShell.h"
#include "shell/companies/TfrmOrganizeCompanies.h"

#include <filesystem>

namespace corvane::testing {
namespace {

namespace fs = std::filesystem;

class CompanyOrganizeTest : public CompanyFormsTest {
protected:
    void SetUp() override {
        shell.Settings().WriteString("Companies", "Beta Inc", MakeDatabase("Beta"));
        shell.Settings().WriteString("Companies", "Acme", MakeDatabase("Acme"));
        shell.Settings().WriteString("Companies", "Zulu", MakeDatabase("Zulu"));
    }
    ui::ModalResult Organise(std::function<void(ui::FormDriver&)> act) {
        auto& form = app.SingleForm<shell::TfrmOrganizeCompanies>(shell);
        WhenShown("frmOrganizeCompanies", std::move(act));
        return form.ShowModal();
    }
};

TEST_F(CompanyOrganizeTest, TheSampleShortcutCannotBeDeletedAndOthersLeaveTheirFolders) {
    dialogs.Answer("Delete shortcut to company 'Zulu'?", ui::mbCancel);
    dialogs.Answer("Delete shortcut to company 'Zulu'?", ui::mbOK);
    dialogs.Answer("Delete shortcut to company 'Acme'?", ui::mbOK);
    std::vector<std::string> seen;
    auto result = Organise([&](ui::FormDriver& d) {
        EXPECT_EQ(d.Text("editCompany"), "Acme");
        ClickCompany(d, "Sample Data");
        EXPECT_FALSE(d.Enabled("btnDelete"));
        EXPECT_TRUE(d.Enabled("btnEdit"));
        ClickCompany(d, "Zulu");
        d.Click("btnDelete"); // cancelled
        d.Click("btnDelete");
        // Zulu was last: the one above it takes the selection, and it is the sample.
        seen.push_back(d.Text("editCompany"));
        EXPECT_FALSE(d.Enabled("btnDelete"));
        ClickCompany(d, "Acme");
        d.Click("btnDelete");
        // Acme was first: the selection stays at the same place.
        seen.push_back(d.Text("editCompany"));
        d.Click("btnClose");
    });
    EXPECT_EQ(result, ui::mrYes);
    EXPECT_EQ(seen, (std::vector<std::string>{"Sample Data", "Beta Inc"}));
    EXPECT_EQ(Companies(), (std::vector<std::string>{"Sample Data", "Beta Inc"}));
    EXPECT_TRUE(fs::exists(Common("Zulu") + "/company.DAT"));
    EXPECT_TRUE(fs::exists(Common("Acme") + "/company.DAT"));
    EXPECT_EQ(dialogs.PendingAnswers(), 0u);
}

TEST_F(CompanyOrganizeTest, WithoutChangesItClosesWithNoAndAnEmptyListDisablesTheButtons) {
    EXPECT_EQ(Organise([&](ui::FormDriver& d) { d.Click("btnClose"); }), ui::mrNo);
    shell.Settings().EraseSection("Companies");
    Organise([&](ui::FormDriver& d) {
        EXPECT_EQ(d.Text("editCompany"), "");
        EXPECT_FALSE(d.Enabled("btnEdit"));
        EXPECT_FALSE(d.Enabled("btnDelete"));
        EXPECT_TRUE(d.Enabled("btnNew"));
        d.Click("btnClose");
    });
}

TEST_F(CompanyOrganizeTest, ARenameReplacesTheKeyAndLeavesTheDatabaseAlone) {
    WhenShown("frmCompanyDatabase", [&](ui::FormDriver& d) {
        EXPECT_EQ(d.GetForm().Caption, "Edit Company");
        EXPECT_EQ(d.Text("editCompanyName"), "Beta Inc");
        EXPECT_EQ(d.Text("editDatabase"), Common("Beta"));
        d.EnterText("editCompanyName", "Beta Holdings");
        d.Click("btnOK");
    });
    std::vector<std::string> listed;
    auto result = Organise([&](ui::FormDriver& d) {
        ClickCompany(d, "Beta Inc");
        d.Click("btnEdit");
        auto& list = d.GetForm().Get<ui::ListBox>("lboCompanies");
        listed = list.Items();
        EXPECT_EQ(d.Text("editCompany"), "Beta Holdings");
        EXPECT_EQ(list.Text(), "Beta Holdings");
        d.Click("btnClose");
    });
    EXPECT_EQ(result, ui::mrYes);
    EXPECT_EQ(listed, (std::vector<std::string>{"Acme", "Beta Holdings", "Sample Data", "Zulu"}));
    EXPECT_FALSE(shell.Settings().ValueExists("Companies", "Beta Inc"));
    EXPECT_EQ(FolderOf("Beta Holdings"), Common("Beta"));
    EXPECT_TRUE(shell.Calls.empty());
}

TEST_F(CompanyOrganizeTest, EditingAMissingSampleOffersToCreateIt) {
    std::string caption;
    WhenShown("frmCompanyDatabase", [&](ui::FormDriver& d) {
        caption = d.GetForm().Caption;
        EXPECT_EQ(d.Text("editDatabase"), Common("Data"));
        d.Click("btnCancel");
    });
    auto result = Organise([&](ui::FormDriver& d) {
        ClickCompany(d, "Sample Data");
        d.Click("btnEdit");
        d.Click("btnClose");
    });
    EXPECT_EQ(caption, "Create Sample Data");
    EXPECT_EQ(result, ui::mrNo);
}

TEST_F(CompanyOrganizeTest, ANewCompanyJoinsTheListSelected) {
    WhenShown("frmCompanyDatabase", [&](ui::FormDriver& d) {
        EXPECT_EQ(d.GetForm().Caption, "Add New Company");
        d.EnterText("editCompanyName", "Mid Co");
        d.Click("btnOK");
    });
    Organise([&](ui::FormDriver& d) {
        d.Click("btnNew");
        EXPECT_EQ(d.Text("editCompany"), "Mid Co");
        EXPECT_EQ(ListIndex(d), 2);
        d.Click("btnClose");
    });
    EXPECT_EQ(FolderOf("Mid Co"), Common("Data1"));
}

} // namespace
} // namespace corvane::testing
