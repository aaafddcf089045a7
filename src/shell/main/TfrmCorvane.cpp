#include "shell/main/TfrmCorvane.h"

#include "shell/main/HelpTopics.h"
#include "shell/patterns/ListForm.h"

#include "shell/main/BackgroundIntegrity.h"

#include "core/AppFolders.h"
#include "core/Exception.h"
#include "core/FormatSettings.h"
#include "shell/main/FormOpening.h"
#include "shell/main/FormRegistry.h"
#include "shell/main/TfrmAbout.h"
#include "shell/main/ToolbarSets.h"
#include "shell/patterns/EditErrorHook.h"
#include "shell/users/SecurityRule.h"
#include "ui/Application.h"
#include "ui/Caption.h"
#include "ui/Host.h"
#include "ui/Layout.h"

namespace corvane::shell {

namespace {

constexpr const char* General = "General";

// The settings file's switches of the View menu and the defaults they have when missing.
struct ViewSwitch {
    const char* Key;
    bool Default;
};
constexpr ViewSwitch ViewCompanyNameKey{"ViewCompanyName", true};
constexpr ViewSwitch ToolbarTextKey{"ToolbarText", true};
constexpr ViewSwitch ViewConfirmExitKey{"ViewConfirmExit", false};

} // namespace

TfrmCorvane::TfrmCorvane(ui::Application& app, const FormRegistry& registry,
                         std::vector<std::string> commandLine)
    : Form(app, "frmCorvane"), registry_(registry), commandLine_(std::move(commandLine)) {
    using namespace ui;
    App().SetFormService(this);
    integrity_ = std::make_unique<BackgroundIntegrity>(App());
    KeyPreview = true;
    BuildFolders();
    Caption = ApplicationTitle;
    App().Title = ApplicationTitle;
    mnuHelpContents.Caption = std::string(ApplicationTitle) + " &Help";
    mnuAbout.Caption = std::string("&About ") + ApplicationTitle;
    // Dates on screen and in entry are numeric, whatever the system's own short format.
    MakeShortDateNumeric(ProcessFormatSettings());

    ini_ = std::make_unique<IniFile>(UserSettingsFolder / "Corvane.ini");
    if (!ini_->ValueExists(General, "HideDesktopIconsWhenActive"))
        ini_->WriteBool(General, "HideDesktopIconsWhenActive", false);
    if (!ini_->ValueExists("Companies", "Sample Data"))
        ini_->WriteString("Companies", "Sample Data", (CommonDataFolder_ / "Data").string());

    BuildSystemMenus();
    BuildToolbar();
    ReadSettings();

    CurrentDatabase = !commandLine_.empty() && !commandLine_[0].empty()
                          ? commandLine_[0]
                          : ini_->ReadString(General, "Database", "");
    RemoteHost = ini_->ReadString(General, "RemoteHost", "");
    RemoteAddress = ini_->ReadString(General, "RemoteAddress", "");
    RebuildCompaniesMenu();

    AppFolders folders;
    Session.PrivateDir = folders.PrivateFolder().string();

    // Every table a person edits reports a refused edit or delete through the one handler.
    EditErrorHook::Install([this](store::DataSet& ds, store::EngineError& e,
                                  store::DataAction& action) { EditError(ds, e, action); });
    EditErrorHook::Attach(tblCompany);

    ScaleFactor = App().ScaleFactor;
    Left = 0;
    Top = 0;
    PaperIsA4 = App().Desktop().DefaultPaperIsA4();
    CountryName = App().Desktop().CountryName();
    if (CountryName.empty()) CountryName = "unknown";

    mnuNewCompany.OnClick = [this] { NewCompanyClick(); };
    mnuOrganizeCompanies.OnClick = [this] { OrganizeCompaniesClick(); };
    mnuExit.OnClick = [this] { Close(); };
    mnuViewCompanyName.OnClick = [this] {
        ToggleView(mnuViewCompanyName, ViewCompanyNameKey.Key);
        ShowCompanyName();
    };
    mnuConfirmExit.OnClick = [this] { ToggleView(mnuConfirmExit, ViewConfirmExitKey.Key); };
    // Changed in the settings file by hand only.
    mnuToolbarText.Visible = false;
    mnuHelpContents.OnClick = [this] { ShowHelpTopic(App(), "index"); };
    App().OnHelp = [this](ui::Form& form) { ShowHelp(form); };
    mnuTechSupport.OnClick = [this] { App().SingleForm<TfrmAbout>().ShowModal(); };
    mnuAbout.OnClick = [this] { App().SingleForm<TfrmAbout>().ShowModal(); };
    cboSystem.OnChange = [this] {
        SelectedSystem = cboSystem.Text();
        ApplyToolbarSet(SelectedSystem);
    };
    lblNewCompany.OnClick = [this] { NewCompanyClick(); };
    txtCompanyName.OnClick = [this] { App().GetHost().DropDownMenu(mnuCompanies); };

    SetLayout(Column{Row{tlbMain, cboSystem, lblNewCompany}, txtCompanyName});
    OnShow = [this] { FormShow(); };
    OnCloseQuery = [this](bool& canClose) { FormCloseQuery(canClose); };
    OnClose = [this](CloseAction& action) { FormClose(action); };
    EnableMainMenus(false);
    App().SetMainForm(*this);
}

TfrmCorvane::~TfrmCorvane() {
    App().SetFormService(nullptr);
    integrity_.reset();
    EditErrorHook::Install(nullptr);
}

void TfrmCorvane::BuildFolders() {
    AppFolders folders;
    UserSettingsFolder = folders.UserSettingsFolder();
    CommonDataFolder_ = folders.CommonDataFolder();
}

void TfrmCorvane::ReadSettings() {
    mnuViewCompanyName.SetChecked(
        ini_->ReadBool(General, ViewCompanyNameKey.Key, ViewCompanyNameKey.Default));
    mnuToolbarText.SetChecked(ini_->ReadBool(General, ToolbarTextKey.Key, ToolbarTextKey.Default));
    mnuConfirmExit.SetChecked(
        ini_->ReadBool(General, ViewConfirmExitKey.Key, ViewConfirmExitKey.Default));
    tlbMain.ShowCaptions = mnuToolbarText.Checked();
    SelectedSystem = ini_->ReadString(General, "System", "Time Billing");
    int index = -1;
    for (std::size_t i = 0; i < cboSystem.Items.size(); ++i)
        if (cboSystem.Items[i] == SelectedSystem) index = static_cast<int>(i);
    cboSystem.SetItemIndex(index);
    ApplyToolbarSet(SelectedSystem);
    ShowCompanyName();
}

void TfrmCorvane::BuildSystemMenus() {
    ui::MenuItem* systems[] = {
        &mnuAP, &mnuAR, &mnuGL, &mnuInventory, &mnuTimeBilling, &mnuSalesAnalysis, &mnuGeneral};
    // The submenu at a path of captions, made on first use below its system menu.
    auto parentOf = [&](std::string_view path) -> ui::MenuNode& {
        std::vector<std::string_view> parts;
        for (std::size_t pos = 0;;) {
            auto comma = path.find(", ", pos);
            parts.push_back(path.substr(pos, comma - pos));
            if (comma == std::string_view::npos) break;
            pos = comma + 2;
        }
        ui::MenuNode* node = nullptr;
        for (auto* system : systems)
            if (system->Caption == parts[0]) node = system;
        std::string prefix(parts[0]);
        for (std::size_t i = 1; i + 1 < parts.size(); ++i) {
            prefix += ", " + std::string(parts[i]);
            ui::MenuNode* found = nullptr;
            for (auto* item : node->Items())
                if (item->Caption == parts[i]) found = item;
            if (!found) {
                fixedItems_.push_back(std::make_unique<ui::MenuItem>(*node, MenuItemName(prefix),
                                                                     std::string(parts[i])));
                found = fixedItems_.back().get();
            }
            node = found;
        }
        return *node;
    };
    auto lastCaption = [](std::string_view path) {
        auto comma = path.rfind(", ");
        return std::string(comma == std::string_view::npos ? path : path.substr(comma + 2));
    };
    for (const auto& entry : MainMenuEntries()) {
        auto item = std::make_unique<ui::MenuItem>(parentOf(entry.Path), MenuItemName(entry.Path),
                                                   lastCaption(entry.Path));
        const MainMenuEntry* e = &entry;
        if (entry.Form == "frmBackupOptions")
            item->OnClick = [this] { BackupOptionsClick(); };
        else
            item->OnClick = [this, e] { RunMenuEntry(*e); };
        entryItems_.push_back({e, std::move(item)});
    }
    fixedItems_.push_back(
        std::make_unique<ui::MenuItem>(mnuGeneral, "mnuGeneralSettings", "Se&ttings"));
    mnuGeneralSettings = fixedItems_.back().get();
    mnuGeneralSettings->OnClick = [this] { SettingsClick(); };
}

void TfrmCorvane::BuildToolbar() {
    for (const auto& def : ToolbarButtons()) {
        toolButtons_.push_back(std::make_unique<ui::ToolButton>(tlbMain, std::string(def.Name),
                                                                std::string(def.Caption)));
        auto path = def.MenuPath;
        toolButtons_.back()->OnClick = [this, path] {
            if (auto* item = FindMenuItem(path)) item->OnClick();
        };
    }
    toolButtons_.push_back(std::make_unique<ui::ToolButton>(tlbMain, "btnReports", "Reports"));
    btnReports = toolButtons_.back().get();
    btnReports->OnClick = [this] {
        if (const ToolbarSet* set = FindToolbarSet(SelectedSystem))
            if (auto* item = FindMenuItem(set->ReportsMenuPath)) item->OnClick();
    };
    for (const auto& set : ToolbarSets())
        cboSystem.Items.emplace_back(set.System);
}

void TfrmCorvane::ApplyToolbarSet(const std::string& system) {
    const ToolbarSet* set = FindToolbarSet(system);
    for (auto& button : toolButtons_) {
        if (button.get() == btnReports) continue;
        bool shown = false;
        if (set)
            for (auto name : set->Buttons)
                shown = shown || name == button->Name();
        button->OwnVisible = shown;
    }
    btnReports->OwnVisible = true;
}

ui::MenuItem* TfrmCorvane::FindMenuItem(std::string_view path) const {
    std::string wanted = FormRegistry::NormalMenuPath(path);
    // Walks the menu tree, comparing each level's caption as menu paths compare.
    std::function<ui::MenuItem*(const ui::MenuNode&, const std::string&)> walk =
        [&](const ui::MenuNode& node, const std::string& prefix) -> ui::MenuItem* {
        for (auto* item : node.Items()) {
            if (item->IsSeparator()) continue;
            std::string here = FormRegistry::NormalMenuPath(
                prefix.empty() ? item->Caption : prefix + ", " + item->Caption);
            if (here == wanted) return item;
            if (wanted.starts_with(here + ", "))
                if (auto* found =
                        walk(*item, prefix.empty() ? item->Caption : prefix + ", " + item->Caption))
                    return found;
        }
        return nullptr;
    };
    // Paths are written from the File menu's entries on; "File, ..." and the other bar menus
    // are found too.
    if (auto* found = walk(mnuFile, "")) return found;
    return walk(mnuMain, "");
}

std::string TfrmCorvane::FormOfMenu(std::string_view path) const {
    ui::MenuItem* item = FindMenuItem(path);
    for (const auto& e : entryItems_)
        if (e.Item.get() == item) return std::string(e.Entry->Form);
    return {};
}

void TfrmCorvane::EnableMainMenus(bool enabled) {
    for (auto* menu :
         {&mnuAP, &mnuAR, &mnuGL, &mnuInventory, &mnuTimeBilling, &mnuSalesAnalysis, &mnuGeneral})
        menu->Enabled = enabled;
    for (auto& button : toolButtons_)
        button->OwnEnabled = enabled;
    cboSystem.Enabled = true;
}

void TfrmCorvane::ToggleView(ui::MenuItem& item, const char* key) {
    item.SetChecked(!item.Checked());
    ini_->WriteBool(General, key, item.Checked());
}

void TfrmCorvane::ShowCompanyName() {
    txtCompanyName.Visible = mnuViewCompanyName.Checked();
    ClientHeight = 0; // the host fits the bar to what is shown
}

// ----- opening the working forms

void TfrmCorvane::RunMenuEntry(const MainMenuEntry& entry) {
    if (!entry.Right.empty() &&
        !CheckUserAccess(std::string(entry.Right), std::string(entry.Refusal)))
        return;
    OpenEntryForm(entry);
}

void TfrmCorvane::OpenEntryForm(const MainMenuEntry& entry) {
    const FormFactory* factory = registry_.Find(entry.Form);
    if (!factory) {
        App().ShowMessage(ui::PlainCaption(std::string(entry.Path)) +
                          " is not available in this version of Corvane yet.");
        return;
    }
    FormContext ctx{App(), Database, this};
    ui::Form* existing = App().FindForm(entry.Form);
    OpenFormFromMenu(entry, existing, [&]() -> ui::Form& { return (*factory)(ctx); });
}

bool TfrmCorvane::HasForm(std::string_view name) const {
    return registry_.Find(name) != nullptr;
}

ui::Form* TfrmCorvane::OpenForm(std::string_view name) {
    const FormFactory* factory = registry_.Find(name);
    if (!factory) return nullptr;
    FormContext ctx{App(), Database, this};
    return &(*factory)(ctx);
}

bool TfrmCorvane::PrintList(ui::Form& list) {
    const ListPrinter* printer = registry_.FindListPrinter(list.Name());
    auto* shown = dynamic_cast<ListForm*>(&list);
    if (!printer || !shown) return false;
    (*printer)(*shown);
    return true;
}

void TfrmCorvane::SettingsClick() {
    if (!CheckUserAccess("Security")) return;
    std::string text = "Location of settings is:\n" + ini_->Path().string() +
                       "\n\nChanging settings can cause problems.\nDo you want to proceed?";
    if (App().MessageDlg(text, ui::MsgType::Confirmation, {ui::mbYes, ui::mbNo}, ui::mbNo) ==
        ui::mbYes)
        App().Desktop().OpenUrl("file://" + ini_->Path().string());
}

void TfrmCorvane::BackupOptionsClick() {
    // The backup options speak of the company by name, so the name comes first.
    if (tblCompany.Active() && tblCompany.FieldByName("CompanyName").AsString().empty()) {
        if (App().MessageDlg("\"Your Company\" info must be entered before you can set backup "
                             "options.\n\nWould you like to enter it now?",
                             ui::MsgType::Confirmation, {ui::mbYes, ui::mbNo}) == ui::mbYes) {
            if (auto* item = FindMenuItem("General, Your Company")) item->OnClick();
        }
        return;
    }
    for (const auto& e : entryItems_)
        if (e.Entry->Form == "frmBackupOptions") OpenEntryForm(*e.Entry);
}

// ----- start and close

void TfrmCorvane::FormShow() {
    auto freeSplash = [this] {
        if (ui::Form* splash = App().FindForm("frmSplash")) {
            splash->Hide();
            App().FreeForm(*splash);
        }
    };
    // New Company, Organize Companies, the separator and the one company there always is.
    bool firstRun = mnuCompanies.Items().size() == 4 || CurrentDatabase.empty();
    if (firstRun) {
        freeSplash();
        if (!RunWelcome()) {
            Terminate();
            return;
        }
    } else {
        bool opened = OpenCompany("", CurrentDatabase);
        freeSplash();
        if (!opened || !CheckLogin()) {
            EnableMainMenus(false);
            return;
        }
        EnableMainMenus(true);
        if (CompanyTableEmpty()) RunGettingStarted("");
    }
    if (!RemoteHost.empty() || !RemoteAddress.empty())
        App().ShowMessage("The server mode is not available in this version: Corvane works on "
                          "company folders on this computer.");
    lblNewCompany.Visible = SampleDataOpen && ini_->ReadSection("Companies").size() == 1;
}

void TfrmCorvane::FormCloseQuery(bool& canClose) {
    if (closingWithoutQuery_) return;
    if (ui::Form* users = App().FindForm("frmUsers"); users && users->Visible()) {
        if (!UsersKeepSecurity(Database)) {
            App().MessageDlg(SecurityExitRefusal, ui::MsgType::Warning, {ui::mbOK});
            canClose = false;
            return;
        }
    }
    CloseWorkingForms("All unsaved changes must be resolved before closing Corvane");
}

void TfrmCorvane::FormClose(ui::CloseAction& action) {
    if (!closingWithoutQuery_ && mnuConfirmExit.Checked() &&
        App().MessageDlg("Close application?", ui::MsgType::Confirmation, {ui::mbYes, ui::mbNo}) !=
            ui::mbYes) {
        action = ui::CloseAction::None;
        return;
    }
    if (companyOpened_) ini_->WriteString(General, "Database", CurrentDatabase);
    ini_->WriteString(General, "System", SelectedSystem);
    BackupOnExit();
    Terminate();
}

void TfrmCorvane::Terminate() {
    terminated_ = true;
    if (Visible()) {
        closingWithoutQuery_ = true;
        Hide();
    }
    if (OnTerminate) OnTerminate();
}

bool TfrmCorvane::IsKeptForm(const ui::Form& form) const {
    for (const char* name : {"frmCorvane", "frmCompanyDatabase", "frmOrganizeCompanies",
                             "frmSelectCompany", "frmWelcome"})
        if (form.Name() == name) return true;
    // Previews keep their pages over a company change; the second one open is "frmPreview_1".
    return form.Name().starts_with("frmPreview");
}

bool TfrmCorvane::SurvivesCompanyChange(const ui::Form& form) const {
    for (const char* name : {"frmCalendar", "frmDialer", "frmPreview", "frmSplash"})
        if (form.Name() == name) return true;
    return false;
}

void TfrmCorvane::ShowHelp(const ui::Form& form) {
    ShowHelpTopic(App(), &form == this ? "index" : HelpTopicOf(form.Name()));
}

} // namespace corvane::shell
