#pragma once

#include "store/Table.h"
#include "ui/Button.h"
#include "ui/DBEdit.h"
#include "ui/DBMemo.h"
#include "ui/DBRadioGroup.h"
#include "ui/Form.h"
#include "ui/Label.h"

namespace corvane::receivables {

// "Invoice Print Setup": the company's invoice style, number of copies and message on every
// invoice, and the logo the Professional style prints, loaded from a bitmap or cleared.
class TfrmARInvoiceSetup : public ui::Form {
public:
    TfrmARInvoiceSetup(ui::Application& app, store::Database& db);

    store::Table tblCompany, tblLogo;

    ui::DBRadioGroup rgpStyle{*this,      "rgpStyle",       "Style",   {"Classic", "Professional"},
                              tblCompany, "ARInvoiceStyle", {"0", "1"}};
    ui::DBEdit editCopies{*this, "editCopies", tblCompany, "ARInvoiceCopies"};
    ui::DBMemo memMessage{*this, "memMessage", tblCompany, "ARInvoiceMessage"};
    ui::Label lblLogo{*this, "lblLogo"};
    ui::Button btnLoadLogo{*this, "btnLoadLogo", "&Load Logo..."};
    ui::Button btnClearLogo{*this, "btnClearLogo", "C&lear Logo"};
    ui::Button btnOK{*this, "btnOK", "OK"};
    ui::Button btnCancel{*this, "btnCancel", "Cancel"};

    // The logo from a bitmap file; a file that is no bitmap is refused and nothing changes.
    void LoadLogo(const std::string& path);
    void ClearLogo();

private:
    void ShowLogoState();
    void Save();
};

} // namespace corvane::receivables
