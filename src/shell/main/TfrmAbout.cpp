#include "shell/main/TfrmAbout.h"

#include "shell/main/TfrmCorvane.h"
#include "ui/Layout.h"

namespace corvane::shell {

TfrmAbout::TfrmAbout(ui::Application& app) : Form(app, "frmAbout") {
    using namespace ui;
    Caption = std::string("About ") + TfrmCorvane::ApplicationTitle;
    KeyPreview = true;
    lblProduct.Caption = TfrmCorvane::ApplicationTitle;
    lblVersion.Caption = std::string("Version ") + TfrmCorvane::VersionMark;
    lblCopyright.Caption = "Copyright (c) 2017-2026 Halvern Works";
    btnOK.Default = true;
    btnOK.Cancel = true;
    btnOK.ModalResult = mrOK;
    SetLayout(Column{lblProduct, lblVersion, lblCopyright, ButtonRow{btnOK}});
    OnKeyDown = [](Key& key, Modifiers) { SwallowAlt(key); };
}

TfrmSplash::TfrmSplash(ui::Application& app) : Form(app, "frmSplash") {
    using namespace ui;
    Caption = TfrmCorvane::ApplicationTitle;
    lblProduct.Caption =
        std::string(TfrmCorvane::ApplicationTitle) + " " + TfrmCorvane::VersionMark;
    SetLayout(Column{lblProduct, lblLoading});
}

} // namespace corvane::shell
