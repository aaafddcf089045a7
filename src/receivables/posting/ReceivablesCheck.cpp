#include "receivables/posting/ReceivablesCheck.h"

#include "core/Money.h"
#include "ledger/posting/StatementColumns.h"
#include "store/Database.h"
#include "store/Value.h"
#include "store/sql/Connection.h"

#include <map>
#include <optional>

namespace corvane::receivables {

using store::Statement;
using store::StatementRun;
using store::Value;

namespace {

// Rows of (id, amount) summed into a map by id; a null id is kept apart as -1.
std::map<std::int64_t, Money> Sums(store::Database& db, const std::string& sql) {
    std::map<std::int64_t, Money> sums;
    Statement& s = db.Conn().Cached(sql);
    StatementRun run(s);
    s.Bind(1, Value(true));
    while (s.Step())
        sums[ledger::OptionalInt(s, 0).value_or(-1)] += ledger::MoneyAt(s, 1);
    return sums;
}

void Compare(const std::map<std::int64_t, Money>& expected,
             const std::map<std::int64_t, Money>& found, const std::string& what,
             const std::string& expectedName, const std::string& foundName,
             std::vector<std::string>& out) {
    std::map<std::int64_t, std::pair<Money, Money>> both;
    for (const auto& [id, amount] : expected)
        both[id].first = amount;
    for (const auto& [id, amount] : found)
        both[id].second = amount;
    for (const auto& [id, pair] : both)
        if (pair.first != pair.second)
            out.push_back(what + " " + std::to_string(id) + ": " + foundName + " " +
                          pair.second.ToString() + ", " + expectedName + " " +
                          pair.first.ToString() + ", difference " +
                          (pair.second - pair.first).ToString());
}

} // namespace

std::vector<std::string> CheckReceivables(store::Database& db) {
    std::vector<std::string> out;
    {
        // Each invoice's Owing is what its amount less its three settled totals leaves; the sums
        // are made here, in whole ten-thousandths, not by the engine.
        Statement& s = db.Conn().Cached(
            "SELECT ARInvoiceID, InvoiceNo, InvoiceAmount, PaidAmount, DiscTakenAmount, "
            "WriteOffAmount, Owing FROM main.ARInv WHERE ?");
        StatementRun run(s);
        s.Bind(1, Value(true));
        while (s.Step()) {
            const Money left = ledger::MoneyAt(s, 2) - ledger::MoneyAt(s, 3) -
                               ledger::MoneyAt(s, 4) - ledger::MoneyAt(s, 5);
            const Money owing = ledger::MoneyAt(s, 6);
            if (left != owing) {
                Value no = s.ColumnValue(1, store::FieldType::String);
                out.push_back("invoice " + (no.IsNull() ? std::string() : no.Str()) + ": owing " +
                              owing.ToString() + ", amount less paid, discount and write-off " +
                              left.ToString() + ", difference " + (owing - left).ToString());
            }
        }
    }
    const auto owingByCustomer = Sums(
        db, "SELECT CustomerID, sum(Owing) FROM main.ARInv WHERE Posted = ? GROUP BY CustomerID");
    const auto balances = Sums(db, "SELECT CustomerID, sum(Balance) FROM main.CBalance "
                                   "WHERE ? GROUP BY CustomerID");
    Compare(owingByCustomer, balances, "customer", "posted invoices owe", "balance", out);
    const auto owingByAccount =
        Sums(db, "SELECT c.ARGLAccountID, sum(i.Owing) FROM main.ARInv i JOIN main.Currency c "
                 "ON c.CurrencyID = i.CurrencyID WHERE i.Posted = ? GROUP BY c.ARGLAccountID");
    // Only the receivables' own vouchers: a manual voucher on the account is the ledger's
    // business, not a difference between the two.
    const auto ledgerByAccount =
        Sums(db, "SELECT d.GLAccountID, sum(d.GLAmount) FROM main.JV v JOIN main.JVDet d "
                 "ON d.JVID = v.JVID WHERE v.Source = 'AR' AND ? AND d.GLAccountID IN "
                 "(SELECT ARGLAccountID FROM main.Currency) GROUP BY d.GLAccountID");
    Compare(owingByAccount, ledgerByAccount, "receivable account", "posted invoices owe",
            "receivables vouchers", out);
    return out;
}

} // namespace corvane::receivables
