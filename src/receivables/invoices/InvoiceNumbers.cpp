#include "receivables/invoices/InvoiceNumbers.h"

#include "store/NumberDraw.h"

namespace corvane::receivables {

std::optional<InvoiceKeys> DrawInvoiceKeys(store::Database& db,
                                           const std::function<bool(const std::string&)>& askRetry,
                                           DrawPatience patience) {
    InvoiceKeys keys;
    const bool drawn = store::DrawFromControl(
        db, "ARInvCtl", store::ControlRetry{"AR", patience.Tries, patience.PauseMs},
        [&keys](store::ControlRow& row) {
            // A company whose control row is missing or was never filled carries on after the
            // highest id.
            std::optional<std::int64_t> nextId = row.Peek("NextInvoiceID");
            if (!nextId || *nextId < 1)
                row.Put("NextInvoiceID", store::DrawMaxPlusOne(row.Db(), "ARInv", "ARInvoiceID"));
            keys.ARInvoiceID = row.Take("NextInvoiceID");
            keys.InvoiceNo =
                std::to_string(row.Take("NextInvoiceNo", store::RestartOutside(1, 10000000, 1)));
        },
        askRetry);
    if (!drawn) return std::nullopt;
    return keys;
}

} // namespace corvane::receivables
