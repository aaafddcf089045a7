#include "receivables/invoices/InvoiceNumbers.h"

#include "receivables/invoices/InvoiceTexts.h"
#include "store/EngineError.h"
#include "store/Query.h"
#include "store/Table.h"

#include <chrono>
#include <thread>

namespace corvane::receivables {

namespace {

// A company whose control row is missing or was never filled carries on after the highest id.
std::int64_t IdAfterExisting(store::Database& db) {
    store::Query q(db, "SELECT MAX(ARInvoiceID) AS LastID FROM ARInv");
    q.Open();
    return q.FieldByName("LastID").IsNull() ? 1 : q.FieldByName("LastID").AsInteger() + 1;
}

std::optional<InvoiceKeys> TryDraw(store::Database& db) {
    store::Table ctl(db, "ARInvCtl");
    ctl.SetExclusive(true);
    try {
        ctl.Open();
    } catch (const store::EngineError& e) {
        if (e.ErrorCode() == store::errTableInUse || e.ErrorCode() == store::errTableLocked)
            return std::nullopt;
        throw;
    }
    if (ctl.IsEmpty())
        ctl.Append();
    else
        ctl.Edit();
    store::Field& nextId = ctl.FieldByName("NextInvoiceID");
    store::Field& nextNo = ctl.FieldByName("NextInvoiceNo");
    const std::int64_t id =
        nextId.IsNull() || nextId.AsInteger() < 1 ? IdAfterExisting(db) : nextId.AsInteger();
    std::int64_t number = nextNo.IsNull() ? 0 : nextNo.AsInteger();
    if (number < 1 || number > 10000000) number = 1;
    nextId.SetAsInteger(id + 1);
    nextNo.SetAsInteger(number + 1);
    ctl.Post();
    return InvoiceKeys{id, std::to_string(number)};
}

} // namespace

std::optional<InvoiceKeys> DrawInvoiceKeys(store::Database& db,
                                           const std::function<bool(const std::string&)>& askRetry,
                                           DrawPatience patience) {
    for (;;) {
        for (int attempt = 1; attempt <= patience.Tries; ++attempt) {
            if (auto keys = TryDraw(db)) return keys;
            if (attempt < patience.Tries)
                std::this_thread::sleep_for(std::chrono::milliseconds(patience.PauseMs));
        }
        if (!askRetry || !askRetry(invoice_text::ControlBusy)) return std::nullopt;
    }
}

} // namespace corvane::receivables
