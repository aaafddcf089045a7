// The main form's routines of the company session: the Companies menu, opening a company and
// closing every form before the next one.
#include "core/Exception.h"
#include "core/IniFile.h"
#include "shell/companies/CompanyShortcuts.h"
#include "shell/companies/TfrmCompanyDatabase.h"
#include "shell/companies/TfrmOrganizeCompanies.h"
#include "shell/companies/TfrmSelectCompany.h"
#include "shell/companies/TfrmWelcome.h"
#include "shell/main/FormRegistry.h"
#include "shell/main/TfrmCorvane.h"

#include "shell/main/BackgroundIntegrity.h"
#include "store/EngineError.h"
#include "store/Maintenance.h"
#include "store/tables/CompanyDatabase.h"
#include "ui/Application.h"
#include "ui/Caption.h"

#include <algorithm>
#include <filesystem>

namespace corvane::shell {

namespace {

constexpr const char* Companies = "Companies";
// The Companies menu shows at most this many entries; the last of them is "&More...".
constexpr std::size_t CompanyEntries = 6;

} // namespace

void TfrmCorvane::RebuildCompaniesMenu() {
    companyItems_.clear();
    std::vector<std::string> names = ini_->ReadSection(Companies);
    std::sort(names.begin(), names.end());
    for (std::size_t i = 0; i < CompanyEntries && i < names.size(); ++i) {
        std::string caption = i == CompanyEntries - 1 ? "&More..." : names[i];
        companyItems_.push_back(std::make_unique<ui::MenuItem>(
            mnuCompanies, "mnuCompany" + std::to_string(i + 1), caption));
        ui::MenuItem* item = companyItems_.back().get();
        item->OnClick = [this, item] { SelectCompanyClick(item->Caption); };
    }
}

void TfrmCorvane::SelectCompanyClick(const std::string& caption) {
    std::string name = caption;
    // The menu may have given the caption an accelerator.
    if (auto amp = name.find('&'); amp != std::string::npos) name.erase(amp, 1);
    if (name == "More...") {
        auto& select = App().CreateForm<TfrmSelectCompany>(static_cast<CompanyShell&>(*this));
        select.ShowModal();
        App().FreeForm(select);
        return;
    }
    std::string folder = ini_->ReadString(Companies, name, "");
    if (!IsRemote() && name == "Sample Data" && (folder.empty() || !HoldsCompanyDatabase(folder))) {
        RunCompanyDatabase(App(), *this, [](TfrmCompanyDatabase& f) { f.SetUpSampleCreator(); });
        return;
    }
    if (OpenCompany(name, folder) && CheckLogin()) {
        EnableMainMenus(true);
        if (CompanyTableEmpty()) RunGettingStarted(name);
    } else {
        EnableMainMenus(false);
    }
}

void TfrmCorvane::NewCompanyClick() {
    if (RunCompanyDatabase(App(), *this, [](TfrmCompanyDatabase&) {}) == ui::mrOK)
        RebuildCompaniesMenu();
}

void TfrmCorvane::OrganizeCompaniesClick() {
    auto& organizer = App().CreateForm<TfrmOrganizeCompanies>(static_cast<CompanyShell&>(*this));
    if (organizer.ShowModal() == ui::mrYes) RebuildCompaniesMenu();
    App().FreeForm(organizer);
}

bool TfrmCorvane::RunWelcome() {
    auto& welcome = App().CreateForm<TfrmWelcome>(static_cast<CompanyShell&>(*this));
    bool ok = welcome.ShowModal() != ui::mrCancel;
    App().FreeForm(welcome);
    return ok;
}

std::string TfrmCorvane::OpenErrorHead(const std::string& name, const std::string& folder) const {
    return name.empty() ? "Error opening database '" + folder + "'...\n"
                        : "Error opening company '" + name + "', database '" + folder + "'...\n";
}

void TfrmCorvane::ErrorBox(const std::string& text, const std::string& title) {
    App().GetDialogs().Show(ui::Message{
        title.empty() ? App().Title : title, text, ui::MsgType::Error, {ui::mbOK}, ui::mbOK});
}

bool TfrmCorvane::OpenCompany(const std::string& name, const std::string& folder) {
    if (SessionActive()) CloseAllForms();
    std::string head = OpenErrorHead(name, folder);
    if (!IsRemote()) {
        if (!std::filesystem::is_directory(folder)) {
            ErrorBox(head + "The specified directory does not exist.");
            return false;
        }
        if (!HoldsCompanyDatabase(folder)) {
            ErrorBox(head + "The specified directory does not contain a database.");
            return false;
        }
    }
    CurrentDatabase = folder;
    Database.SetDirectory(folder);
    if (!OpenCompanyTable(head)) {
        CloseSession();
        return false;
    }
    if (!tblCompany.IsEmpty()) {
        std::string version = tblCompany.FieldByName("ApplicationVersion").AsString();
        if (version != VersionMark) {
            ErrorBox("Database '" + folder +
                     "' was created by a different version...\n\nProgram: " + VersionMark +
                     "  Database: " + version +
                     "\n\nData entered to a previous version must be imported so as to be "
                     "compatible with the new version.\nPlease see readme.txt for instructions.");
            CloseSession();
            return false;
        }
    }
    companyOpened_ = true;
    integrity_->Start(folder);
    SampleDataOpen = name == "Sample Data" ||
                     tblCompany.FieldByName("CompanyName").AsString().starts_with("Sample Data");
    txtCompanyName.Caption = tblCompany.FieldByName("CompanyName").AsString();
    return true;
}

bool TfrmCorvane::OpenCompanyTable(const std::string& head) {
    try {
        Database.Open();
        tblCompany.Open();
        return true;
    } catch (const store::EngineError& e) {
        if (e.ErrorCode() != store::errTableCorrupt) {
            ErrorBox(head + "\n" + e.what());
            return false;
        }
        App().GetDialogs().Show(
            ui::Message{App().Title,
                        head + "\n" + e.what() + "\n\nThe program will now attempt to repair it.",
                        ui::MsgType::Warning,
                        {ui::mbOK},
                        ui::mbOK});
    } catch (const std::exception& e) {
        ErrorBox(head + "\n" + e.what());
        return false;
    }
    // The only repair the program makes by itself: the rest of the system needs the row.
    try {
        if (!Database.Connected()) Database.Open();
        store::RepairTable(Database, "Company");
        tblCompany.Open();
        if (tblCompany.IsEmpty()) {
            AddCompanyRow("Data lost: please re-enter", 1990);
            tblCompany.Refresh();
        }
        return true;
    } catch (const std::exception& e) {
        ErrorBox(head + "\n" + e.what());
        return false;
    }
}

void TfrmCorvane::CloseAllForms() {
    CloseWorkingForms("All forms must be closed before changing to another company");
    CloseSession();
}

void TfrmCorvane::CloseWorkingForms(const std::string& refusal) {
    // Copies of the list: a form may free itself, or another, as it closes.
    std::vector<ui::Form*> forms = App().Forms();
    for (auto it = forms.rbegin(); it != forms.rend(); ++it) {
        const auto& now = App().Forms();
        if (std::find(now.begin(), now.end(), *it) == now.end()) continue;
        if ((*it)->Visible() && !IsKeptForm(**it)) (*it)->Close();
    }
    App().ProcessMessages();
    forms = App().Forms();
    std::vector<ui::Form*> toFree;
    for (auto it = forms.rbegin(); it != forms.rend(); ++it) {
        if (IsKeptForm(**it)) continue;
        if ((*it)->Visible()) throw Exception(refusal);
        if (!SurvivesCompanyChange(**it)) toFree.push_back(*it);
    }
    for (ui::Form* form : toFree)
        App().FreeForm(*form);
}

void TfrmCorvane::CloseSession() {
    integrity_->Stop();
    tblUsers.Close();
    tblCompany.Close();
    dmLookUps.CloseAll();
    if (OnSessionClose) OnSessionClose();
    Database.Close();
    SecurityActive = false;
    CurrentUserName.clear();
    SampleDataOpen = false;
    txtCompanyName.Caption.clear();
}

void TfrmCorvane::CreateCompanyTables(const std::string& folder) {
    store::tables::CreateCompanyDatabase(folder);
}

bool TfrmCorvane::CompanyTableEmpty() {
    if (!tblCompany.Active()) tblCompany.Open();
    return tblCompany.IsEmpty();
}

void TfrmCorvane::RunGettingStarted(const std::string& companyName) {
    const FormFactory* factory = registry_.Find("frmGettingStarted");
    if (!factory) {
        App().ShowMessage("The New Company Wizard is not available in this version of Corvane "
                          "yet. The company '" +
                          (companyName.empty() ? CurrentDatabase : companyName) +
                          "' stays without its company details.");
        return;
    }
    FormContext ctx{App(), Database, this};
    ui::Form& wizard = (*factory)(ctx);
    if (GettingStartedPreset) GettingStartedPreset(wizard, companyName);
    wizard.ShowModal();
    App().FreeForm(wizard);
    tblCompany.Refresh();
    txtCompanyName.Caption =
        tblCompany.IsEmpty() ? std::string() : tblCompany.FieldByName("CompanyName").AsString();
}

void TfrmCorvane::AddCompanyRow(const std::string& name, int fiscalYear) {
    tblCompany.Append();
    tblCompany.FieldByName("CompanyNo").SetAsInteger(1);
    tblCompany.FieldByName("CompanyName").SetAsString(name);
    tblCompany.FieldByName("FiscalYear").SetAsInteger(fiscalYear);
    tblCompany.FieldByName("ApplicationVersion").SetAsString(VersionMark);
    tblCompany.Post();
}

void TfrmCorvane::FillSampleData() {
    if (registry_.SampleDataGenerator) {
        registry_.SampleDataGenerator(Database);
    } else {
        // Without the generator the sample company is only its Company row, so that it opens.
        if (!tblCompany.Active()) tblCompany.Open();
        AddCompanyRow("Sample Data Company", 2017);
    }
    tblCompany.Refresh();
    SampleDataOpen = true;
    txtCompanyName.Caption = tblCompany.FieldByName("CompanyName").AsString();
}

void TfrmCorvane::BackupOnExit() {
    if (IsRemote() || !tblCompany.Active() || tblCompany.IsEmpty()) return;
    if (tblCompany.FieldByName("CompanyName").AsString().empty()) return;
    // The first exit with a named company makes the person decide about backups.
    if (tblCompany.FieldByName("BackupOnExit").IsNull()) {
        if (const FormFactory* factory = registry_.Find("frmBackupOptions")) {
            FormContext ctx{App(), Database, this};
            ui::Form& options = (*factory)(ctx);
            options.ShowModal();
            App().FreeForm(options);
            tblCompany.Refresh();
        }
    }
    if (BackupRunner && !tblCompany.FieldByName("BackupOnExit").IsNull())
        BackupRunner(static_cast<int>(tblCompany.FieldByName("BackupOnExit").AsInteger()));
}

} // namespace corvane::shell
