#pragma once

#include "core/Date.h"
#include "core/Money.h"

#include <cstdint>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace corvane::store {
class Database;
class DataSet;
} // namespace corvane::store

namespace corvane::receivables {

// What an invoice shows of itself above and below its lines, worked out once for the printed
// page and the exported file alike.
struct InvoiceFace {
    std::string Title; // "Invoice" or "Credit Note"
    std::string InvoiceNo, PurchaseOrder, Description, Terms;
    Date InvoiceDate;
    std::vector<std::string> SoldTo; // the name, then the address closed up
    std::vector<std::string> ShipTo; // "Same" when the customer has no ship-to name or address
    bool TimeInvoice = false;
    // "Subtotal", each tax as "<description> @ <rate>%", then "Invoice Amount".
    std::vector<std::pair<std::string, Money>> Totals;
};

// The statement of the invoices to print, with their customers and taxes: the one of
// :ARInvoiceID, or every unprinted one, by number.
std::string InvoiceFaceStatement(bool one);

// The face of the invoice on the current row of that statement's result.
InvoiceFace FaceOf(store::DataSet& row);

// A line as it prints: its quantity, item, description (a time line's "<job> - <task>"), price,
// tax codes and extended amount.
struct InvoiceLineFace {
    std::optional<double> Quantity;
    std::string ItemNo, Description;
    std::optional<Money> UnitPrice, ExtAmount;
    std::string TaxCodes, Notes;
};
// The statement of an invoice's lines, by :ARInvoiceID, in their order.
std::string InvoiceLineStatement();
InvoiceLineFace LineFaceOf(store::DataSet& row);

} // namespace corvane::receivables
