#include "ledger/posting/LedgerCheck.h"

#include "core/Money.h"
#include "ledger/posting/StatementColumns.h"
#include "ledger/posting/VoucherPosting.h"
#include "store/Database.h"
#include "store/Value.h"
#include "store/sql/Connection.h"

#include <map>
#include <optional>
#include <tuple>

namespace corvane::ledger {

using store::Statement;
using store::StatementRun;
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
    Statement& s =
        db.Conn().Cached("SELECT JV.JVID, JV.JVNumber, JV.GLPeriod, JV.GLYear, sum(JVDet.GLAmount) "
                         "FROM main.JV JOIN main.JVDet ON JVDet.JVID = JV.JVID WHERE JV.Posted = ? "
                         "GROUP BY JV.JVID HAVING sum(JVDet.GLAmount) <> 0 ORDER BY JV.JVID");
    StatementRun run(s);
    s.Bind(1, Value(true));
    while (s.Step()) {
        out.push_back("JV " + std::to_string(s.ColumnInt(1)) + " of " +
                      std::to_string(s.ColumnInt(2)) + "/" + std::to_string(s.ColumnInt(3)) +
                      " (JVID " + std::to_string(s.ColumnInt(0)) + ") is out of balance by " +
                      MoneyAt(s, 4).ToString());
    }
}

using PeriodKey = std::tuple<AccountKey, int, int>; // account, year, period

void CheckTotals(store::Database& db, std::vector<std::string>& out) {
    std::map<PeriodKey, Money> history, totals;
    {
        Statement& s = db.Conn().Cached(
            "SELECT GLAccountID, SubAccount1ID, SubAccount2ID, SubAccount3ID, GLYear, GLPeriod, "
            "sum(Amount) FROM main.GLHist WHERE GLPeriod BETWEEN 1 AND 12 GROUP BY "
            "GLAccountID, SubAccount1ID, SubAccount2ID, SubAccount3ID, GLYear, GLPeriod");
        StatementRun run(s);
        while (s.Step()) {
            AccountKey a = ReadAccount(s, 0);
            history[{a, static_cast<int>(s.ColumnInt(4)), static_cast<int>(s.ColumnInt(5))}] =
                MoneyAt(s, 6);
        }
    }
    {
        std::string sql = "SELECT GLAccountID, SubAccount1ID, SubAccount2ID, SubAccount3ID, GLYear";
        for (int p = 1; p <= 12; ++p)
            sql += ", Amount" + std::to_string(p);
        sql += " FROM main.GLActual WHERE ActualBudget = 'A'";
        Statement& s = db.Conn().Cached(sql);
        StatementRun run(s);
        while (s.Step()) {
            AccountKey a = ReadAccount(s, 0);
            for (int p = 1; p <= 12; ++p) {
                Money amount = MoneyAt(s, 4 + p);
                if (!amount.IsZero()) totals[{a, static_cast<int>(s.ColumnInt(4)), p}] += amount;
            }
        }
    }
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
    CheckVoucherBalances(db, differences);
    CheckTotals(db, differences);
    return differences;
}

} // namespace corvane::ledger
