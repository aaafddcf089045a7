#pragma once

#include <cstdint>

namespace corvane::store {
class Database;
}
namespace corvane::ui {
class Application;
}

namespace corvane::receivables {

// Export Selected Invoice: the invoice's lines to a workbook or a text file the person names.
void ExportSelectedInvoice(ui::Application& app, store::Database& db, std::int64_t arInvoiceId);

// Email Selected Invoice: the invoice as a PDF handed to the desktop's mail program with the
// customer's address, "Invoice <no>" as subject and a short greeting; the PDF is deleted after if
// the person says so.
void EmailSelectedInvoice(ui::Application& app, store::Database& db, std::int64_t arInvoiceId);

} // namespace corvane::receivables
