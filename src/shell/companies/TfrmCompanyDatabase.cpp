#include "shell/companies/TfrmCompanyDatabase.h"

#include "core/Exception.h"
#include "core/IniFile.h"
#include "shell/companies/CompanyShell.h"
#include "shell/companies/CompanyShortcuts.h"
#include "shell/companies/TfrmOrganizeCompanies.h"
#include "store/tables/CompanyDatabase.h"
#include "ui/Application.h"

#include <filesystem>

namespace corvane::shell {

namespace {

const char* const kMovedDatabaseNote =
    "This option will not move or create a database, but it can be used to update a company "
    "shortcut after a database has been moved.";

} // namespace

TfrmCompanyDatabase::TfrmCompanyDatabase(ui::Application& app, CompanyShell& shell)
    : Form(app, "frmCompanyDatabase"), shell_(shell) {
    using namespace ui;
    Caption = std::string(kAddNewCompany);
    KeyPreview = true;
    OnKeyDown = [](Key& key, Modifiers) { SwallowAlt(key); };
    editCompanyName.MaxLength = 40;
    lblCompanyName.FocusControl = &editCompanyName;
    lblDatabase.FocusControl = &editDatabase;
    btnOK.Default = true;
    btnCancel.Cancel = true;
    btnCancel.ModalResult = mrCancel;
    SetLayout(Column{
        FormRow{lblCompanyName, editCompanyName},
        FormRow{lblDatabase, Row{editDatabase, btnBrowse}},
        FormRow{"", chkShared},
        ButtonRow{btnOK, btnCancel},
    });
    OnShow = [this] { FormShow(); };
    btnBrowse.OnClick = [this] { Browse(); };
    btnOK.OnClick = [this] { Save(); };
}

void TfrmCompanyDatabase::LockSampleName() {
    editCompanyName.ReadOnly = true;
    editCompanyName.TabStop = false;
}

void TfrmCompanyDatabase::SetUpSampleCreator() {
    Caption = std::string(kCreateSampleData);
    editCompanyName.SetText(std::string(kSampleData));
    LockSampleName();
    editDatabase.SetText(SampleDataFolder(shell_.CommonDataFolder()));
}

void TfrmCompanyDatabase::FormShow() {
    if (shell_.IsRemote()) {
        btnBrowse.Visible = false;
        btnBrowse.Enabled = false;
        lblDatabase.Caption = "Database &Name:";
        chkShared.Visible = false;
        return;
    }
    // Only a company made here can be shared from the start.
    chkShared.Visible = Caption == kAddNewCompany;
    lblDatabase.Caption = "Database &Folder:";
    if (Caption == kAddNewCompany)
        editDatabase.SetText(FirstFreeDataFolder(shell_.CommonDataFolder()));
}

void TfrmCompanyDatabase::Browse() {
    if (auto folder = App().Desktop().PickFolder("Select a folder", editDatabase.Text()))
        editDatabase.SetText(*folder);
}

void TfrmCompanyDatabase::Refuse(ui::Edit& field, const std::string& message) {
    if (field.CanFocus()) field.SetFocus();
    throw Exception(message);
}

bool TfrmCompanyDatabase::ServerHasDatabase(const std::string&) {
    // This build has no database server client: a session is never remote, and a name can never
    // be confirmed on a server. The administrative listing belongs here once there is a client.
    return false;
}

void TfrmCompanyDatabase::CheckServerHasDatabase(const std::string& name) {
    if (!ServerHasDatabase(name))
        Refuse(editDatabase, "The specified database does not exist on the server.\n\nThe "
                             "database name must previously have been added via the Server "
                             "Administration Utility.");
}

void TfrmCompanyDatabase::Save() {
    const std::string name = editCompanyName.Text();
    const std::string folder = editDatabase.Text();
    const bool remote = shell_.IsRemote();
    const bool editing = Caption == kEditCompany;
    const bool adding = Caption == kAddNewCompany;

    if (name.empty() && folder.empty()) {
        SetModalResult(ui::mrCancel);
        return;
    }
    if (name.empty()) Refuse(editCompanyName, "Company Name must be entered");
    // The name becomes a menu entry, where "&" would turn into an accelerator and no longer match
    // its shortcut.
    if (name.find('&') != std::string::npos)
        Refuse(editCompanyName, "Company Name must not contain character '&'.");
    if (UpperCase(name) == UpperCase(kSampleData) && !editCompanyName.ReadOnly)
        Refuse(editCompanyName,
               "Company Name 'Sample Data' is reserved for system generated sample data");
    if (folder.empty())
        Refuse(editDatabase,
               remote ? "Database Name must be entered" : "Database Folder must be entered");
    if (!remote && folder.size() < 4) Refuse(editDatabase, "Database Folder invalid");

    std::error_code error;
    if (editing) {
        if (remote) {
            CheckServerHasDatabase(folder);
        } else if (!std::filesystem::is_directory(folder, error)) {
            Refuse(editDatabase, std::string("The specified folder does not exist. The folder "
                                             "must exist and contain an existing database.\n\n") +
                                     kMovedDatabaseNote);
        } else if (!HoldsCompanyDatabase(folder)) {
            Refuse(editDatabase,
                   std::string("The specified folder does not contain an existing database.\n\n") +
                       kMovedDatabaseNote);
        }
    } else if (remote) {
        CheckServerHasDatabase(folder);
    } else if (HoldsCompanyDatabase(folder)) {
        // A second workstation adds its own shortcut to a shared database this way.
        if (App().MessageDlg("The specified folder already contains a database. Create a company "
                             "shortcut to it?\n\nThis would be expected if setting up multiple "
                             "workstations to access a shared database on a network.",
                             ui::MsgType::Confirmation, {ui::mbYes, ui::mbNo}) != ui::mbYes)
            return;
    } else if (!std::filesystem::exists(folder, error)) {
        std::filesystem::create_directories(folder, error);
    }
    if (!remote && chkShared.Visible && chkShared.Checked() && !HoldsCompanyDatabase(folder))
        store::tables::MarkFolderShared(folder);

    IniFile& settings = shell_.Settings();
    if (name != kSampleData && !editing && settings.ValueExists(kCompaniesSection, name))
        Refuse(editCompanyName, "Company Name '" + name + "' already exists");

    auto* organiser = dynamic_cast<TfrmOrganizeCompanies*>(App().FindForm("frmOrganizeCompanies"));
    if (editing && organiser && !organiser->SelectedName().empty())
        settings.DeleteKey(kCompaniesSection, organiser->SelectedName());
    settings.WriteString(kCompaniesSection, name, folder);

    // The shortcut is written: whatever happens while the database is made or opened, the dialog
    // has done its part and closes as accepted.
    try {
        ShowInOrganiser(name);
        if (adding)
            OpenNewCompany(name, folder);
        else if (name == kSampleData)
            MakeSampleCompany(name, folder);
    } catch (...) {
        SetModalResult(ui::mrOK);
        throw;
    }
    SetModalResult(ui::mrOK);
}

void TfrmCompanyDatabase::ShowInOrganiser(const std::string& name) {
    auto* organiser = dynamic_cast<TfrmOrganizeCompanies*>(App().FindForm("frmOrganizeCompanies"));
    if (organiser) organiser->ShowSavedCompany(name, Caption != kAddNewCompany);
}

void TfrmCompanyDatabase::OpenNewCompany(const std::string& name, const std::string& folder) {
    btnOK.Enabled = false;
    btnCancel.Enabled = false;
    // On a server the database was confirmed above; it is made by the server's own tools.
    if (!shell_.IsRemote() && !HoldsCompanyDatabase(folder)) {
        if (shell_.SessionActive()) shell_.CloseAllForms();
        shell_.CreateCompanyTables(folder);
    }
    if (shell_.OpenCompany(name, folder) && shell_.CheckLogin()) {
        shell_.EnableMainMenus(true);
        if (shell_.CompanyTableEmpty()) {
            Hide();
            shell_.RunGettingStarted(name);
        }
    } else {
        shell_.EnableMainMenus(false);
    }
}

void TfrmCompanyDatabase::MakeSampleCompany(const std::string& name, const std::string& folder) {
    if (shell_.IsRemote()) {
        // A server database was confirmed above and is opened as it stands.
        if (shell_.SessionActive()) shell_.CloseAllForms();
        if (shell_.OpenCompany(name, folder)) shell_.EnableMainMenus(true);
        return;
    }
    if (HoldsCompanyDatabase(folder)) return;
    btnOK.Enabled = false;
    btnCancel.Enabled = false;
    if (shell_.SessionActive()) shell_.CloseAllForms();
    shell_.CreateCompanyTables(folder);
    // The sample company has no users, so no login follows.
    if (!shell_.OpenCompany(name, folder)) {
        shell_.EnableMainMenus(false);
        return;
    }
    shell_.EnableMainMenus(true);
    shell_.FillSampleData();
}

ui::ModalResult RunCompanyDatabase(ui::Application& app, CompanyShell& shell,
                                   const std::function<void(TfrmCompanyDatabase&)>& setUp) {
    auto& form = app.CreateForm<TfrmCompanyDatabase>(shell);
    struct Free {
        ui::Application& app;
        TfrmCompanyDatabase& form;
        ~Free() { app.FreeForm(form); }
    } free{app, form};
    if (setUp) setUp(form);
    return form.ShowModal();
}

} // namespace corvane::shell
