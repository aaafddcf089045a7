#pragma once

#include "receivables/invoices/InvoiceRules.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace corvane::store {
class Database;
}

namespace corvane::receivables {

// The terms line of a printed invoice: "Terms: " and the customer's own words, "C.O.D.",
// "Prepayment", or the discount then "Net <days>"; no net days at all is "Payable on Receipt".
std::string PrintedTerms(const InvoiceTerms& terms);

// "<description> @ <rate>%", or the description alone for a tax whose name holds "Quebec".
std::string TaxDescriptionRate(const std::string& description, const std::string& taxName,
                               double rate);

// An invoice's title: a negative amount is a credit note.
std::string InvoiceTitle(bool negative);

// The invoices a print run takes: one chosen, or every unprinted one, by number.
struct InvoiceToPrint {
    std::int64_t ARInvoiceID = 0;
    std::string InvoiceNo;
    bool Printed = false;
};
std::vector<InvoiceToPrint> UnprintedInvoices(store::Database& db);
std::optional<InvoiceToPrint> InvoiceToPrintOf(store::Database& db, std::int64_t arInvoiceId);

// Marks each invoice printed, each in its own write; returns one sentence for each invoice that
// could not be marked (held by another job, or deleted), in the order of the list.
std::vector<std::string> MarkInvoicesPrinted(store::Database& db,
                                             const std::vector<InvoiceToPrint>& invoices);

} // namespace corvane::receivables
