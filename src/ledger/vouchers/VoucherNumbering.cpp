#include "ledger/vouchers/VoucherNumbering.h"

#include "store/Query.h"
#include "store/Table.h"

namespace corvane::ledger {

int VoucherNumberToUse(long long nextNumber) {
    if (nextNumber < kFirstVoucherNumber || nextNumber > kLastVoucherNumber)
        return kFirstVoucherNumber;
    return static_cast<int>(nextNumber);
}

namespace {
// A company whose control row is missing or was never filled carries on after the highest id.
int IdAfterExisting(store::Database& db) {
    store::Query q(db, "SELECT MAX(JVID) AS LastID FROM JV");
    q.Open();
    return q.FieldByName("LastID").IsNull()
               ? 1
               : static_cast<int>(q.FieldByName("LastID").AsInteger()) + 1;
}
} // namespace

VoucherKeys TakeVoucherKeys(store::Database& db) {
    store::Table ctl(db, "JVCtl");
    ctl.Open();
    if (ctl.IsEmpty())
        ctl.Append();
    else
        ctl.Edit();
    store::Field& nextId = ctl.FieldByName("NextJVID");
    store::Field& nextNumber = ctl.FieldByName("NextJVNumber");
    VoucherKeys keys;
    keys.JVID = nextId.IsNull() || nextId.AsInteger() < 1 ? IdAfterExisting(db)
                                                          : static_cast<int>(nextId.AsInteger());
    nextId.SetAsInteger(keys.JVID + 1);
    keys.JVNumber = VoucherNumberToUse(nextNumber.IsNull() ? 0 : nextNumber.AsInteger());
    nextNumber.SetAsInteger(static_cast<long long>(keys.JVNumber) + 1);
    ctl.Post();
    return keys;
}

} // namespace corvane::ledger
