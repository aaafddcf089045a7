#include "shell/companies/TfrmSelectCompany.h"

#include "core/Exception.h"
#include "core/IniFile.h"
#include "shell/companies/CompanyShell.h"
#include "shell/companies/CompanyShortcuts.h"
#include "shell/companies/TfrmCompanyDatabase.h"
#include "ui/Application.h"

namespace corvane::shell {

TfrmSelectCompany::TfrmSelectCompany(ui::Application& app, CompanyShell& shell)
    : Form(app, "frmSelectCompany"), shell_(shell) {
    using namespace ui;
    Caption = "Select Company";
    KeyPreview = true;
    OnKeyDown = [](Key& key, Modifiers) { SwallowAlt(key); };
    lboCompanies.Sorted = true;
    btnOK.Default = true;
    btnCancel.Cancel = true;
    btnCancel.ModalResult = mrCancel;
    SetLayout(Column{editCompany, lboCompanies, ButtonRow{btnOK, btnCancel}});
    OnShow = [this] {
        lboCompanies.SetItems(shell_.Settings().ReadSection(kCompaniesSection));
        search_.ShowItem(lboCompanies.Count() > 0 ? 0 : -1);
    };
    lboCompanies.OnClick = [this] { search_.ShowItem(lboCompanies.ItemIndex()); };
    lboCompanies.OnDblClick = [this] { OpenSelected(); };
    btnOK.OnClick = [this] { OpenSelected(); };
}

void TfrmSelectCompany::OpenSelected() {
    if (lboCompanies.ItemIndex() < 0) throw Exception("No company selected");
    const std::string name = lboCompanies.Text();
    const std::string folder = shell_.Settings().ReadString(kCompaniesSection, name, "");
    if (!shell_.IsRemote() && name == kSampleData && !HoldsCompanyDatabase(folder)) {
        Hide();
        ui::ModalResult made = RunCompanyDatabase(
            App(), shell_, [](TfrmCompanyDatabase& form) { form.SetUpSampleCreator(); });
        SetModalResult(made == ui::mrOK ? ui::mrOK : ui::mrCancel);
        return;
    }
    // The dialog closes whatever the outcome: OK when the company is open.
    bool opened = false;
    try {
        opened = shell_.OpenCompany(name, folder) && shell_.CheckLogin();
        shell_.EnableMainMenus(opened);
        if (opened && shell_.CompanyTableEmpty()) {
            Hide();
            shell_.RunGettingStarted(name);
        }
    } catch (...) {
        SetModalResult(opened ? ui::mrOK : ui::mrCancel);
        throw;
    }
    SetModalResult(opened ? ui::mrOK : ui::mrCancel);
}

} // namespace corvane::shell
