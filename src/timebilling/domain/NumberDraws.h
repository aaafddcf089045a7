#pragma once

#include <cstdint>

namespace corvane::store {
class Database;
class Table;
} // namespace corvane::store

namespace corvane::timebilling {

// The numbers time billing draws from its control rows. Each opens the control table for itself
// alone for the moment of the draw and writes the counter on at once, so two users never get the
// same number; a job or task that is cancelled keeps its number used up.
std::int64_t DrawJobId(store::Database& db);
std::int64_t DrawTaskId(store::Database& db);

// The next id of an invoice made from time and its number in the time invoices' own series (from
// 10001, skipping numbers an invoice already has), both drawn together from ARInvCtl. The caller
// holds ARInvCtl exclusively for the whole run, through ctl.
struct InvoiceKeys {
    std::int64_t ARInvoiceID = 0;
    std::int64_t InvoiceNo = 0;
};
InvoiceKeys DrawTimeInvoiceKeys(store::Database& db, store::Table& ctl);

// The numbers a time invoice may take; outside them the series starts again at its restart.
constexpr std::int64_t kLowestInvoiceNo = 1001;
constexpr std::int64_t kHighestInvoiceNo = 10000000;
constexpr std::int64_t kTimeInvoiceRestart = 10001;

} // namespace corvane::timebilling
