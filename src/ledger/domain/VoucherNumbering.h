#pragma once

#include "store/TableHold.h"

#include <optional>
#include <string>

namespace corvane::store {
class Database;
}

namespace corvane::ledger {

// The hidden key and the number on screen of a voucher being made.
struct VoucherKeys {
    int JVID = 0;
    int JVNumber = 0;
};

// The numbers a voucher number may take; anything outside starts the series again at the low end.
constexpr int kFirstVoucherNumber = 1001;
constexpr int kLastVoucherNumber = 10000000;

// The number the control row offers next, brought back into the series when it strayed out.
int VoucherNumberToUse(long long nextNumber);

using VoucherKeysTaken = std::optional<VoucherKeys>;
// Asked with the message when the control table stayed busy: true tries again.
using RetryQuestion = store::RetryQuestion;

// Takes the next id and number from the one row of JVCtl and writes the counters on at once, so
// two users never get the same pair; a voucher that is cancelled keeps its number used up. A run
// that writes many vouchers takes `count` of each at once (the first pair comes back; 0 takes
// none and only reads them). Nothing when the control table stayed busy and the user gave up.
VoucherKeysTaken TakeVoucherKeys(store::Database& db, const RetryQuestion& askRetry, int count = 1);

} // namespace corvane::ledger
