#pragma once

namespace corvane::receivables {

// What the form that stands ahead of a new invoice tells the invoice list after OK: a manual
// invoice is then opened by the list; invoices made from time are already there.
class NewInvoiceChoice {
public:
    virtual ~NewInvoiceChoice() = default;
    virtual bool ManualChosen() const = 0;
};

} // namespace corvane::receivables
