#include "core/IniFile.h"
#include "shell/main/BackgroundIntegrity.h"
#include "shell/main/FormRegistry.h"
#include "shell/main/ShellForms.h"
#include "shell/main/TfrmCorvane.h"
#include "shell/users/TfrmUsers.h"
#include "store/FileError.h"
#include "store/tables/CompanyDatabase.h"
#include "support/ChildProcess.h"
#include "support/ScopedDataHome.h"
#include "ui/FormDriver.h"
#include "ui/HeadlessApp.h"

#include <gtest/gtest.h>

#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <optional>
#include <thread>

namespace corvane::testing {
namespace {

namespace fs = std::filesystem;

class MainFormTest : public UiCompanyTest {
protected:
    void SetUp() override {
        UiCompanyTest::SetUp();
        shell::RegisterShellForms(registry_);
    }

    shell::TfrmCorvane& Main(std::vector<std::string> commandLine = {}) {
        main_ = &app.CreateForm<shell::TfrmCorvane>(registry_, std::move(commandLine));
        return *main_;
    }
    fs::path IniPath() const { return main_->UserSettingsFolder / "Corvane.ini"; }
    // The program as a returning user starts it: a shortcut to the fixture's company, which
    // was the one open last.
    shell::TfrmCorvane& StartOnCompany() {
        fs::path settings = fs::path(dataHome_.Path()) / "Halvern Works" /
                            "Corvane Professional Time Billing" / "2017.8";
        fs::create_directories(settings);
        IniFile ini(settings / "Corvane.ini");
        ini.WriteString("Companies", "Acme", folder_.Path());
        ini.WriteString("General", "Database", folder_.Path());
        auto& main = Main();
        main.Show();
        return main;
    }
    // The company of the fixture, with a Company row of the given version mark.
    void MarkCompany(const std::string& version, const std::string& name = "Acme Ltd.") {
        InsertRow("Company", {{"CompanyNo", 1},
                              {"CompanyName", name},
                              {"FiscalYear", 2026},
                              {"ApplicationVersion", version}});
    }
    void Click(ui::Form& form, const std::string& name) { ui::FormDriver(form).Click(name); }

    TempFolder dataHome_;
    ScopedDataHome env_{dataHome_.Path()};
    shell::FormRegistry registry_;
    shell::TfrmCorvane* main_ = nullptr;
};

TEST_F(MainFormTest, StartUpWritesTheSettingsThatMustExistAndReadsTheRest) {
    auto& main = Main();
    EXPECT_EQ(main.UserSettingsFolder, fs::path(dataHome_.Path()) / "Halvern Works" /
                                           "Corvane Professional Time Billing" / "2017.8");
    IniFile ini(IniPath());
    EXPECT_EQ(ini.ReadString("General", "HideDesktopIconsWhenActive", "missing"), "0");
    EXPECT_EQ(ini.ReadString("Companies", "Sample Data", ""),
              (main.CommonDataFolder() / "Data").string());
    EXPECT_EQ(main.Caption, "Corvane Professional Time Billing");
    EXPECT_EQ(main.cboSystem.Text(), "Time Billing");
    EXPECT_TRUE(main.mnuViewCompanyName.Checked());
    EXPECT_FALSE(main.mnuConfirmExit.Checked());
    // No company yet: the system menus wait for one, the Companies menu does not.
    EXPECT_FALSE(main.mnuGL.Enabled);
    EXPECT_TRUE(main.mnuCompanies.Usable());
}

TEST_F(MainFormTest, ToolbarSetsShowTheirButtonsAndAnUnknownSystemShowsNone) {
    auto& main = Main();
    auto shown = [&] {
        std::vector<std::string> names;
        for (auto* b : main.tlbMain.Buttons())
            if (b->Visible()) names.push_back(b->Name());
        return names;
    };
    EXPECT_EQ(shown(),
              (std::vector<std::string>{"btnCustomers", "btnJobs", "btnTimeSheets", "btnReports"}));
    main.cboSystem.Choose("GL");
    EXPECT_EQ(main.SelectedSystem, "GL");
    EXPECT_EQ(shown(),
              (std::vector<std::string>{"btnAccounts", "btnJVs", "btnBudget", "btnReports"}));
    main.ApplyToolbarSet("Payroll");
    EXPECT_EQ(shown(), std::vector<std::string>{"btnReports"});
}

TEST_F(MainFormTest, TheCompaniesMenuShowsFiveCompaniesAndMoreForTheSixthAndLater) {
    auto& main = Main();
    for (const char* name : {"Delta", "Alpha", "Echo", "Bravo", "Foxtrot", "Charlie"})
        main.Settings().WriteString("Companies", name, std::string("/data/") + name);
    main.RebuildCompaniesMenu();
    std::vector<std::string> captions;
    for (auto* item : main.mnuCompanies.Items())
        captions.push_back(item->Caption);
    // Seven keys with Sample Data: the sixth and seventh by the More entry only.
    EXPECT_EQ(captions,
              (std::vector<std::string>{"&New Company...", "&Organize Companies...", "-", "Alpha",
                                        "Bravo", "Charlie", "Delta", "Echo", "&More..."}));
    main.Settings().DeleteKey("Companies", "Foxtrot");
    main.RebuildCompaniesMenu();
    EXPECT_EQ(main.mnuCompanies.Items().back()->Caption, "&More...");
    EXPECT_EQ(main.mnuCompanies.Items().size(), 9u); // exactly six companies: still More
}

TEST_F(MainFormTest, OpeningRefusesMissingFoldersFoldersWithoutADatabaseAndOtherVersions) {
    auto& main = Main();
    EXPECT_FALSE(main.OpenCompany("Gone", dataHome_.Path() + "/gone"));
    EXPECT_EQ(dialogs.LastText(), "Error opening company 'Gone', database '" + dataHome_.Path() +
                                      "/gone'...\nThe specified directory does not exist.");
    EXPECT_FALSE(main.OpenCompany("", dataHome_.Path()));
    EXPECT_EQ(dialogs.LastText(), "Error opening database '" + dataHome_.Path() +
                                      "'...\nThe specified directory does not contain a database.");
    EXPECT_FALSE(main.SessionActive());

    MarkCompany("2016.1");
    EXPECT_FALSE(main.OpenCompany("Old", folder_.Path()));
    EXPECT_EQ(dialogs.LastText(),
              "Database '" + folder_.Path() +
                  "' was created by a different version...\n\nProgram: 2017.8  Database: "
                  "2016.1\n\nData entered to a previous version must be imported so as to be "
                  "compatible with the new version.\nPlease see readme.txt for instructions.");
    EXPECT_FALSE(main.SessionActive());
}

// The one repair the program makes by itself: a damaged Company table, and a place-holder row
// when nothing of it could be read back, so that the rest of the system still works.
TEST_F(MainFormTest, ADamagedCompanyTableIsRepairedAndGetsAPlaceHolderRow) {
    MarkCompany("2017.8");
    DamageObject("Company");
    auto& main = Main();
    EXPECT_TRUE(main.OpenCompany("", folder_.Path()));
    ASSERT_GE(dialogs.Shown().size(), 1u);
    const auto& warning = dialogs.Shown().front();
    EXPECT_EQ(warning.Type, ui::MsgType::Warning);
    EXPECT_TRUE(warning.Text.starts_with("Error opening database '" + folder_.Path() + "'...\n\n"))
        << warning.Text;
    EXPECT_TRUE(warning.Text.ends_with("\n\nThe program will now attempt to repair it."))
        << warning.Text;
    EXPECT_EQ(main.tblCompany.FieldByName("CompanyName").AsString(), "Data lost: please re-enter");
    EXPECT_EQ(main.tblCompany.FieldByName("FiscalYear").AsInteger(), 1990);
}

// Damage outside the Company table is found by the check that reads the whole company after
// it opens, beside the user's work; a sound company says nothing.
TEST_F(MainFormTest, TheCheckAfterOpeningTellsOfDamageAnywhere) {
    MarkCompany("2017.8");
    auto& main = Main();
    EXPECT_TRUE(main.OpenCompany("", folder_.Path()));
    main.IntegrityCheck().Finish();
    EXPECT_TRUE(dialogs.Shown().empty());
    main.CloseAllForms();

    DamageObject("GLHist");
    EXPECT_TRUE(main.OpenCompany("", folder_.Path()));
    main.IntegrityCheck().Finish();
    ASSERT_EQ(dialogs.Shown().size(), 1u);
    EXPECT_EQ(dialogs.Shown().front().Type, ui::MsgType::Error);
    EXPECT_EQ(dialogs.LastText(), store::CorruptMessage(folder_.Path()));
}

TEST_F(MainFormTest, AnEmptyCompanyTableOpensAndTheSampleIsKnownByItsName) {
    auto& main = Main();
    EXPECT_TRUE(main.OpenCompany("", folder_.Path())); // the wizard has not run yet
    EXPECT_TRUE(main.CompanyTableEmpty());
    EXPECT_FALSE(main.SampleDataOpen);
    main.CloseAllForms();
    MarkCompany("2017.8", "Sample Data Company");
    EXPECT_TRUE(main.OpenCompany("", folder_.Path()));
    EXPECT_TRUE(main.SampleDataOpen);
    EXPECT_EQ(main.txtCompanyName.Caption, "Sample Data Company");
}

TEST_F(MainFormTest, ARefusedRightSaysWhoIsRefusedWhatAndOpensNothing) {
    MarkCompany("2017.8");
    InsertRow("Users", {{"UserName", "bob"}, {"Password", ""}, {"Security", false}});
    auto& main = Main();
    ASSERT_TRUE(main.OpenCompany("", folder_.Path()));
    main.EnableMainMenus(true);
    main.SecurityActive = true;
    main.CurrentUserName = "bob";
    Click(main, "mnuGeneralSecurity");
    EXPECT_EQ(dialogs.LastText(), "bob is not allowed access to Security.");
    EXPECT_EQ(dialogs.Shown().back().Title, "Corvane Professional Time Billing Security");
    EXPECT_EQ(app.FindForm("frmUsers"), nullptr);
    Click(main, "mnuGLAccounts");
    EXPECT_EQ(dialogs.LastText(), "bob is not allowed access to GL Accounts.");
}

TEST_F(MainFormTest, TheUsersListMayNotCloseWhileNobodyHoldsSecurity) {
    MarkCompany("2017.8");
    auto& main = StartOnCompany();
    ASSERT_TRUE(main.SessionActive());
    Click(main, "mnuGeneralSecurity");
    ASSERT_NE(app.FindForm("frmUsers"), nullptr);
    InsertRow("Users", {{"UserName", "bob"}, {"Password", ""}, {"Security", false}});
    main.Close();
    EXPECT_EQ(dialogs.LastText(),
              "Exit not allowed yet...\n\nIf security is active (one or more users specified), "
              "then at least one user must be allowed access to Security.");
    EXPECT_TRUE(main.Visible());
    EXPECT_FALSE(main.Terminated());
    EXPECT_TRUE(app.FindForm("frmUsers")->Visible());
    // Once someone may change security again, the program closes, and the list with it.
    InsertRow("Users", {{"UserName", "alice"}, {"Password", ""}, {"Security", true}});
    main.Close();
    EXPECT_TRUE(main.Terminated());
}

TEST_F(MainFormTest, CloseWritesTheCompanyThatWasReallyOpenAndTheSystem) {
    MarkCompany("2017.8");
    {
        auto& first = StartOnCompany();
        first.Close();
        app.FreeForm(first);
    }
    TempFolder other;
    store::tables::CreateCompanyDatabase(other.Path());
    // The command line wins over the key, and the key is rewritten with what was really open.
    auto& main = Main({other.Path()});
    EXPECT_EQ(main.CurrentDatabase, other.Path());
    main.Show();
    ASSERT_TRUE(main.SessionActive());
    dialogs.ClearShown();
    main.cboSystem.Choose("AP");
    main.Close();
    EXPECT_TRUE(main.Terminated());
    IniFile ini(IniPath());
    EXPECT_EQ(ini.ReadString("General", "Database", ""), other.Path());
    EXPECT_EQ(ini.ReadString("General", "System", ""), "AP");
}

// Another process holds a user in edit: the edit here asks whether to try again, and a retry
// after the other process let go gets the record.
TEST_F(MainFormTest, ALockedRecordAsksToTryAgainAndARetryGetsItOnceItIsFree) {
    MarkCompany("2017.8");
    InsertRow("Users", {{"UserName", "alice"}, {"Password", ""}, {"Security", true}});
    tests::ChildProcess holder(CORVANE_CURSOR_HOLDER, {folder_.Path(), "edit", "Users"});
    ASSERT_TRUE(holder.WaitForLine("ready"));

    auto& main = Main();
    main.Session.LockRetryCount = 3;
    main.Session.LockWaitTime = 100;
    ASSERT_TRUE(main.OpenCompany("", folder_.Path()));
    main.EnableMainMenus(true);
    Click(main, "mnuGeneralSecurity");
    auto& list = dynamic_cast<shell::TfrmUsers&>(app.GetForm("frmUsers"));
    const std::string question =
        "The 'Users' record you are trying to edit or delete is currently locked. Do you want to "
        "try again?\n\nThis would happen if the record (customer, invoice, etc.) is currently "
        "being edited by another person or process.";

    dialogs.Answer(question, ui::mbNo);
    Click(list, "mnuEdit");
    EXPECT_EQ(dialogs.LastText(), question);
    auto* entry = app.FindForm("frmUser");
    EXPECT_TRUE(entry == nullptr || !entry->Visible()); // No: the edit is given up silently

    // Yes, and the other process lets go while the retry waits.
    dialogs.ClearShown();
    for (int i = 0; i < 5; ++i)
        dialogs.Answer(question, ui::mbYes);
    std::thread release([&] {
        std::this_thread::sleep_for(std::chrono::milliseconds(500));
        holder.Kill();
    });
    Click(list, "mnuEdit");
    release.join();
    EXPECT_GE(dialogs.Shown().size(), 1u);
    ASSERT_NE(app.FindForm("frmUser"), nullptr);
    EXPECT_TRUE(app.FindForm("frmUser")->Visible());
}

} // namespace
} // namespace corvane::testing
