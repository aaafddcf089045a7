#include "shell/companies/TfrmOrganizeCompanies.h"

#include "core/IniFile.h"
#include "shell/companies/CompanyShell.h"
#include "shell/companies/CompanyShortcuts.h"
#include "shell/companies/TfrmCompanyDatabase.h"
#include "ui/Application.h"

namespace corvane::shell {

TfrmOrganizeCompanies::TfrmOrganizeCompanies(ui::Application& app, CompanyShell& shell)
    : Form(app, "frmOrganizeCompanies"), shell_(shell) {
    using namespace ui;
    Caption = "Organize Companies";
    KeyPreview = true;
    OnKeyDown = [](Key& key, Modifiers) { SwallowAlt(key); };
    lboCompanies.Sorted = true;
    btnClose.Cancel = true;
    SetLayout(Column{
        Row{Column{editCompany, lboCompanies}, Column{btnEdit, btnDelete, btnNew, Stretch{}}},
        ButtonRow{btnClose},
    });
    OnShow = [this] { FormShow(); };
    lboCompanies.OnClick = [this] { search_.ShowItem(lboCompanies.ItemIndex()); };
    lboCompanies.OnDblClick = [this] { EditCompany(); };
    btnEdit.OnClick = [this] { EditCompany(); };
    btnDelete.OnClick = [this] { DeleteCompany(); };
    btnNew.OnClick = [this] { NewCompany(); };
    btnClose.OnClick = [this] { SetModalResult(changed_ ? mrYes : mrNo); };
}

void TfrmOrganizeCompanies::FormShow() {
    changed_ = false;
    lboCompanies.SetItems(shell_.Settings().ReadSection(kCompaniesSection));
    search_.ShowItem(lboCompanies.Count() > 0 ? 0 : -1);
}

void TfrmOrganizeCompanies::UpdateButtons() {
    bool any = lboCompanies.ItemIndex() >= 0;
    btnEdit.Enabled = any;
    // Only the shortcut would go, but the sample company is the one entry every start expects.
    btnDelete.Enabled = any && !IsSampleDataName(lboCompanies.Text());
}

void TfrmOrganizeCompanies::EditCompany() {
    if (lboCompanies.ItemIndex() < 0) return;
    const std::string name = lboCompanies.Text();
    const std::string folder = shell_.Settings().ReadString(kCompaniesSection, name, "");
    bool saved = RunCompanyDatabase(App(), shell_, [&](TfrmCompanyDatabase& form) {
                     form.Caption = std::string(TfrmCompanyDatabase::kEditCompany);
                     form.editCompanyName.SetText(name);
                     form.editDatabase.SetText(folder);
                     if (!IsSampleDataName(name)) return;
                     form.LockSampleName();
                     if (!shell_.IsRemote() && !HoldsCompanyDatabase(folder)) {
                         form.Caption = std::string(TfrmCompanyDatabase::kCreateSampleData);
                         form.editDatabase.SetText(SampleDataFolder(shell_.CommonDataFolder()));
                     }
                 }) == ui::mrOK;
    if (saved) changed_ = true;
    UpdateButtons();
}

void TfrmOrganizeCompanies::DeleteCompany() {
    int index = lboCompanies.ItemIndex();
    if (index < 0 || IsSampleDataName(lboCompanies.Text())) return;
    const std::string name = lboCompanies.Text();
    if (App().MessageDlg("Delete shortcut to company '" + name + "'?", ui::MsgType::Confirmation,
                         {ui::mbOK, ui::mbCancel}) != ui::mbOK)
        return;
    // The folder and its database stay where they are: the entry is only a shortcut.
    shell_.Settings().DeleteKey(kCompaniesSection, name);
    lboCompanies.Delete(index);
    changed_ = true;
    search_.ShowItem(std::min(index, lboCompanies.Count() - 1));
}

void TfrmOrganizeCompanies::NewCompany() {
    if (RunCompanyDatabase(App(), shell_, [](TfrmCompanyDatabase& form) {
            form.Caption = std::string(TfrmCompanyDatabase::kAddNewCompany);
        }) == ui::mrOK)
        changed_ = true;
    UpdateButtons();
}

void TfrmOrganizeCompanies::ShowSavedCompany(const std::string& name, bool replaceSelected) {
    if (replaceSelected) lboCompanies.Delete(lboCompanies.ItemIndex());
    search_.ShowItem(lboCompanies.Add(name));
}

} // namespace corvane::shell
