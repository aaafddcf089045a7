#include "shell/FakeCompanyShell.h"
#include "shell/companies/TfrmCompanyDatabase.h"
#include "ui/ScriptError.h"

#include <filesystem>

namespace corvane::testing {
namespace {

using shell::TfrmCompanyDatabase;
namespace fs = std::filesystem;

class CompanyDatabaseTest : public CompanyFormsTest {
protected:
    ui::ModalResult Run(std::string_view caption, std::function<void(ui::FormDriver&)> act) {
        WhenShown("frmCompanyDatabase", std::move(act));
        return shell::RunCompanyDatabase(
            app, shell, [&](TfrmCompanyDatabase& form) { form.Caption = std::string(caption); });
    }
};

TEST_F(CompanyDatabaseTest, RefusalsComeInOrderAndWriteNothing) {
    shell.Settings().WriteString("Companies", "Acme", MakeDatabase("Acme"));
    auto before = Companies();
    std::vector<std::string> focusedAt;
    auto result = Run(TfrmCompanyDatabase::kAddNewCompany, [&](ui::FormDriver& d) {
        auto attempt = [&](const std::string& name, const std::string& database) {
            d.EnterText("editDatabase", database);
            d.EnterText("editCompanyName", name);
            d.Click("btnOK");
            focusedAt.push_back(d.FocusedName());
        };
        attempt("", Common("New"));
        attempt("A&B", Common("New"));
        attempt("sAMPLE dATA", Common("New"));
        attempt("Acme Two", "");
        attempt("Acme Two", "/ab");
        attempt("ACME", Common("New"));
        d.Click("btnCancel");
    });
    EXPECT_EQ(result, ui::mrCancel);
    EXPECT_EQ(Shown(),
              (std::vector<std::string>{
                  "Company Name must be entered",
                  "Company Name must not contain character '&'.",
                  "Company Name 'Sample Data' is reserved for system generated sample data",
                  "Database Folder must be entered",
                  "Database Folder invalid",
                  "Company Name 'ACME' already exists",
              }));
    EXPECT_EQ(focusedAt,
              (std::vector<std::string>{"editCompanyName", "editCompanyName", "editCompanyName",
                                        "editDatabase", "editDatabase", "editCompanyName"}));
    EXPECT_EQ(Companies(), before);
    EXPECT_TRUE(shell.Calls.empty());
}

TEST_F(CompanyDatabaseTest, BothFieldsEmptyIsACancel) {
    auto result = Run(TfrmCompanyDatabase::kAddNewCompany, [&](ui::FormDriver& d) {
        d.EnterText("editDatabase", "");
        d.Click("btnOK");
    });
    EXPECT_EQ(result, ui::mrCancel);
    EXPECT_TRUE(Shown().empty());
    EXPECT_EQ(Companies(), (std::vector<std::string>{"Sample Data"}));
}

TEST_F(CompanyDatabaseTest, ANewCompanyGetsTheFirstFreeDataFolderItsTablesAndTheWizard) {
    fs::create_directories(Common("Data1"));
    MakeDatabase("Data3");
    shell.Active = true;
    shell.TableEmpty = true;
    std::string preset;
    auto result = Run(TfrmCompanyDatabase::kAddNewCompany, [&](ui::FormDriver& d) {
        preset = d.Text("editDatabase");
        EXPECT_EQ(d.Text("lblDatabase"), "Database Folder:");
        d.EnterText("editCompanyName", "Acme");
        d.Click("btnOK");
    });
    EXPECT_EQ(result, ui::mrOK);
    EXPECT_EQ(preset, Common("Data2"));
    EXPECT_EQ(FolderOf("Acme"), Common("Data2"));
    EXPECT_TRUE(fs::is_directory(Common("Data2")));
    EXPECT_EQ(shell.Calls, (std::vector<std::string>{
                               "CloseAllForms",
                               "CreateCompanyTables " + Common("Data2"),
                               "OpenCompany Acme|" + Common("Data2"),
                               "CheckLogin",
                               "EnableMainMenus on",
                               "RunGettingStarted Acme",
                           }));
}

// The check box opens a new company's folder to the user's group before its tables are made;
// unchecked, the folder stays the user's own. It is offered only where a company is made.
TEST_F(CompanyDatabaseTest, TheSharedBoxOpensANewFolderToTheGroup) {
    for (const bool shared : {true, false}) {
        const std::string name = shared ? "Shared" : "Own";
        shell.Calls.clear();
        Run(TfrmCompanyDatabase::kAddNewCompany, [&](ui::FormDriver& d) {
            EXPECT_TRUE(d.Visible("chkShared"));
            d.EnterText("editCompanyName", name);
            d.EnterText("editDatabase", Common(name));
            d.SetChecked("chkShared", shared);
            d.Click("btnOK");
        });
        const auto mode = fs::status(Common(name)).permissions();
        EXPECT_EQ((mode & fs::perms::group_all) == fs::perms::group_all, shared) << name;
        EXPECT_EQ((mode & fs::perms::set_gid) == fs::perms::set_gid, shared) << name;
    }
    MakeDatabase("Data5");
    Run(TfrmCompanyDatabase::kEditCompany, [&](ui::FormDriver& d) {
        EXPECT_FALSE(d.Visible("chkShared"));
        d.Click("btnCancel");
    });
}

TEST_F(CompanyDatabaseTest, AFailedLoginLeavesTheMenusOffButKeepsTheShortcut) {
    shell.LoginSucceeds = false;
    auto result = Run(TfrmCompanyDatabase::kAddNewCompany, [&](ui::FormDriver& d) {
        d.EnterText("editCompanyName", "Acme");
        d.Click("btnOK");
    });
    EXPECT_EQ(result, ui::mrOK);
    EXPECT_EQ(FolderOf("Acme"), Common("Data1"));
    EXPECT_EQ(shell.Calls.back(), "EnableMainMenus off");
}

TEST_F(CompanyDatabaseTest, AnExistingDatabaseIsOnlyLinkedAfterTheUserAgrees) {
    std::string shared = MakeDatabase("Shared");
    dialogs.Answer(ui::mbNo);
    dialogs.Answer(ui::mbYes);
    std::vector<std::string> afterNo;
    auto result = Run(TfrmCompanyDatabase::kAddNewCompany, [&](ui::FormDriver& d) {
        d.EnterText("editCompanyName", "Acme");
        d.EnterText("editDatabase", shared);
        d.Click("btnOK");
        afterNo = Companies();
        EXPECT_TRUE(d.GetForm().Visible());
        d.Click("btnOK");
    });
    EXPECT_EQ(result, ui::mrOK);
    EXPECT_EQ(afterNo, (std::vector<std::string>{"Sample Data"}));
    ASSERT_EQ(Shown().size(), 2u);
    EXPECT_EQ(Shown()[0], "The specified folder already contains a database. Create a company "
                          "shortcut to it?\n\nThis would be expected if setting up multiple "
                          "workstations to access a shared database on a network.");
    EXPECT_EQ(FolderOf("Acme"), shared);
    // The database is there already: it is opened, never made again.
    EXPECT_EQ(shell.Calls, (std::vector<std::string>{"OpenCompany Acme|" + shared, "CheckLogin",
                                                     "EnableMainMenus on"}));
}

TEST_F(CompanyDatabaseTest, EditingChecksTheFolderHoldsADatabase) {
    fs::create_directories(Common("Empty"));
    auto result = Run(TfrmCompanyDatabase::kEditCompany, [&](ui::FormDriver& d) {
        d.EnterText("editCompanyName", "Acme");
        d.EnterText("editDatabase", Common("Missing"));
        d.Click("btnOK");
        d.EnterText("editDatabase", Common("Empty"));
        d.Click("btnOK");
        d.Click("btnCancel");
    });
    EXPECT_EQ(result, ui::mrCancel);
    const std::string note = "\n\nThis option will not move or create a database, but it can be "
                             "used to update a company shortcut after a database has been moved.";
    EXPECT_EQ(Shown(),
              (std::vector<std::string>{"The specified folder does not exist. The folder must "
                                        "exist and contain an existing database." +
                                            note,
                                        "The specified folder does not contain an existing "
                                        "database." +
                                            note}));
    EXPECT_FALSE(fs::exists(Common("Missing")));
    EXPECT_FALSE(shell.Settings().ValueExists("Companies", "Acme"));
}

TEST_F(CompanyDatabaseTest, TheSampleCreatorMakesAndFillsTheSampleWithoutALogin) {
    shell.Active = true;
    WhenShown("frmCompanyDatabase", [&](ui::FormDriver& d) {
        EXPECT_EQ(d.Text("editCompanyName"), "Sample Data");
        EXPECT_THROW(d.EnterText("editCompanyName", "Mine"), ui::ScriptError);
        d.Click("btnOK");
    });
    std::string caption;
    auto result = shell::RunCompanyDatabase(app, shell, [&](TfrmCompanyDatabase& form) {
        form.SetUpSampleCreator();
        caption = form.Caption;
    });
    EXPECT_EQ(result, ui::mrOK);
    EXPECT_EQ(caption, "Create Sample Data");
    EXPECT_TRUE(Shown().empty());
    EXPECT_EQ(FolderOf("Sample Data"), Common("Data"));
    EXPECT_EQ(shell.Calls, (std::vector<std::string>{
                               "CloseAllForms",
                               "CreateCompanyTables " + Common("Data"),
                               "OpenCompany Sample Data|" + Common("Data"),
                               "EnableMainMenus on",
                               "FillSampleData",
                           }));
}

TEST_F(CompanyDatabaseTest, BrowseAsksForAFolderAndACancelKeepsTheText) {
    desktop.AnswerFolder("/srv/acme");
    desktop.AnswerFolder(std::nullopt);
    Run(TfrmCompanyDatabase::kAddNewCompany, [&](ui::FormDriver& d) {
        d.EnterText("editDatabase", "/start/here");
        d.Click("btnBrowse");
        EXPECT_EQ(d.Text("editDatabase"), "/srv/acme");
        d.Click("btnBrowse");
        EXPECT_EQ(d.Text("editDatabase"), "/srv/acme");
        d.Click("btnCancel");
    });
    EXPECT_EQ(desktop.Calls(),
              (std::vector<std::string>{"PickFolder Select a folder | /start/here",
                                        "PickFolder Select a folder | /srv/acme"}));
}

TEST_F(CompanyDatabaseTest, OnAServerTheNameIsADatabaseNameThatTheServerMustList) {
    shell.Remote = true;
    Run(TfrmCompanyDatabase::kAddNewCompany, [&](ui::FormDriver& d) {
        EXPECT_FALSE(d.Visible("btnBrowse"));
        EXPECT_EQ(d.Text("lblDatabase"), "Database Name:");
        EXPECT_EQ(d.Text("editDatabase"), "");
        d.EnterText("editCompanyName", "Acme");
        d.Click("btnOK");
        // Short names are fine for a server database; this build has no server to list it.
        d.EnterText("editDatabase", "ac");
        d.Click("btnOK");
        d.Click("btnCancel");
    });
    EXPECT_EQ(Shown(), (std::vector<std::string>{
                           "Database Name must be entered",
                           "The specified database does not exist on the server.\n\nThe database "
                           "name must previously have been added via the Server Administration "
                           "Utility.",
                       }));
    EXPECT_FALSE(shell.Settings().ValueExists("Companies", "Acme"));
}

TEST_F(CompanyDatabaseTest, AltIsSwallowedAndTheNameHoldsFortyCharacters) {
    Run(TfrmCompanyDatabase::kAddNewCompany, [&](ui::FormDriver& d) {
        d.PressKey(ui::Key::Alt);
        d.EnterText("editCompanyName", std::string(45, 'x'));
        EXPECT_EQ(d.Text("editCompanyName").size(), 40u);
        d.Click("btnCancel");
    });
    for (const auto& line : host.Log())
        EXPECT_EQ(line.rfind("menubar", 0), std::string::npos) << line;
}

} // namespace
} // namespace corvane::testing
