#pragma once

#include "core/IniFile.h"
#include "shell/companies/CompanyShell.h"
#include "shell/lookups/TdmLookUps.h"
#include "shell/main/MainMenuEntries.h"
#include "store/Database.h"
#include "store/Session.h"
#include "store/Table.h"
#include "ui/ComboBox.h"
#include "ui/Form.h"
#include "ui/FormService.h"
#include "ui/Label.h"
#include "ui/Menu.h"
#include "ui/MenuItem.h"
#include "ui/ToolBar.h"

#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace corvane::store {
class EngineError;
}

namespace corvane::shell {

class BackgroundIntegrity;
class FormRegistry;

// The main form: a slim bar with the menus, the tool bar and the company name, and the owner of
// what the whole session shares: the settings file, the company database, the Company and Users
// tables and the routines every form calls (open a company, log in, check a right, the edit
// error handler). Every working form is a window of its own, opened from here through the form
// registry by its component name.
class TfrmCorvane : public ui::Form, public CompanyShell, public ui::FormService {
public:
    static constexpr const char* ApplicationTitle = "Corvane Professional Time Billing";
    static constexpr const char* VersionMark = "2017.8";
    static constexpr const char* HelpFileName = "Corvanepro.chm";

    // Runs the start-up of the main form: folders, settings, menus, tool bar. commandLine holds the
    // program's arguments; the first one, when given, is the folder of the company to open.
    TfrmCorvane(ui::Application& app, const FormRegistry& registry,
                std::vector<std::string> commandLine = {});
    ~TfrmCorvane() override;

    // ----- the session, as every form reads it
    std::filesystem::path UserSettingsFolder;
    std::filesystem::path CommonDataFolder_;
    std::string CurrentDatabase;
    std::string SelectedSystem;
    std::string CurrentUserName;
    bool SecurityActive = false;
    bool SampleDataOpen = false;
    bool PaperIsA4 = false;
    double ScaleFactor = 1.0;
    std::string CountryName;
    std::string RemoteHost, RemoteAddress;

    store::Session Session;
    store::Database Database{Session};
    store::Table tblCompany{Database, "Company"};
    store::Table tblUsers{Database, "Users"};
    // The look-up cursors every form shares; closed with each company.
    TdmLookUps dmLookUps;

    // ----- menus and bar
    ui::MainMenu mnuMain{*this};
    ui::MenuItem mnuFile{mnuMain, "mnuFile", "&File"};
    ui::MenuItem mnuAP{mnuFile, "mnuAP", "&AP"};
    ui::MenuItem mnuAR{mnuFile, "mnuAR", "A&R"};
    ui::MenuItem mnuGL{mnuFile, "mnuGL", "&GL"};
    ui::MenuItem mnuInventory{mnuFile, "mnuInventory", "&Inventory"};
    ui::MenuItem mnuTimeBilling{mnuFile, "mnuTimeBilling", "&Time Billing"};
    ui::MenuItem mnuSalesAnalysis{mnuFile, "mnuSalesAnalysis", "&Sales Analysis"};
    ui::MenuItem mnuGeneral{mnuFile, "mnuGeneral", "Ge&neral"};
    ui::MenuItem mnuFileSep1{mnuFile, "mnuFileSep1", "-"};
    ui::MenuItem mnuCompanies{mnuFile, "mnuCompanies", "&Companies"};
    ui::MenuItem mnuNewCompany{mnuCompanies, "mnuNewCompany", "&New Company..."};
    ui::MenuItem mnuOrganizeCompanies{mnuCompanies, "mnuOrganizeCompanies",
                                      "&Organize Companies..."};
    ui::MenuItem mnuCompaniesSep{mnuCompanies, "mnuCompaniesSep", "-"};
    ui::MenuItem mnuFileSep2{mnuFile, "mnuFileSep2", "-"};
    ui::MenuItem mnuExit{mnuFile, "mnuExit", "E&xit"};
    ui::MenuItem mnuView{mnuMain, "mnuView", "&View"};
    ui::MenuItem mnuViewCompanyName{mnuView, "mnuViewCompanyName", "&Company Name"};
    ui::MenuItem mnuConfirmExit{mnuView, "mnuConfirmExit", "Confirm &Exit"};
    ui::MenuItem mnuToolbarText{mnuView, "mnuToolbarText", "Toolbar &Text"};
    ui::MenuItem mnuHelp{mnuMain, "mnuHelp", "&Help"};
    ui::MenuItem mnuHelpContents{mnuHelp, "mnuHelpContents", "&Help"};
    ui::MenuItem mnuTechSupport{mnuHelp, "mnuTechSupport", "&Technical Support Info"};
    ui::MenuItem mnuAbout{mnuHelp, "mnuAbout", "&About"};
    ui::MenuItem* mnuGeneralSettings = nullptr;

    ui::ToolBar tlbMain{*this, "tlbMain"};
    ui::ToolButton* btnReports = nullptr;
    ui::ComboBox cboSystem{*this, "cboSystem"};
    ui::Label lblNewCompany{*this, "lblNewCompany", "Set up my own company"};
    ui::Label txtCompanyName{*this, "txtCompanyName"};

    // ----- shared routines
    bool OpenCompany(const std::string& name, const std::string& folder) override;
    bool CheckLogin() override;
    // True when the user holds the right (a Users field); else says who is refused what.
    bool CheckUserAccess(const std::string& right, const std::string& displayName = {});

    // The form service of the whole program: the registry's forms, made in the open company.
    bool HasForm(std::string_view name) const override;
    ui::Form* OpenForm(std::string_view name) override;
    bool CheckAccess(const std::string& right, const std::string& displayName) override {
        return CheckUserAccess(right, displayName);
    }
    bool PrintList(ui::Form& list) override;
    bool ReportsOnA4() const override { return PaperIsA4; }
    // Opens the user's guide at the topic of the form (its contents for the main form's Help).
    void ShowHelp(const ui::Form& form);
    void EnableMainMenus(bool enabled) override;
    void RebuildCompaniesMenu() override;
    void CloseAllForms() override;
    // The edit and delete error handler of every table a person edits.
    void EditError(store::DataSet& dataSet, store::EngineError& error, store::DataAction& action);

    // ----- CompanyShell
    IniFile& Settings() override { return *ini_; }
    const std::filesystem::path& CommonDataFolder() const override { return CommonDataFolder_; }
    bool IsRemote() const override { return false; }
    bool SessionActive() const override { return Database.Connected(); }
    void CreateCompanyTables(const std::string& folder) override;
    bool CompanyTableEmpty() override;
    void RunGettingStarted(const std::string& companyName) override;
    void FillSampleData() override;

    // Gives the new company wizard the name the company was given in its shortcut.
    std::function<void(ui::Form& wizard, const std::string& companyName)> GettingStartedPreset;
    // Runs the backup at exit the company asks for (its BackupOnExit value), when the program
    // has backups.
    std::function<void(int backupOnExit)> BackupRunner;
    // Runs as the company closes: shared cursors on it (the look-up data) close with it.
    std::function<void()> OnSessionClose;

    // The forms and list printers the program was started with.
    const FormRegistry& Registry() const { return registry_; }
    // The menu entry at a path of captions ("GL, Accounts"); null when there is none.
    ui::MenuItem* FindMenuItem(std::string_view path) const;
    // The component name of the form the entry at path opens; empty for none.
    std::string FormOfMenu(std::string_view path) const;
    // Shows the toolbar buttons of the system named (cboSystem's text).
    void ApplyToolbarSet(const std::string& system);
    // The check of the open company for damage, which runs beside the user's work.
    BackgroundIntegrity& IntegrityCheck() { return *integrity_; }
    // The main form closed for good: the program ends.
    bool Terminated() const { return terminated_; }
    std::function<void()> OnTerminate;

private:
    struct MenuEntryItem {
        const MainMenuEntry* Entry;
        std::unique_ptr<ui::MenuItem> Item;
    };
    void BuildFolders();
    void ReadSettings();
    void BuildSystemMenus();
    void BuildToolbar();
    void RunMenuEntry(const MainMenuEntry& entry);
    void OpenEntryForm(const MainMenuEntry& entry);
    void BackupOptionsClick();
    void SettingsClick();
    void ToggleView(ui::MenuItem& item, const char* key);
    void ShowCompanyName();
    void FormShow();
    // The first run's welcome; false when the person cancelled it and the program ends.
    bool RunWelcome();
    void BackupOnExit();
    void FormCloseQuery(bool& canClose);
    void FormClose(ui::CloseAction& action);
    void Terminate();
    void SelectCompanyClick(const std::string& caption);
    void NewCompanyClick();
    void OrganizeCompaniesClick();
    // The head of the messages of a failed open.
    std::string OpenErrorHead(const std::string& name, const std::string& folder) const;
    bool OpenCompanyTable(const std::string& head);
    void ErrorBox(const std::string& text, const std::string& title = {});
    bool IsKeptForm(const ui::Form& form) const;
    bool SurvivesCompanyChange(const ui::Form& form) const;
    void CloseSession();
    // Closes every working form, last first, and frees those that do not live for the whole
    // run; raises refusal when one stays open (its own close question said no).
    void CloseWorkingForms(const std::string& refusal);
    // The one Company row, of this program's version.
    void AddCompanyRow(const std::string& name, int fiscalYear);

    const FormRegistry& registry_;
    std::vector<std::string> commandLine_;
    std::unique_ptr<IniFile> ini_;
    std::vector<MenuEntryItem> entryItems_;
    std::vector<std::unique_ptr<ui::MenuItem>> fixedItems_;
    std::vector<std::unique_ptr<ui::MenuItem>> companyItems_;
    std::vector<std::unique_ptr<ui::ToolButton>> toolButtons_;
    bool companyOpened_ = false;
    // The check for damage that runs after each company opens.
    std::unique_ptr<BackgroundIntegrity> integrity_;
    bool terminated_ = false;
    bool closingWithoutQuery_ = false;
};

} // namespace corvane::shell
