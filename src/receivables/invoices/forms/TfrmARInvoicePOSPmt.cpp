#include "receivables/invoices/forms/TfrmARInvoicePOSPmt.h"

#include "core/DisplayFormat.h"
#include "core/Exception.h"
#include "receivables/invoices/InvoiceRules.h"
#include "receivables/invoices/forms/TfrmARInvoice.h"
#include "receivables/posting/InvoicePosting.h"
#include "ui/Application.h"
#include "ui/DesktopServices.h"
#include "ui/Layout.h"

namespace corvane::receivables {

TfrmARInvoicePOSPmt::TfrmARInvoicePOSPmt(ui::Application& app, store::Database& db,
                                         TfrmARInvoice& invoice)
    : Form(app, "frmARInvoicePOSPmt"), tblBank(db, "Bank"), db_(db), invoice_(invoice) {
    using namespace ui;
    Caption = "POS Payment";
    tblBank.SetIndexName("BankName1");
    tblBank.Open();
    checkWording_ = App().Desktop().CountryName() == "United States";
    for (int code = 1; code <= 7; ++code)
        cboPaidBy.Items.push_back(PaidByText(code, checkWording_));
    const InvoiceHeader h = invoice_.Header();
    if (h.CurrencyID) {
        store::Table currency(db_, "Currency");
        currency.ReadOnly = true;
        currency.Open();
        store::Value name =
            currency.Lookup("CurrencyID", {store::Value(*h.CurrencyID)}, "CurrencyName");
        lblCurrency.Caption = name.IsNull() ? "" : name.Str();
    }
    editAmount.AlignRight = true;
    editAmount.SetText(
        h.Payment.Amount.IsZero() ? "" : FormatFloat("0.00", h.Payment.Amount.ToDouble()));
    if (h.Payment.PaidBy) cboPaidBy.SetItemIndex(*h.Payment.PaidBy - 1);
    editReference.SetText(h.Payment.Reference);
    if (h.Payment.BankID) cboBank.SetKeyValue(store::Value(*h.Payment.BankID));
    btnOK.Default = true;
    btnCancel.Cancel = true;
    btnCancel.ModalResult = mrCancel;
    SetLayout(Column{FormRow{"Currency:", lblCurrency}, Row{FormRow{"Amount:", editAmount}, btnAll},
                     FormRow{"Paid by:", cboPaidBy}, FormRow{"Reference:", editReference},
                     FormRow{"Bank:", cboBank}, ButtonRow{btnOK, btnCancel}});
    auto fullAmount = [this] {
        editAmount.SetText(FormatFloat("0.00", invoice_.Header().InvoiceAmount.ToDouble()));
    };
    btnAll.OnClick = fullAmount;
    cboPaidBy.OnChange = [this, fullAmount] {
        const auto amount = Money::Parse(editAmount.Text());
        if (!amount || amount->IsZero()) fullAmount();
    };
    btnOK.OnClick = [this] { Accept(); };
    OnClose = [](ui::CloseAction& action) { action = ui::CloseAction::Free; };
}

void TfrmARInvoicePOSPmt::Accept() {
    PointOfSalePayment p;
    const std::string typed = editAmount.Text();
    const auto amount = typed.empty() ? std::optional<Money>(Money()) : Money::Parse(typed);
    if (!amount) throw Exception("'" + typed + "' is not a valid amount");
    p.Amount = *amount;
    if (cboPaidBy.ItemIndex() >= 0) p.PaidBy = cboPaidBy.ItemIndex() + 1;
    p.Reference = editReference.Text();
    const store::Value bank = cboBank.KeyValue();
    if (!bank.IsNull()) p.BankID = bank.Int();
    bool bankExists = false;
    std::optional<std::int64_t> bankCurrency;
    if (p.BankID) {
        std::vector<store::Value> found =
            tblBank.LookupValues("BankID", {store::Value(*p.BankID)}, "BankID;CurrencyID");
        bankExists = !found.empty() && !found[0].IsNull();
        if (bankExists && !found[1].IsNull()) bankCurrency = found[1].Int();
    }
    const std::string refusal = CheckPointOfSalePayment(
        p, bankExists, bankCurrency, invoice_.Header().CurrencyID, checkWording_);
    if (!refusal.empty()) throw Exception(refusal);
    if (p.Amount.IsZero()) p = {};
    invoice_.SetPayment(p);
    SetModalResult(ui::mrOK);
}

} // namespace corvane::receivables
