#pragma once

#include "ledger/posting/VoucherPosting.h"

#include <array>
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace corvane::store {
class Database;
struct TableDef;
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
        std::optional<std::int64_t> RowId; // nothing for a row still to be inserted
        std::array<std::optional<Money>, 12> Amounts;
        bool Changed = false;
    };
    using TotalsKey = std::pair<AccountKey, int>;

    YearTotals& Totals(const AccountKey& account, int year);
    int FieldIndex(const store::TableDef& def, std::string_view name) const;

    store::Database& db_;
    const store::TableDef& histDef_;
    const store::TableDef& actualDef_;
    std::string insertHistorySql_;
    std::string insertActualSql_;
    std::string updateActualSql_;
    std::vector<int> histFields_;   // positions of the history fields posting fills
    std::vector<int> actualFields_; // positions of the key, ActualBudget and Amount1..12
    std::map<TotalsKey, YearTotals> totals_;
    // The history's ids are drawn from the counter once and handed out in turn; the counter
    // learns the last one at the flush. Nobody else writes while the run's transaction lasts.
    std::optional<std::int64_t> lastHistoryId_;
    bool historyIdsPending_ = false;
};

} // namespace corvane::ledger
