#pragma once

#include "ledger/posting/VoucherPosting.h"
#include "store/BulkWriter.h"

#include <array>
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace corvane::store {
class Database;
} // namespace corvane::store

namespace corvane::ledger {

// Writes what posting and unposting compute into the history and the totals, inside the run's
// transaction. The totals of each account and year are read once, changed in memory and written
// back by Flush: a run touching the same few accounts forty thousand times costs one read and
// one write per account and year, and the transaction makes the delay invisible to others.
class LedgerWriter {
public:
    explicit LedgerWriter(store::Database& db);

    void WriteHistory(const Voucher& voucher, const HistoryRow& row);
    // Adds to the period's amount; an empty amount counts as 0 and a period outside 1..12
    // changes nothing, though the year's row is made all the same.
    void AddToTotals(const BalanceDelta& delta);
    // Writes every total changed since the last flush and moves the history's counter past
    // the ids used; call before the commit.
    void Flush();

    // The history rows of a voucher, by its id.
    std::int64_t CountHistory(std::int64_t jvid);
    void DeleteHistory(std::int64_t jvid);

private:
    struct YearTotals {
        std::optional<store::RowRef> Row; // nothing for a row still to be inserted
        std::array<std::optional<Money>, 12> Amounts;
        bool Changed = false;
    };
    using TotalsKey = std::pair<AccountKey, int>;

    YearTotals& Totals(const AccountKey& account, int year);

    store::Database& db_;
    store::BulkInsert history_;
    store::BulkLookup findTotals_;
    store::BulkInsert insertTotals_;
    store::BulkUpdate updateTotals_;
    std::map<TotalsKey, YearTotals> totals_;
    // The history's ids are drawn from the counter once and handed out in turn; the counter
    // learns the last one at the flush. Nobody else writes while the run's transaction lasts.
    std::optional<std::int64_t> lastHistoryId_;
    bool historyIdsPending_ = false;
};

} // namespace corvane::ledger
