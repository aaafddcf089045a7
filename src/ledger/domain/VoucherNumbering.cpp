#include "ledger/domain/VoucherNumbering.h"

#include "store/NumberDraw.h"

namespace corvane::ledger {

int VoucherNumberToUse(long long nextNumber) {
    if (nextNumber < kFirstVoucherNumber || nextNumber > kLastVoucherNumber)
        return kFirstVoucherNumber;
    return static_cast<int>(nextNumber);
}

VoucherKeysTaken TakeVoucherKeys(store::Database& db, const RetryQuestion& askRetry, int count) {
    VoucherKeys keys;
    bool drawn = store::DrawFromControl(
        db, "JVCtl", store::ControlRetry{"JV"},
        [&keys, count](store::ControlRow& row) {
            // A company whose control row is missing or was never filled carries on after the
            // highest id.
            std::optional<std::int64_t> nextId = row.Peek("NextJVID");
            if (!nextId || *nextId < 1)
                row.Put("NextJVID", store::DrawMaxPlusOne(row.Db(), "JV", "JVID"));
            keys.JVID = static_cast<int>(row.Take("NextJVID", {}, count));
            keys.JVNumber = static_cast<int>(row.Take(
                "NextJVNumber",
                [](std::optional<std::int64_t> stored) {
                    return VoucherNumberToUse(stored.value_or(0));
                },
                count));
        },
        askRetry);
    if (!drawn) return std::nullopt;
    return keys;
}

} // namespace corvane::ledger
