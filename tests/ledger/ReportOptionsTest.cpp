#include "ReportFixture.h"
#include "core/DisplayFormat.h"
#include "core/Exception.h"
#include "ledger/reports/LedgerReports.h"
#include "ledger/reports/ReportColumns.h"
#include "ledger/reports/TrptJVs.h"
#include "reports/run/ReportRegistry.h"
#include "store/Query.h"

using namespace corvane;
using corvane::testing::ReportTest;

namespace {

// The reports as the command line asks for them, by name and options, and the voucher list over
// more than one page.
class ReportOptions : public ReportTest {
protected:
    void SetUp() override {
        ReportTest::SetUp();
        ledger::RegisterLedgerReports(registry);
    }

    std::unique_ptr<reports::TrptBase>
    Make(const std::string& name, std::map<std::string, std::string, std::less<>> options) {
        const reports::ReportFactory* factory = registry.Find(name);
        if (!factory) throw std::runtime_error("no report " + name);
        reports::ReportRequest request;
        request.Options = std::move(options);
        return (*factory)(db_, request);
    }

    // The message the factory or the report's opening raises; empty when none.
    std::string Refusal(const std::string& name,
                        std::map<std::string, std::string, std::less<>> options) {
        try {
            auto report = Make(name, std::move(options));
            report->Open();
        } catch (const Exception& e) {
            return e.what();
        }
        return {};
    }

    // The amount on the line that begins with the label (after the margin), as printed.
    static std::string AmountAfter(const std::string& text, const std::string& label) {
        std::istringstream lines(text);
        std::string found;
        for (std::string line; std::getline(lines, line);) {
            const auto first = line.find_first_not_of(' ');
            if (first == std::string::npos || line.compare(first, label.size(), label) != 0)
                continue;
            const auto last = line.find_last_not_of(' ');
            const auto start = line.find_last_of(' ', last);
            found = line.substr(start + 1, last - start);
        }
        return found;
    }

    reports::ReportRegistry registry;
};

TEST_F(ReportOptions, ThreePagesOfVouchersTotalTheirAmounts) {
    // Amounts of every size, a few cents each way, so that a lost or doubled row shows.
    Money sum;
    store::Transaction tx(db_, {"JV", "JVDet"});
    for (int id = 1; id <= 130; ++id) {
        const Money amount = Money::FromCents(static_cast<std::int64_t>(id) * 100003 % 9999991 + 1);
        AddVoucher(id, 2017, 1 + id % 12, {{Cash, amount}, {Sales, Money() - amount}});
        sum += amount;
    }
    tx.Commit();
    store::Query stored(db_, "SELECT SUM(JVAmount) AS Total FROM JV");
    stored.Open();
    ASSERT_EQ(stored.FieldByName("Total").AsMoney(), sum);

    ledger::TrptJVs report(db_);
    int pages = 0;
    const std::string text = Pages(report, &pages);
    ASSERT_EQ(pages, 3);
    for (int n = 1; n <= 3; ++n)
        EXPECT_EQ(LinesWith(text, "Page " + std::to_string(n) + " of 3"), 1) << n;
    EXPECT_EQ(LinesWith(text, "Voucher "), 130);
    EXPECT_EQ(AmountAfter(text, "Total"), FormatMoney(ledger::kSignedAmountMask, sum));
    // The total stands once, on the last page.
    EXPECT_GT(text.find("Total"), text.find("---- page 3 ----"));
}

TEST_F(ReportOptions, VoucherListNarrowsToTheYearAndPeriodAsked) {
    AddVoucher(1, 2017, 3, {{Cash, M(100)}, {Sales, M(-100)}});
    AddVoucher(2, 2017, 4, {{Cash, M(7)}, {Sales, M(-7)}});
    AddVoucher(3, 2018, 4, {{Cash, M(9)}, {Sales, M(-9)}});

    auto year = Make("JVs", {{"year", "2017"}});
    std::string text = Pages(*year);
    EXPECT_EQ(LinesWith(text, "Voucher "), 2);
    EXPECT_EQ(AmountAfter(text, "Total"), "107.00");

    auto period = Make("JVs", {{"year", "2017"}, {"period", "4"}});
    text = Pages(*period);
    EXPECT_EQ(LinesWith(text, "Voucher "), 1);
    EXPECT_EQ(LinesWith(text, "Voucher 2"), 1);

    EXPECT_EQ(LinesWith(Pages(*Make("JVs", {})), "Voucher "), 3);
}

TEST_F(ReportOptions, OneVoucherByItsIdOrByItsNumberInAPeriod) {
    AddVoucher(1, 2017, 3, {{Cash, M(100)}, {Sales, M(-100)}});
    AddVoucher(2, 2017, 4, {{Rent, M(40), 7}, {Accruals, M(-40)}});

    auto byId = Make("JV", {{"jvid", "2"}});
    EXPECT_EQ(LinesWith(Pages(*byId), "5100-EAST"), 1);
    EXPECT_EQ(byId->QuickReport.ReportTitle, "JV:  1002");

    auto byNumber = Make("JV", {{"number", "1001"}, {"year", "2017"}, {"period", "3"}});
    const std::string text = Pages(*byNumber);
    EXPECT_EQ(byNumber->QuickReport.ReportTitle, "JV:  1001");
    EXPECT_EQ(AmountAfter(text, "Totals"), "100.00");

    EXPECT_EQ(Refusal("JV", {{"number", "1001"}, {"year", "2017"}, {"period", "4"}}),
              "There is no JV 1001 in period 4/2017.");
    EXPECT_EQ(Refusal("JV", {{"number", "1001"}}),
              "JV needs --jvid, or --number with --year and --period.");
}

TEST_F(ReportOptions, OptionsThatAreNoNumbersOrNoPeriodAreRefused) {
    EXPECT_EQ(Refusal("JVs", {{"year", "20x7"}}), "--year takes a whole number, not '20x7'.");
    EXPECT_EQ(Refusal("JVs", {{"period", "3"}}), "--period needs --year.");
    EXPECT_EQ(Refusal("GLHistory", {{"year", "2017"}, {"period", "14"}}),
              "--period 14 is not a period.");
    EXPECT_EQ(Refusal("GLBalances", {{"year", "17"}}), "--year 17 is not a year.");
    EXPECT_EQ(Refusal("GLAccounts", {}), "");
}

TEST_F(ReportOptions, HistoryAndTotalsNarrowToTheYearAsked) {
    AddVoucher(1, 2017, 3, {{Cash, M(100)}, {Sales, M(-100)}});
    AddVoucher(2, 2018, 2, {{Rent, M(40)}, {Accruals, M(-40)}});
    PostAll();

    std::string history = Pages(*Make("GLHistory", {{"year", "2018"}}));
    EXPECT_EQ(LinesWith(history, "Voucher "), 2);
    EXPECT_EQ(LinesWith(history, "Voucher 2"), 2);
    history = Pages(*Make("GLHistory", {{"year", "2017"}, {"period", "2"}}));
    EXPECT_EQ(history, "") << "no lines, no pages";

    const std::string totals = Pages(*Make("GLBalances", {{"year", "2018"}}));
    EXPECT_EQ(LinesWith(totals, "Rent"), 1);
    EXPECT_EQ(LinesWith(totals, "Cash"), 0);
    EXPECT_EQ(LinesWith(Pages(*Make("GLBalances", {})), "Cash"), 1);
}

} // namespace
