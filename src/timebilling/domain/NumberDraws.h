#pragma once

#include <cstdint>
#include <functional>
#include <string>

namespace corvane::store {
class Database;
class Table;
} // namespace corvane::store

namespace corvane::timebilling {

// Answers "Unable to open Job Control table exclusively..." after a round of tries: true to try
// again, false to give up. Without one the draw gives up at once.
using DrawRetry = std::function<bool(const std::string& message)>;

// The numbers time billing draws from JobCtl through the store's one number draw: the control
// table is held alone for the moment of the draw and the counter written on at once, so two
// users never get the same number; a job or task that is cancelled keeps its number used up. A
// counter of 0 starts at 1. Giving up raises EAbort: the new record is abandoned silently.
std::int64_t DrawJobId(store::Database& db, const DrawRetry& askRetry = {});
std::int64_t DrawTaskId(store::Database& db, const DrawRetry& askRetry = {});

// The next id of an invoice made from time and its number in the time invoices' own series (from
// 10001, skipping numbers an invoice already has), both drawn together from ARInvCtl. The caller
// holds ARInvCtl exclusively for the whole run, through ctl.
struct InvoiceKeys {
    std::int64_t ARInvoiceID = 0;
    std::int64_t InvoiceNo = 0;
};
// ctl is ARInvCtl, held exclusively by the run.
InvoiceKeys DrawTimeInvoiceKeys(store::Database& db, store::Table& ctl);

// The numbers a time invoice may take; outside them the series starts again at its restart.
constexpr std::int64_t kLowestInvoiceNo = 1001;
constexpr std::int64_t kHighestInvoiceNo = 10000000;
constexpr std::int64_t kTimeInvoiceRestart = 10001;

} // namespace corvane::timebilling
