#pragma once

#include "ledger/posting/VoucherPosting.h"
#include "store/Query.h"

#include <cstdint>
#include <optional>
#include <vector>

namespace corvane::store {
class Database;
}

namespace corvane::ledger {

// Reads vouchers for the posting runs through prepared store queries, one voucher at a time, so
// that a run over thousands of vouchers never holds a cursor open on the whole table.
class VoucherReader {
public:
    explicit VoucherReader(store::Database& db);

    // How many vouchers wait to be posted, whatever their period and source.
    static std::int64_t CountUnposted(store::Database& db);

    // Every unposted voucher with its lines, in key order: two reads for the whole run.
    std::vector<Voucher> ReadUnposted();
    // The header and its lines in Seq order; nothing when the voucher is gone.
    std::optional<Voucher> Read(std::int64_t jvid);
    // Nothing when the voucher is gone; a null flag reads as false.
    std::optional<bool> Posted(std::int64_t jvid);
    void SetPosted(std::int64_t jvid, bool posted);

private:
    store::Database& db_;
    store::Query header_;
    store::Query lines_;
    store::Query posted_;
    store::Query setPosted_;
};

} // namespace corvane::ledger
