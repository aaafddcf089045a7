#include "support/LedgerCompany.h"

#include "core/Date.h"
#include "core/Money.h"
#include "ledger/posting/PostingRun.h"
#include "store/Database.h"
#include "store/Table.h"

#include <optional>
#include <random>
#include <string>
#include <vector>

namespace corvane::testing {

namespace {

constexpr int SubAccountsPerLevel = 4;

// std::mt19937 is the same on every platform; the standard distributions are not, so draws
// are taken from its raw output.
class Draw {
public:
    explicit Draw(std::uint32_t seed) : engine_(seed) {}
    // 0 .. n-1
    int Below(int n) { return static_cast<int>(engine_() % static_cast<std::uint32_t>(n)); }
    bool OneIn(int n) { return Below(n) == 0; }
    // Up to 50,000 either way, with four decimals.
    Money Amount() {
        const auto units = static_cast<std::int64_t>(engine_() % 500000000u) + 1;
        return Money::FromUnits(OneIn(2) ? units : -units);
    }

private:
    std::mt19937 engine_;
};

struct Line {
    int Account;
    std::optional<int> Sub[3];
    Money Amount;
};

std::string TwoDigits(int n) {
    return (n < 10 ? "0" : "") + std::to_string(n);
}

void WriteChart(store::Database& db, const LedgerCompanyShape& shape) {
    store::Table accounts(db, "GLAccnt");
    accounts.Open();
    for (int id = 1; id <= shape.Accounts; ++id) {
        accounts.Insert();
        accounts.FieldByName("GLAccountID").SetAsInteger(id);
        accounts.FieldByName("GLAccount").SetAsString(std::to_string(1000 + 10 * id));
        accounts.FieldByName("AccountName").SetAsString("Account " + TwoDigits(id));
        accounts.FieldByName("AccountType").SetAsInteger(1 + (id - 1) % 5);
        accounts.Post();
    }
    for (int level = 1; level <= 3; ++level) {
        store::Table subs(db, "GLAcSub" + std::to_string(level));
        subs.Open();
        for (int n = 1; n <= SubAccountsPerLevel; ++n) {
            subs.Insert();
            subs.FieldByName("SubAccountID").SetAsInteger(100 * level + n);
            subs.FieldByName("SubAccount").SetAsString("S" + std::to_string(level) + TwoDigits(n));
            subs.FieldByName("SubAccountName")
                .SetAsString("Level " + std::to_string(level) + " no " + std::to_string(n));
            subs.Post();
        }
    }
}

// Most lines go to the account alone; the rest to one, two or three levels, now and then with
// an upper level left empty below a set one.
void DrawSubAccounts(Draw& draw, Line& line) {
    const int kind = draw.Below(10);
    auto pick = [&](int level) { return 100 * level + 1 + draw.Below(SubAccountsPerLevel); };
    if (kind == 6 || kind == 7) line.Sub[0] = pick(1);
    if (kind == 8) {
        line.Sub[0] = pick(1);
        line.Sub[1] = pick(2);
    }
    if (kind == 9) line.Sub[2] = pick(3);
}

std::vector<Line> DrawLines(Draw& draw, const LedgerCompanyShape& shape) {
    std::vector<Line> lines(static_cast<std::size_t>(2 + draw.Below(4)));
    Money sum;
    for (std::size_t i = 0; i < lines.size(); ++i) {
        Line& line = lines[i];
        line.Account = 1 + draw.Below(shape.Accounts);
        DrawSubAccounts(draw, line);
        if (i + 1 < lines.size()) {
            line.Amount = draw.OneIn(40) ? Money() : draw.Amount();
            sum += line.Amount;
        } else {
            line.Amount = Money() - sum;
        }
    }
    return lines;
}

void WriteVoucher(store::Table& jv, store::Table& det, int jvid, int year, int period, Draw& draw,
                  const LedgerCompanyShape& shape) {
    const std::vector<Line> lines = DrawLines(draw, shape);
    Money debits;
    for (const auto& l : lines)
        if (l.Amount > Money()) debits += l.Amount;
    jv.Insert();
    jv.FieldByName("JVID").SetAsInteger(jvid);
    jv.FieldByName("GLYear").SetAsInteger(year);
    jv.FieldByName("GLPeriod").SetAsInteger(period);
    jv.FieldByName("JVNumber").SetAsInteger(jvid);
    jv.FieldByName("Source").SetAsString("GL");
    jv.FieldByName("TransType").SetAsString("JV");
    jv.FieldByName("TransDate").SetAsDate(Date::FromYmd(year, period, 1 + draw.Below(28)));
    // Now and then a description the journal would misread if written as it stands.
    jv.FieldByName("TransDescription")
        .SetAsString(draw.OneIn(10) ? "Accrual; reversed  " + std::to_string(jvid)
                                    : "Voucher " + std::to_string(jvid));
    jv.FieldByName("JVAmount").SetAsMoney(debits);
    jv.FieldByName("Posted").SetAsBoolean(false);
    jv.FieldByName("AutoReverse").SetAsBoolean(draw.OneIn(8));
    jv.Post();
    int seq = 1;
    for (const auto& l : lines) {
        det.Insert();
        det.FieldByName("JVID").SetAsInteger(jvid);
        det.FieldByName("Seq").SetAsInteger(seq++);
        det.FieldByName("GLAccountID").SetAsInteger(l.Account);
        for (int level = 0; level < 3; ++level)
            if (l.Sub[level])
                det.FieldByName("SubAccount" + std::to_string(level + 1) + "ID")
                    .SetAsInteger(*l.Sub[level]);
        det.FieldByName("GLAmount").SetAsMoney(l.Amount);
        det.Post();
    }
}

} // namespace

int WriteUnpostedLedger(store::Database& db, const LedgerCompanyShape& shape) {
    Draw draw(shape.Seed);
    // One transaction: thousands of single-row commits would each wait for the disk.
    store::Transaction transaction(db,
                                   {"GLAccnt", "GLAcSub1", "GLAcSub2", "GLAcSub3", "JV", "JVDet"});
    WriteChart(db, shape);
    store::Table jv(db, "JV");
    store::Table det(db, "JVDet");
    jv.Open();
    det.Open();
    const int periods = 12 * shape.Years;
    for (int jvid = 1; jvid <= shape.Vouchers; ++jvid) {
        // Spread evenly, so that every period of every year has vouchers.
        const int slot = (jvid - 1) % periods;
        WriteVoucher(jv, det, jvid, shape.FirstYear + slot / 12, 1 + slot % 12, draw, shape);
    }
    transaction.Commit();
    return shape.Vouchers;
}

std::int64_t WritePostedLedger(store::Database& db, const LedgerCompanyShape& shape) {
    WriteUnpostedLedger(db, shape);
    return ledger::PostingRun(db).Run([](const std::string&) { return false; });
}

} // namespace corvane::testing
