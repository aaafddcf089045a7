#include "ledger/posting/LedgerCheck.h"

#include "core/Money.h"
#include "ledger/posting/RowColumns.h"
#include "ledger/posting/VoucherPosting.h"
#include "store/CompanyFile.h"
#include "store/Query.h"

#include <map>
#include <optional>
#include <tuple>

namespace corvane::ledger {

using store::Value;

namespace {

std::string Id(const std::optional<std::int64_t>& id) {
    return id ? std::to_string(*id) : std::string("-");
}

std::string Describe(const AccountKey& a) {
    return "account " + Id(a.GLAccountID) + " (" + Id(a.SubAccount1ID) + "/" + Id(a.SubAccount2ID) +
           "/" + Id(a.SubAccount3ID) + ")";
}

void CheckVoucherBalances(store::Database& db, std::vector<std::string>& out) {
    struct Balance {
        std::int64_t Number = 0, Period = 0, Year = 0;
        Money Sum;
    };
    std::map<std::int64_t, Balance> vouchers;
    store::Query lines(db, "SELECT JV.JVID, JV.JVNumber, JV.GLPeriod, JV.GLYear, JVDet.GLAmount "
                           "FROM JV JOIN JVDet ON JVDet.JVID = JV.JVID WHERE JV.Posted = TRUE");
    lines.ForEachRow([&](const std::vector<Value>& row) {
        Balance& b = vouchers[IntAt(row, 0)];
        b.Number = IntAt(row, 1);
        b.Period = IntAt(row, 2);
        b.Year = IntAt(row, 3);
        b.Sum += MoneyAt(row, 4);
    });
    for (const auto& [id, b] : vouchers)
        if (!b.Sum.IsZero())
            out.push_back("JV " + std::to_string(b.Number) + " of " + std::to_string(b.Period) +
                          "/" + std::to_string(b.Year) + " (JVID " + std::to_string(id) +
                          ") is out of balance by " + b.Sum.ToString());
}

using PeriodKey = std::tuple<AccountKey, int, int>; // account, year, period

void CheckTotals(store::Database& db, std::vector<std::string>& out) {
    std::map<PeriodKey, Money> history, totals;
    store::Query lines(db, "SELECT GLAccountID, SubAccount1ID, SubAccount2ID, SubAccount3ID, "
                           "GLYear, GLPeriod, Amount FROM GLHist WHERE GLPeriod BETWEEN 1 AND 12");
    lines.ForEachRow([&](const std::vector<Value>& row) {
        history[{ReadAccount(row, 0), static_cast<int>(IntAt(row, 4)),
                 static_cast<int>(IntAt(row, 5))}] += MoneyAt(row, 6);
    });
    std::string sql = "SELECT GLAccountID, SubAccount1ID, SubAccount2ID, SubAccount3ID, GLYear";
    for (int p = 1; p <= 12; ++p)
        sql += ", Amount" + std::to_string(p);
    sql += " FROM GLActual WHERE ActualBudget = 'A'";
    store::Query actual(db, sql);
    actual.ForEachRow([&](const std::vector<Value>& row) {
        AccountKey a = ReadAccount(row, 0);
        for (int p = 1; p <= 12; ++p) {
            Money amount = MoneyAt(row, 4 + p);
            if (!amount.IsZero()) totals[{a, static_cast<int>(IntAt(row, 4)), p}] += amount;
        }
    });
    auto report = [&](const PeriodKey& key, Money total, Money hist) {
        const auto& [account, year, period] = key;
        out.push_back(Describe(account) + " " + std::to_string(period) + "/" +
                      std::to_string(year) + ": totals " + total.ToString() + ", history " +
                      hist.ToString() + ", difference " + (total - hist).ToString());
    };
    for (const auto& [key, total] : totals) {
        auto it = history.find(key);
        Money hist = it == history.end() ? Money() : it->second;
        if (hist != total) report(key, total, hist);
    }
    for (const auto& [key, hist] : history)
        if (!hist.IsZero() && !totals.count(key)) report(key, Money(), hist);
}

} // namespace

std::vector<std::string> CheckLedger(store::Database& db) {
    std::vector<std::string> differences;
    // The vouchers, the history and the totals from one moment: a commit between two of the
    // reads would show a difference that is not there.
    store::ReadSnapshot snapshot(db);
    CheckVoucherBalances(db, differences);
    CheckTotals(db, differences);
    return differences;
}

} // namespace corvane::ledger
