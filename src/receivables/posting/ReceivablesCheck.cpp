#include "receivables/posting/ReceivablesCheck.h"

#include "core/Money.h"
#include "ledger/posting/RowColumns.h"
#include "store/Query.h"
#include "store/Value.h"

#include <map>
#include <optional>

namespace corvane::receivables {

using ledger::MoneyAt;
using ledger::QueryRow;

namespace {

// Rows of (id, amount) summed into a map by id; a null id is kept apart as -1.
std::map<std::int64_t, Money> Sums(store::Database& db, const std::string& sql) {
    std::map<std::int64_t, Money> sums;
    store::Query sum(db, sql);
    sum.ForEachRow([&](const QueryRow& row) {
        sums[ledger::OptionalInt(row, 0).value_or(-1)] += MoneyAt(row, 1);
    });
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
        store::Query invoices(db, "SELECT ARInvoiceID, InvoiceNo, InvoiceAmount, PaidAmount, "
                                  "DiscTakenAmount, WriteOffAmount, Owing FROM ARInv");
        invoices.ForEachRow([&](const QueryRow& row) {
            const Money left =
                MoneyAt(row, 2) - MoneyAt(row, 3) - MoneyAt(row, 4) - MoneyAt(row, 5);
            const Money owing = MoneyAt(row, 6);
            if (left != owing)
                out.push_back("invoice " + ledger::TextAt(row, 1) + ": owing " + owing.ToString() +
                              ", amount less paid, discount and write-off " + left.ToString() +
                              ", difference " + (owing - left).ToString());
        });
    }
    const auto owingByCustomer = Sums(
        db, "SELECT CustomerID, sum(Owing) FROM ARInv WHERE Posted = TRUE GROUP BY CustomerID");
    const auto balances =
        Sums(db, "SELECT CustomerID, sum(Balance) FROM CBalance GROUP BY CustomerID");
    Compare(owingByCustomer, balances, "customer", "posted invoices owe", "balance", out);
    const auto owingByAccount =
        Sums(db, "SELECT c.ARGLAccountID, sum(i.Owing) FROM ARInv i JOIN Currency c "
                 "ON c.CurrencyID = i.CurrencyID WHERE i.Posted = TRUE GROUP BY c.ARGLAccountID");
    // Only the receivables' own vouchers: a manual voucher on the account is the ledger's
    // business, not a difference between the two.
    const auto ledgerByAccount =
        Sums(db, "SELECT d.GLAccountID, sum(d.GLAmount) FROM JV v JOIN JVDet d "
                 "ON d.JVID = v.JVID WHERE v.Source = 'AR' AND "
                 "d.GLAccountID IN (SELECT ARGLAccountID FROM Currency) GROUP BY d.GLAccountID");
    Compare(owingByAccount, ledgerByAccount, "receivable account", "posted invoices owe",
            "receivables vouchers", out);
    return out;
}

} // namespace corvane::receivables
