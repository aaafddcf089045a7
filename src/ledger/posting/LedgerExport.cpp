#include "ledger/posting/LedgerExport.h"

#include "core/Money.h"
#include "ledger/posting/RowColumns.h"
#include "store/Query.h"
#include "store/Value.h"

#include <string>
#include <vector>

namespace corvane::ledger {

using store::Value;

namespace {

// The journal reads two spaces as the end of an account name and ';' as a comment: neither
// may come from the data.
std::string Clean(std::string text) {
    std::string out;
    for (char c : text) {
        if (c == '\t' || c == '\r' || c == '\n') c = ' ';
        if (c == ';') c = ',';
        if (c == ' ' && (out.empty() || out.back() == ' ')) continue;
        out += c;
    }
    while (!out.empty() && out.back() == ' ')
        out.pop_back();
    return out;
}

// "number-sub1-sub2-sub3 name - subname ...": an empty level before a set one stands as "- "
// so that each level keeps its place, as the ledger's own windows show it.
std::string AccountLabel(const QueryRow& row) {
    auto null = [&row](std::size_t column) { return row[column].IsNull(); };
    std::string number = null(0) ? "?" : TextAt(row, 0);
    if (null(0) && !null(9)) number = std::to_string(IntAt(row, 9));
    std::string name = null(1) ? "?" : TextAt(row, 1);
    std::size_t lastSet = 0;
    for (std::size_t level = 1; level <= 3; ++level)
        if (!null(2 * level)) lastSet = level;
    for (std::size_t level = 1; level <= lastSet; ++level) {
        const std::size_t column = 2 * level;
        if (null(column)) {
            number += "- ";
        } else {
            number += "-" + TextAt(row, column);
            name += " - " + TextAt(row, column + 1);
        }
    }
    return Clean(number + " " + name);
}

} // namespace

int ExportLedger(store::Database& db, std::ostream& out) {
    store::Query history(
        db, "SELECT a.GLAccount, a.AccountName, s1.SubAccount, s1.SubAccountName, s2.SubAccount, "
            "s2.SubAccountName, s3.SubAccount, s3.SubAccountName, h.Amount, h.GLAccountID, "
            "h.GLYear, h.GLPeriod, h.TransDate, h.JVNumber, h.Source, h.TransType, "
            "h.TransDescription, h.JVID "
            "FROM GLHist h LEFT OUTER JOIN GLAccnt a ON a.GLAccountID = h.GLAccountID "
            "LEFT OUTER JOIN GLAcSub1 s1 ON s1.SubAccountID = h.SubAccount1ID "
            "LEFT OUTER JOIN GLAcSub2 s2 ON s2.SubAccountID = h.SubAccount2ID "
            "LEFT OUTER JOIN GLAcSub3 s3 ON s3.SubAccountID = h.SubAccount3ID "
            "ORDER BY h.GLYear, h.GLPeriod, h.TransDate, h.JVNumber, h.Source, h.JVID, "
            "h.TransType, h.GLHistID");
    std::vector<Value> current;
    int transactions = 0;
    history.ForEachRow([&](const QueryRow& row) {
        // One transaction for each voucher and period; the fields after the amount and the
        // account's id tell them apart.
        std::vector<Value> head(row.begin() + 10, row.begin() + 18);
        if (head != current) {
            current = head;
            if (transactions++) out << "\n";
            const Value& date = row[12];
            out << (date.kind() == Value::Kind::Date ? date.Date().ToIso()
                                                     : std::string("1900-01-01"))
                << " (" << IntAt(row, 13) << ") "
                << Clean(TextAt(row, 14) + " " + TextAt(row, 15) + " " +
                         std::to_string(IntAt(row, 11)) + "/" + std::to_string(IntAt(row, 10)) +
                         " " + TextAt(row, 16))
                << "\n";
        }
        out << "    " << AccountLabel(row) << "  " << MoneyAt(row, 8).ToString() << "\n";
    });
    return transactions;
}

} // namespace corvane::ledger
