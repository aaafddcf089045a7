#pragma once

#include "store/sql/Connection.h"
#include "ui/HeadlessApp.h"

#include <optional>
#include <string>
#include <vector>

namespace corvane::testing {

// A company with a small chart of accounts and vouchers written as the voucher forms and the
// subledgers write them, and read-backs of what posting left in the history and the totals.
class PostingTest : public UiCompanyTest {
protected:
    static constexpr int Rent = 1, Accruals = 2, Cash = 3;

    struct Line {
        int Account;
        Money Amount;
        std::optional<int> Sub1 = std::nullopt;
    };

    void SetUp() override {
        UiCompanyTest::SetUp();
        AddAccount(Rent, "5100", "Rent", 4);
        AddAccount(Accruals, "2100", "Accruals", 2);
        AddAccount(Cash, "1000", "Cash", 1);
        InsertRow("GLAcSub1",
                  {{"SubAccountID", 7}, {"SubAccount", "EAST"}, {"SubAccountName", "East"}});
    }

    void AddAccount(int id, const std::string& number, const std::string& name, int type) {
        InsertRow("GLAccnt", {{"GLAccountID", id},
                              {"GLAccount", number},
                              {"AccountName", name},
                              {"AccountType", type}});
    }

    // A voucher of source "GL" unless told otherwise; lines numbered from 1. A line whose
    // account is 0 is written with no account at all.
    void AddVoucher(int jvid, int year, int period, const std::vector<Line>& lines,
                    bool autoReverse = false, const std::string& source = "GL",
                    const std::string& type = "JV") {
        Money debits;
        for (const auto& l : lines)
            if (l.Amount > Money()) debits += l.Amount;
        InsertRow("JV",
                  {{"JVID", jvid},
                   {"GLYear", year},
                   {"GLPeriod", period},
                   {"JVNumber", 1000 + jvid},
                   {"Source", source},
                   {"TransType", type},
                   {"TransDate", Date::FromYmd(year, period < 1 || period > 12 ? 1 : period, 15)},
                   {"TransDescription", "Voucher " + std::to_string(jvid)},
                   {"JVAmount", debits},
                   {"Posted", false},
                   {"AutoReverse", autoReverse}});
        int seq = 1;
        for (const auto& l : lines) {
            std::vector<std::pair<std::string, store::Value>> row{
                {"JVID", jvid}, {"Seq", seq++}, {"GLAmount", l.Amount}};
            if (l.Account) row.push_back({"GLAccountID", l.Account});
            if (l.Sub1) row.push_back({"SubAccount1ID", *l.Sub1});
            InsertRow("JVDet", row);
        }
    }

    // One amount of the totals: nothing when the row or the amount is empty.
    std::optional<Money> Total(int account, int year, int period,
                               std::optional<int> sub1 = std::nullopt) {
        store::Statement s(db_.Conn(),
                           "SELECT Amount" + std::to_string(period) +
                               " FROM GLActual WHERE GLAccountID = ?1 AND GLYear = ?2 AND "
                               "SubAccount1ID IS ?3");
        s.Bind(1, store::Value(account));
        s.Bind(2, store::Value(year));
        s.Bind(3, sub1 ? store::Value(*sub1) : store::Value());
        if (!s.Step()) return std::nullopt;
        store::Value v = s.ColumnValue(0, store::FieldType::Currency);
        if (v.IsNull()) return std::nullopt;
        return v.Money();
    }

    bool HasTotalsRow(int account, int year) {
        return Count("SELECT count(*) FROM GLActual WHERE GLAccountID = " +
                     std::to_string(account) + " AND GLYear = " + std::to_string(year)) > 0;
    }

    // A count over the test's own fixed text; no user input goes in.
    std::int64_t Count(const std::string& sql) {
        store::Statement s(db_.Conn(), sql);
        s.Step();
        return s.ColumnInt(0);
    }

    bool Posted(int jvid) {
        return Count("SELECT count(*) FROM JV WHERE Posted = 1 AND JVID = " +
                     std::to_string(jvid)) == 1;
    }

    static Money M(std::int64_t whole) { return Money::FromWhole(whole); }
};

} // namespace corvane::testing
