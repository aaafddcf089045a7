#include "shell/companies/TfrmWelcome.h"

#include "core/IniFile.h"
#include "shell/companies/CompanyShell.h"
#include "shell/companies/CompanyShortcuts.h"
#include "shell/companies/TfrmCompanyDatabase.h"
#include "ui/Application.h"

namespace corvane::shell {

TfrmWelcome::TfrmWelcome(ui::Application& app, CompanyShell& shell)
    : Form(app, "frmWelcome"), shell_(shell) {
    using namespace ui;
    Caption = "Welcome";
    KeyPreview = true;
    OnKeyDown = [](Key& key, Modifiers) { SwallowAlt(key); };
    btnOK.Default = true;
    btnCancel.Cancel = true;
    btnCancel.ModalResult = mrCancel;
    SetLayout(Column{lblWelcome, optChoice, ButtonRow{btnOK, btnCancel}});
    OnShow = [this] { optChoice.SetItemIndex(kSampleChoice); };
    btnOK.OnClick = [this] { Proceed(); };
}

void TfrmWelcome::Proceed() {
    std::string sampleFolder = shell_.Settings().ReadString(
        kCompaniesSection, kSampleData, SampleDataFolder(shell_.CommonDataFolder()));
    if (optChoice.ItemIndex() == kMyCompanyChoice)
        SetUpOwnCompany(sampleFolder);
    else
        OpenSample(sampleFolder);
}

void TfrmWelcome::OpenSample(const std::string& folder) {
    if (HoldsCompanyDatabase(folder)) {
        // A failure has been told by the shell; the user may choose again.
        if (!shell_.OpenCompany(std::string(kSampleData), folder) || !shell_.CheckLogin()) return;
        shell_.EnableMainMenus(true);
        SetModalResult(ui::mrOK);
        return;
    }
    if (RunCompanyDatabase(App(), shell_, [](TfrmCompanyDatabase& form) {
            form.SetUpSampleCreator();
        }) == ui::mrOK)
        SetModalResult(ui::mrOK);
}

void TfrmWelcome::SetUpOwnCompany(const std::string& sampleFolder) {
    if (!HoldsCompanyDatabase(sampleFolder)) {
        App().MessageDlg("Please choose Sample Data before setting up your live data.\n\nYou can "
                         "set up your own company next time or from the menu.\nThen you can "
                         "switch between your live data and sample data for experimenting and "
                         "learning.",
                         ui::MsgType::Information, {ui::mbOK});
        optChoice.SetItemIndex(kSampleChoice);
        return;
    }
    if (RunCompanyDatabase(App(), shell_, [](TfrmCompanyDatabase& form) {
            form.Caption = std::string(TfrmCompanyDatabase::kAddNewCompany);
        }) != ui::mrOK)
        return;
    shell_.RebuildCompaniesMenu();
    SetModalResult(ui::mrOK);
}

} // namespace corvane::shell
