#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace corvane::store {
class Database;
}

namespace corvane::receivables {

// The printed invoice as lines of cells: "Sold to" and "Ship to" with their addresses, the
// number, date, purchase order and description, the column heads and a row for each line, then
// the subtotal, the taxes and "Invoice Amount".
std::vector<std::vector<std::string>> InvoiceFileRows(store::Database& db,
                                                      std::int64_t arInvoiceId);

// Writes those rows to path: a workbook for ".xlsx", else tab-separated text with CRLF line ends.
// Throws with the reason when the file cannot be written; nothing is left behind then.
void WriteInvoiceFile(store::Database& db, std::int64_t arInvoiceId, const std::string& path);

} // namespace corvane::receivables
