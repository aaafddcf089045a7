#include "receivables/invoices/print/TfrmARInvoiceSetup.h"

#include "core/Exception.h"
#include "receivables/invoices/print/BitmapImage.h"
#include "ui/Application.h"
#include "ui/DesktopServices.h"
#include "ui/Layout.h"

#include <fstream>
#include <sstream>

namespace corvane::receivables {

TfrmARInvoiceSetup::TfrmARInvoiceSetup(ui::Application& app, store::Database& db)
    : Form(app, "frmARInvoiceSetup"), tblCompany(db, "Company"), tblLogo(db, "Logo") {
    using namespace ui;
    Caption = "Invoice Print Setup";
    tblCompany.Name = "tblCompany";
    tblLogo.Name = "tblLogo";
    tblCompany.Open();
    tblLogo.Open();
    if (tblCompany.IsEmpty()) throw Exception("The company has no settings row");
    SetLayout(Column{
        rgpStyle,
        FormRow{"Copies:", editCopies},
        FormRow{"Message:", memMessage},
        Row{lblLogo, Stretch{}, btnLoadLogo, btnClearLogo},
        ButtonRow{btnOK, btnCancel},
    });
    btnOK.Default = true;
    btnCancel.Cancel = true;
    btnLoadLogo.OnClick = [this] {
        auto path = App().Desktop().PickFile("Logo", "", "Bitmaps (*.bmp)|*.bmp");
        if (path) LoadLogo(*path);
    };
    btnClearLogo.OnClick = [this] { ClearLogo(); };
    btnOK.OnClick = [this] { Save(); };
    btnCancel.OnClick = [this] {
        tblCompany.Cancel();
        SetModalResult(ui::mrCancel);
    };
    OnClose = [](ui::CloseAction& action) { action = ui::CloseAction::Free; };
    ShowLogoState();
}

void TfrmARInvoiceSetup::ShowLogoState() {
    const bool has = !tblLogo.IsEmpty() && !tblLogo.FieldByName("Logo").IsNull();
    lblLogo.Caption = has ? "Logo: loaded" : "Logo: none";
    btnClearLogo.Enabled = has;
}

void TfrmARInvoiceSetup::LoadLogo(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    if (!in) throw Exception("Unable to open '" + path + "'");
    std::ostringstream bytes;
    bytes << in.rdbuf();
    if (!DecodeBitmap(bytes.str()))
        throw Exception("'" + path + "' is not a bitmap of 8, 24 or 32 bits without compression");
    if (tblLogo.IsEmpty())
        tblLogo.Append();
    else
        tblLogo.Edit();
    tblLogo.FieldByName("Logo").SetValue(store::Value(store::Blob{bytes.str()}));
    tblLogo.Post();
    ShowLogoState();
}

void TfrmARInvoiceSetup::ClearLogo() {
    if (tblLogo.IsEmpty()) return;
    tblLogo.Edit();
    tblLogo.FieldByName("Logo").Clear();
    tblLogo.Post();
    ShowLogoState();
}

void TfrmARInvoiceSetup::Save() {
    CommitPendingEdit();
    if (tblCompany.State() == store::DataSetState::Edit) {
        const store::Field& copies = tblCompany.FieldByName("ARInvoiceCopies");
        if (!copies.IsNull() && (copies.AsInteger() < 1 || copies.AsInteger() > 99)) {
            FocusControl(editCopies);
            throw Exception("Copies must be between 1 and 99");
        }
        tblCompany.Post();
    }
    SetModalResult(ui::mrOK);
}

} // namespace corvane::receivables
