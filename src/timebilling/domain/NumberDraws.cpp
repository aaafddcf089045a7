#include "timebilling/domain/NumberDraws.h"

#include "store/Query.h"
#include "store/Table.h"

#include <string>

namespace corvane::timebilling {

namespace {

// One counter of the one row of JobCtl: a counter never set, or 0, starts at 1.
std::int64_t Draw(store::Database& db, const char* counter) {
    store::Table ctl(db, "JobCtl");
    ctl.SetExclusive(true);
    ctl.Open();
    if (ctl.IsEmpty())
        ctl.Append();
    else
        ctl.Edit();
    store::Field& next = ctl.FieldByName(counter);
    std::int64_t value = next.IsNull() || next.AsInteger() < 1 ? 1 : next.AsInteger();
    next.SetAsInteger(value + 1);
    ctl.Post();
    ctl.Close();
    return value;
}

// A control row never filled carries on after the highest invoice id.
std::int64_t NextInvoiceIdAfterExisting(store::Database& db) {
    store::Query q(db, "SELECT MAX(ARInvoiceID) AS LastID FROM ARInv");
    q.Open();
    return q.FieldByName("LastID").IsNull() ? 1 : q.FieldByName("LastID").AsInteger() + 1;
}

} // namespace

std::int64_t DrawJobId(store::Database& db) {
    return Draw(db, "NextJobID");
}

std::int64_t DrawTaskId(store::Database& db) {
    return Draw(db, "NextTaskID");
}

InvoiceKeys DrawTimeInvoiceKeys(store::Database& db, store::Table& ctl) {
    if (ctl.IsEmpty())
        ctl.Append();
    else
        ctl.Edit();
    store::Field& nextId = ctl.FieldByName("NextInvoiceID");
    store::Field& nextNo = ctl.FieldByName("NextInvoiceNo");
    InvoiceKeys keys;
    keys.ARInvoiceID = nextId.IsNull() || nextId.AsInteger() < 1 ? NextInvoiceIdAfterExisting(db)
                                                                 : nextId.AsInteger();
    std::int64_t number = nextNo.IsNull() ? 0 : nextNo.AsInteger();
    if (number < kLowestInvoiceNo || number > kHighestInvoiceNo) number = kTimeInvoiceRestart;
    // A number typed on a manual invoice may already stand in the series.
    store::Query taken(db, "SELECT COUNT(*) AS n FROM ARInv WHERE InvoiceNo = :No");
    taken.Prepare();
    for (;; ++number) {
        taken.Close();
        taken.ParamByName("No").SetAsString(std::to_string(number));
        taken.Open();
        if (taken.FieldByName("n").AsInteger() == 0) break;
    }
    keys.InvoiceNo = number;
    nextId.SetAsInteger(keys.ARInvoiceID + 1);
    nextNo.SetAsInteger(number + 1);
    ctl.Post();
    return keys;
}

} // namespace corvane::timebilling
