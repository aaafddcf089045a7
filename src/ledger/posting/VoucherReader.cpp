#include "ledger/posting/VoucherReader.h"

#include "ledger/posting/RowColumns.h"
#include "store/Database.h"
#include "store/Value.h"

#include <string>

namespace corvane::ledger {

using store::Value;

namespace {

std::string HeaderSql(const std::string& where) {
    std::string sql = "SELECT JVID, GLYear, GLPeriod, JVNumber, Source, TransType, TransDate, "
                      "TransDescription, AutoReverse";
    for (auto field : Voucher::DocumentFields)
        sql += ", " + std::string(field);
    return sql + " FROM JV WHERE " + where;
}

Voucher ReadHeader(const QueryRow& row) {
    Voucher v;
    v.JVID = IntAt(row, 0);
    v.GLYear = static_cast<int>(IntAt(row, 1));
    v.GLPeriod = static_cast<int>(IntAt(row, 2));
    v.JVNumber = IntAt(row, 3);
    v.Source = TextAt(row, 4);
    v.TransType = TextAt(row, 5);
    if (!row[6].IsNull()) v.TransDate = row[6].Date();
    v.TransDescription = TextAt(row, 7);
    v.AutoReverse = !row[8].IsNull() && row[8].Bool();
    for (std::size_t i = 0; i < v.DocumentIds.size(); ++i)
        v.DocumentIds[i] = OptionalInt(row, 9 + i);
    return v;
}

// A line of the columns "Seq, GLAccountID, SubAccount1ID .. 3, GLAmount" from first on.
VoucherLine ReadLine(const QueryRow& row, std::size_t first) {
    VoucherLine line;
    line.Seq = IntAt(row, first);
    line.Account = ReadAccount(row, first + 1);
    line.GLAmount = MoneyAt(row, first + 5);
    return line;
}

constexpr const char* LineColumns =
    "Seq, GLAccountID, SubAccount1ID, SubAccount2ID, SubAccount3ID, GLAmount";

} // namespace

VoucherReader::VoucherReader(store::Database& db)
    : db_(db), header_(db, HeaderSql("JVID = :JVID")),
      lines_(db,
             std::string("SELECT ") + LineColumns + " FROM JVDet WHERE JVID = :JVID ORDER BY Seq"),
      posted_(db, "SELECT Posted FROM JV WHERE JVID = :JVID"),
      setPosted_(db, "UPDATE JV SET Posted = :Posted WHERE JVID = :JVID") {}

std::int64_t VoucherReader::CountUnposted(store::Database& db) {
    store::Query count(db, "SELECT count(*) FROM JV WHERE Posted = FALSE");
    std::int64_t n = 0;
    count.ForEachRow([&](const QueryRow& row) { n = IntAt(row, 0); });
    return n;
}

std::vector<Voucher> VoucherReader::ReadUnposted() {
    std::vector<Voucher> vouchers;
    store::Query headers(db_, HeaderSql("Posted = FALSE ORDER BY JVID"));
    headers.ForEachRow([&](const QueryRow& row) { vouchers.push_back(ReadHeader(row)); });
    store::Query lines(db_,
                       "SELECT d.JVID, d.Seq, d.GLAccountID, d.SubAccount1ID, d.SubAccount2ID, "
                       "d.SubAccount3ID, d.GLAmount FROM JV v JOIN JVDet d ON d.JVID = v.JVID "
                       "WHERE v.Posted = FALSE ORDER BY d.JVID, d.Seq");
    // Both reads are in JVID order: the lines are dealt out to the headers in one pass.
    std::size_t next = 0;
    lines.ForEachRow([&](const QueryRow& row) {
        const std::int64_t jvid = IntAt(row, 0);
        while (next < vouchers.size() && vouchers[next].JVID < jvid)
            ++next;
        if (next < vouchers.size() && vouchers[next].JVID == jvid)
            vouchers[next].Lines.push_back(ReadLine(row, 1));
    });
    return vouchers;
}

std::optional<Voucher> VoucherReader::Read(std::int64_t jvid) {
    std::optional<Voucher> v;
    header_.ParamByName("JVID").SetAsInteger(jvid);
    header_.ForEachRow([&](const QueryRow& row) { v = ReadHeader(row); });
    if (!v) return std::nullopt;
    lines_.ParamByName("JVID").SetAsInteger(jvid);
    lines_.ForEachRow([&](const QueryRow& row) { v->Lines.push_back(ReadLine(row, 0)); });
    return v;
}

std::optional<bool> VoucherReader::Posted(std::int64_t jvid) {
    std::optional<bool> posted;
    posted_.ParamByName("JVID").SetAsInteger(jvid);
    posted_.ForEachRow([&](const QueryRow& row) { posted = !row[0].IsNull() && row[0].Bool(); });
    return posted;
}

void VoucherReader::SetPosted(std::int64_t jvid, bool posted) {
    setPosted_.ParamByName("Posted").SetAsBoolean(posted);
    setPosted_.ParamByName("JVID").SetAsInteger(jvid);
    setPosted_.ExecSQL();
}

} // namespace corvane::ledger
