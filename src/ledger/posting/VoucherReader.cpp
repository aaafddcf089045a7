#include "ledger/posting/VoucherReader.h"

#include "ledger/posting/StatementColumns.h"
#include "store/Database.h"
#include "store/Value.h"
#include "store/sql/Connection.h"

#include <string>

namespace corvane::ledger {

using store::Statement;
using store::StatementRun;
using store::Value;

namespace {

std::string HeaderSql(const std::string& where) {
    std::string sql = "SELECT JVID, GLYear, GLPeriod, JVNumber, Source, TransType, TransDate, "
                      "TransDescription, AutoReverse";
    for (auto field : Voucher::DocumentFields)
        sql += ", " + std::string(field);
    return sql + " FROM main.JV WHERE " + where;
}

Voucher ReadHeader(Statement& s) {
    Voucher v;
    v.JVID = s.ColumnInt(0);
    v.GLYear = static_cast<int>(s.ColumnInt(1));
    v.GLPeriod = static_cast<int>(s.ColumnInt(2));
    v.JVNumber = s.ColumnInt(3);
    Value source = s.ColumnValue(4, store::FieldType::String);
    Value type = s.ColumnValue(5, store::FieldType::String);
    Value date = s.ColumnValue(6, store::FieldType::Date);
    Value text = s.ColumnValue(7, store::FieldType::String);
    Value reverse = s.ColumnValue(8, store::FieldType::Boolean);
    v.Source = source.IsNull() ? std::string() : source.Str();
    v.TransType = type.IsNull() ? std::string() : type.Str();
    if (!date.IsNull()) v.TransDate = date.Date();
    v.TransDescription = text.IsNull() ? std::string() : text.Str();
    v.AutoReverse = !reverse.IsNull() && reverse.Bool();
    for (std::size_t i = 0; i < v.DocumentIds.size(); ++i)
        v.DocumentIds[i] = OptionalInt(s, 9 + static_cast<int>(i));
    return v;
}

// A line of the columns "Seq, GLAccountID, SubAccount1ID .. 3, GLAmount" from first on.
VoucherLine ReadLine(Statement& s, int first) {
    VoucherLine line;
    line.Seq = s.ColumnIsNull(first) ? 0 : s.ColumnInt(first);
    line.Account = ReadAccount(s, first + 1);
    line.GLAmount = MoneyAt(s, first + 5);
    return line;
}

} // namespace

std::int64_t VoucherReader::CountUnposted(store::Database& db) {
    Statement& s = db.Conn().Cached("SELECT count(*) FROM main.JV WHERE Posted = ?");
    StatementRun run(s);
    s.Bind(1, Value(false));
    s.Step();
    return s.ColumnInt(0);
}

std::vector<Voucher> VoucherReader::ReadUnposted() {
    std::vector<Voucher> vouchers;
    {
        Statement& s = db_.Conn().Cached(HeaderSql("Posted = ? ORDER BY JVID"));
        StatementRun run(s);
        s.Bind(1, Value(false));
        while (s.Step())
            vouchers.push_back(ReadHeader(s));
    }
    Statement& s = db_.Conn().Cached(
        "SELECT d.JVID, d.Seq, d.GLAccountID, d.SubAccount1ID, d.SubAccount2ID, "
        "d.SubAccount3ID, d.GLAmount FROM main.JV v JOIN main.JVDet d ON d.JVID = v.JVID "
        "WHERE v.Posted = ? ORDER BY d.JVID, d.Seq");
    StatementRun run(s);
    s.Bind(1, Value(false));
    // Both reads are in JVID order: the lines are dealt out to the headers in one pass.
    std::size_t next = 0;
    while (s.Step()) {
        const std::int64_t jvid = s.ColumnInt(0);
        while (next < vouchers.size() && vouchers[next].JVID < jvid)
            ++next;
        if (next < vouchers.size() && vouchers[next].JVID == jvid)
            vouchers[next].Lines.push_back(ReadLine(s, 1));
    }
    return vouchers;
}

std::optional<Voucher> VoucherReader::Read(std::int64_t jvid) {
    std::optional<Voucher> v;
    {
        Statement& s = db_.Conn().Cached(HeaderSql("JVID = ?"));
        StatementRun run(s);
        s.Bind(1, Value(jvid));
        if (!s.Step()) return std::nullopt;
        v = ReadHeader(s);
    }
    Statement& s =
        db_.Conn().Cached("SELECT Seq, GLAccountID, SubAccount1ID, SubAccount2ID, SubAccount3ID, "
                          "GLAmount FROM main.JVDet WHERE JVID = ? ORDER BY Seq");
    StatementRun run(s);
    s.Bind(1, Value(jvid));
    while (s.Step())
        v->Lines.push_back(ReadLine(s, 0));
    return v;
}

std::optional<bool> VoucherReader::Posted(std::int64_t jvid) {
    Statement& s = db_.Conn().Cached("SELECT Posted FROM main.JV WHERE JVID = ?");
    StatementRun run(s);
    s.Bind(1, Value(jvid));
    if (!s.Step()) return std::nullopt;
    Value posted = s.ColumnValue(0, store::FieldType::Boolean);
    return !posted.IsNull() && posted.Bool();
}

void VoucherReader::SetPosted(std::int64_t jvid, bool posted) {
    Statement& s = db_.Conn().Cached("UPDATE main.JV SET Posted = ? WHERE JVID = ?");
    StatementRun run(s);
    s.Bind(1, Value(posted));
    s.Bind(2, Value(jvid));
    s.Step();
}

} // namespace corvane::ledger
