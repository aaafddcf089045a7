#include "ledger/posting/LedgerExport.h"

#include "core/Money.h"
#include "ledger/posting/StatementColumns.h"
#include "store/Database.h"
#include "store/Value.h"
#include "store/sql/Connection.h"

#include <string>
#include <vector>

namespace corvane::ledger {

using store::Statement;
using store::StatementRun;
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

std::string Text(Statement& s, int column) {
    Value v = s.ColumnValue(column, store::FieldType::String);
    return v.IsNull() ? std::string() : v.Str();
}

// "number-sub1-sub2-sub3 name - subname ...": an empty level before a set one stands as "- "
// so that each level keeps its place, as the ledger's own windows show it.
std::string AccountLabel(Statement& s) {
    std::string number = s.ColumnIsNull(0) ? "?" : Text(s, 0);
    if (s.ColumnIsNull(0) && !s.ColumnIsNull(9)) number = std::to_string(s.ColumnInt(9));
    std::string name = s.ColumnIsNull(1) ? "?" : Text(s, 1);
    int lastSet = 0;
    for (int level = 1; level <= 3; ++level)
        if (!s.ColumnIsNull(2 * level)) lastSet = level;
    for (int level = 1; level <= lastSet; ++level) {
        const int column = 2 * level;
        if (s.ColumnIsNull(column)) {
            number += "- ";
        } else {
            number += "-" + Text(s, column);
            name += " - " + Text(s, column + 1);
        }
    }
    return Clean(number + " " + name);
}

} // namespace

int ExportLedger(store::Database& db, std::ostream& out) {
    Statement& s = db.Conn().Cached(
        "SELECT a.GLAccount, a.AccountName, s1.SubAccount, s1.SubAccountName, s2.SubAccount, "
        "s2.SubAccountName, s3.SubAccount, s3.SubAccountName, h.Amount, h.GLAccountID, "
        "h.GLYear, h.GLPeriod, h.TransDate, h.JVNumber, h.Source, h.TransType, "
        "h.TransDescription, h.JVID "
        "FROM main.GLHist h LEFT JOIN main.GLAccnt a ON a.GLAccountID = h.GLAccountID "
        "LEFT JOIN main.GLAcSub1 s1 ON s1.SubAccountID = h.SubAccount1ID "
        "LEFT JOIN main.GLAcSub2 s2 ON s2.SubAccountID = h.SubAccount2ID "
        "LEFT JOIN main.GLAcSub3 s3 ON s3.SubAccountID = h.SubAccount3ID "
        "ORDER BY h.GLYear, h.GLPeriod, h.TransDate, h.JVNumber, h.Source, h.JVID, "
        "h.TransType, h.GLHistID");
    StatementRun run(s);
    std::vector<Value> current;
    int transactions = 0;
    while (s.Step()) {
        // One transaction for each voucher and period; the fields after the amount and the
        // account's id tell them apart.
        std::vector<Value> head;
        for (int column = 10; column <= 17; ++column)
            head.push_back(s.ColumnNatural(column));
        if (head != current) {
            current = head;
            if (transactions++) out << "\n";
            Value date = s.ColumnValue(12, store::FieldType::Date);
            std::string source = Text(s, 14), type = Text(s, 15);
            out << (date.IsNull() ? std::string("1900-01-01") : date.Date().ToIso()) << " ("
                << s.ColumnInt(13) << ") "
                << Clean(source + " " + type + " " + std::to_string(s.ColumnInt(11)) + "/" +
                         std::to_string(s.ColumnInt(10)) + " " + Text(s, 16))
                << "\n";
        }
        out << "    " << AccountLabel(s) << "  " << MoneyAt(s, 8).ToString() << "\n";
    }
    return transactions;
}

} // namespace corvane::ledger
