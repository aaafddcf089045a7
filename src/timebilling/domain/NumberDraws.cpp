#include "timebilling/domain/NumberDraws.h"

#include "core/Exception.h"
#include "store/BulkWriter.h"
#include "store/NumberDraw.h"
#include "store/Table.h"

#include <string>

namespace corvane::timebilling {

namespace {

std::int64_t Draw(store::Database& db, const char* counter, const DrawRetry& askRetry) {
    std::int64_t value = 0;
    const DrawRetry giveUp = [](const std::string&) { return false; };
    const bool drawn = store::DrawFromControl(
        db, "JobCtl", store::ControlRetry{"Job"},
        [&](store::ControlRow& row) { value = row.Take(counter, store::StartWhenZero(1)); },
        askRetry ? askRetry : giveUp);
    if (!drawn) Abort();
    return value;
}

} // namespace

std::int64_t DrawJobId(store::Database& db, const DrawRetry& askRetry) {
    return Draw(db, "NextJobID", askRetry);
}

std::int64_t DrawTaskId(store::Database& db, const DrawRetry& askRetry) {
    return Draw(db, "NextTaskID", askRetry);
}

InvoiceKeys DrawTimeInvoiceKeys(store::Database& db, store::Table& ctl) {
    if (ctl.IsEmpty())
        ctl.Append();
    else
        ctl.Edit();
    store::ControlRow row(ctl);
    // A control row never filled carries on after the highest invoice id; the run's transaction
    // keeps every other workstation from inserting meanwhile.
    std::optional<std::int64_t> nextId = row.Peek("NextInvoiceID");
    if (!nextId || *nextId < 1)
        row.Put("NextInvoiceID", store::DrawMaxPlusOne(db, "ARInv", "ARInvoiceID"));
    InvoiceKeys keys;
    keys.ARInvoiceID = row.Take("NextInvoiceID");
    // The time invoices' own series: it restarts at 10001, not where manual invoices do.
    std::int64_t number = row.Take(
        "NextInvoiceNo",
        store::RestartOutside(kLowestInvoiceNo, kHighestInvoiceNo, kTimeInvoiceRestart), 0);
    // A number typed on a manual invoice may already stand in the series.
    while (store::CountRowsWhere(db, "ARInv", "InvoiceNo", store::Value(std::to_string(number))) >
           0)
        ++number;
    keys.InvoiceNo = number;
    row.Put("NextInvoiceNo", number + 1);
    ctl.Post();
    return keys;
}

} // namespace corvane::timebilling
