#pragma once

#include "store/Query.h"
#include "ui/Form.h"
#include "ui/Grid.h"
#include "ui/Label.h"

#include <cstdint>
#include <string>

namespace corvane::receivables {

// The payments applied to one invoice, read-only, above the other windows: date, reference, how
// paid, the payment's amount and what of it went to this invoice. A double click shows the
// payment in its own form.
class TfrmARInvoicePayments : public ui::Form {
public:
    TfrmARInvoicePayments(ui::Application& app, store::Database& db);

    store::Query qryPayments;
    ui::Label lblHint{*this, "lblHint", "Double-click to show payment"};
    ui::Grid grdPayments{*this, "grdPayments", qryPayments};

    // Reads the payments of the invoice and names it in the caption.
    void ShowInvoice(std::int64_t arInvoiceId, const std::string& invoiceNo);
    // The payment of the row the grid stands on, in the payment form.
    void OpenPayment();

private:
    store::Database& db_;
};

} // namespace corvane::receivables
