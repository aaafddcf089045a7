#pragma once

#include "receivables/invoices/print/InvoicePrintRules.h"
#include "ui/Button.h"
#include "ui/Form.h"
#include "ui/Label.h"

#include <cstdint>
#include <optional>
#include <vector>

namespace corvane::store {
class Database;
}

namespace corvane::receivables {

// "Print AR Invoices": prints every unprinted invoice, or the one chosen, in the company's style
// and number of copies, and once the person says they printed well marks them Printed, which
// lets them be posted. A reprint marks nothing.
class TfrmARInvoicesPrint : public ui::Form {
public:
    TfrmARInvoicesPrint(ui::Application& app, store::Database& db,
                        std::optional<std::int64_t> arInvoiceId);

    ui::Label lblCount{*this, "lblCount"};
    ui::Button btnPrint{*this, "btnPrint", "&Print"};
    ui::Button btnCancel{*this, "btnCancel", "Cancel"};

    bool Reprint() const { return reprint_; }
    void Print();

private:
    store::Database& db_;
    std::optional<std::int64_t> id_;
    std::vector<InvoiceToPrint> invoices_;
    bool reprint_ = false;
};

} // namespace corvane::receivables
