#pragma once

#include "store/Table.h"
#include "ui/Button.h"
#include "ui/ComboBox.h"
#include "ui/DBLookupComboBox.h"
#include "ui/Edit.h"
#include "ui/Form.h"
#include "ui/Label.h"

namespace corvane::store {
class Database;
}

namespace corvane::receivables {

class TfrmARInvoice;

// "POS Payment": the payment taken with the invoice at the point of sale, in the customer's
// currency: amount, how it was paid, a reference and the bank it goes to. OK hands it to the
// invoice, which keeps it until posting turns it into a payment.
class TfrmARInvoicePOSPmt : public ui::Form {
public:
    TfrmARInvoicePOSPmt(ui::Application& app, store::Database& db, TfrmARInvoice& invoice);

    store::Table tblBank;
    ui::Label lblCurrency{*this, "lblCurrency"};
    ui::Edit editAmount{*this, "editAmount"};
    ui::Button btnAll{*this, "btnAll", "&All"};
    ui::ComboBox cboPaidBy{*this, "cboPaidBy"};
    ui::Edit editReference{*this, "editReference"};
    ui::DBLookupComboBox cboBank{*this, "cboBank", tblBank, "BankID", "BankName"};
    ui::Button btnOK{*this, "btnOK", "OK"};
    ui::Button btnCancel{*this, "btnCancel", "Cancel"};

private:
    void Accept();

    store::Database& db_;
    TfrmARInvoice& invoice_;
    bool checkWording_ = false;
};

} // namespace corvane::receivables
