#include "ARReportFixture.h"
#include "receivables/reports/TrptARHistory.h"
#include "receivables/reports/TrptARStatements.h"
#include "receivables/reports/TrptARStatementsInv.h"

using namespace corvane;
using namespace corvane::receivables;
using corvane::testing::ARReportTest;

namespace {

class StatementReport : public ARReportTest {
protected:
    ARReportOptions Options() const {
        ARReportOptions o;
        o.AsOf = AsOf();
        return o;
    }
};

TEST_F(StatementReport, AccountHistoryRunsTheBalanceThroughInvoicesAndPayments) {
    TrptARStatements report(db_, Options());
    int pages = 0;
    const std::string text = Pages(report, &pages);
    // Alpha, Beta and Gamma, each on a page of its own; Delta has nothing and gets none.
    EXPECT_EQ(pages, 3);
    EXPECT_EQ(LineWith(text, {"Delta"}), "");
    // Alpha from 0: 600 (106), 1,100, 1,500, 1,800, 2,000, 2,100, 2,180 (109), less the cash
    // payment of 78 with its discount of 2 = 2,100, less 150 on June 15 = 1,950. The unposted
    // invoice 108, the unposted payment and everything after June 30 stay out.
    EXPECT_EQ(Cells(LineWith(text, {"106 "})),
              (std::vector<std::string>{"31 Mar 18 106", "Invoice", "600.00", "600.00"}));
    EXPECT_EQ(LastCell(LineWith(text, {"109 "})), "2,180.00");
    EXPECT_EQ(Cells(LineWith(text, {"Cash"})),
              (std::vector<std::string>{"10 Jun 18", "Cash", "78.00", "2.00", "2,100.00"}));
    EXPECT_EQ(Cells(LineWith(text, {"CHQ1"})),
              (std::vector<std::string>{"15 Jun 18", "CHQ1", "Cheque", "150.00", "1,950.00"}));
    EXPECT_EQ(LineWith(text, {"108 "}), "");
    EXPECT_EQ(LineWith(text, {"107 "}), "");
    EXPECT_EQ(LineWith(text, {"CHQ2"}), "");
    EXPECT_EQ(LineWith(text, {"CHQ3"}), "");
    EXPECT_EQ(LineWith(text, {"Balance Forward"}), "");
    EXPECT_NE(LineWith(text, {"Thank you for your business."}), "");
    // Beta's credit note has no description of its own: -20, then 80 = 60 euros.
    EXPECT_EQ(Cells(LineWith(text, {"202 "})),
              (std::vector<std::string>{"15 May 18 202", "Credit Note", "(20.00)", "(20.00)"}));
    EXPECT_EQ(Cells(LineWith(text, {"Euros"})),
              (std::vector<std::string>{"Euros", "Balance", "60.00"}));
    // The address closes up: without a second line the city follows the first.
    EXPECT_NE(LineWith(text, {"Springfield, IL  62701"}), "");
    EXPECT_NE(LineWith(text, {"June 30, 2018"}), "");
    Golden("statements-account-history.txt", text);
}

TEST_F(StatementReport, ADateFromCarriesTheEarlierBalanceForward) {
    ARReportOptions o = Options();
    o.DateFrom = Date::FromYmd(2018, 5, 1);
    TrptARStatements report(db_, o);
    const std::string text = Pages(report);
    // Before May 1: 600 + 500 + 400 = 1,500, no payment.
    EXPECT_EQ(Cells(LineWith(text, {"Balance Forward"})),
              (std::vector<std::string>{"Balance Forward", "1,500.00"}));
    EXPECT_EQ(LineWith(text, {"106 "}), "");
    EXPECT_EQ(LastCell(LineWith(text, {"103 "})), "1,800.00");
    EXPECT_EQ(LastCell(LineWith(text, {"CHQ1"})), "1,950.00");
    // Gamma's only invoice came before May 1: its statement is the balance carried forward.
    EXPECT_NE(LineWith(text, {"Gamma SA"}), "");
    EXPECT_EQ(LineWith(text, {"301 "}), "");
}

TEST_F(StatementReport, OneCustomerGetsAStatementEvenWithoutTheStatementFlag) {
    InsertRow("Customer", {{"CustomerID", 9},
                           {"CustomerNo", "C9"},
                           {"CustomerName", "Zeta"},
                           {"CurrencyID", Dollars},
                           {"PrintStatement", false}});
    AddInvoice(901, 9, "2018-06-01", 10);
    TrptARStatements all(db_, Options());
    EXPECT_EQ(LineWith(Pages(all), {"Zeta"}), "");
    ARReportOptions o = Options();
    o.CustomerID = 9;
    TrptARStatements one(db_, o);
    EXPECT_EQ(LastCell(LineWith(Pages(one), {"901 "})), "10.00");
}

TEST_F(StatementReport, ACustomerOverflowingAPageRepeatsItsBlockAndCountsItsOwnPages) {
    for (int n = 0; n < 70; ++n)
        AddInvoice(500 + n, Beta, "2018-06-0" + std::to_string(1 + n % 9), 1);
    TrptARStatements report(db_, Options());
    int pages = 0;
    const std::string text = Pages(report, &pages);
    EXPECT_EQ(pages, 4); // Alpha, Beta over two pages, Gamma
    int betaBlocks = 0, pageTwo = 0;
    std::istringstream lines(text);
    for (std::string line; std::getline(lines, line);) {
        betaBlocks += line.find("Hauptstrasse 5") != std::string::npos;
        pageTwo += line.find("Page 2") != std::string::npos;
    }
    EXPECT_EQ(betaBlocks, 2);
    EXPECT_EQ(pageTwo, 1);
    EXPECT_EQ(LineWith(text, {"Page 3"}), "");
}

TEST_F(StatementReport, UnpaidInvoicesListWhatIsOpenWithThePaymentsUnderIt) {
    TrptARStatementsInv report(db_, Options());
    int pages = 0;
    const std::string text = Pages(report, &pages);
    EXPECT_EQ(pages, 3);
    // 106: 600, due April 30 (30 days), 450 owing; the payment of June 15 under it.
    EXPECT_EQ(
        Cells(LineWith(text, {"106 "})),
        (std::vector<std::string>{"31 Mar 18", "106", "Invoice", "600.00", "30 Apr 18", "450.00"}));
    EXPECT_NE(LineWith(text, {"6/15/2018 paid 150.00"}), "");
    // 105 was paid after the date: no line under it, the whole 500 owing.
    EXPECT_EQ(LineWith(text, {"7/5/2018"}), "");
    EXPECT_EQ(LastCell(LineWith(text, {"105 "})), "500.00");
    // 109 was settled (78 + 2 discount) and is gone.
    EXPECT_EQ(LineWith(text, {"109 "}), "");
    // Alpha: 450 + 500 + 400 + 300 + 200 + 100 = 1,950.00.
    EXPECT_EQ(LastCell(LineWith(text, {"Total owing", "1,950.00"})), "1,950.00");
    EXPECT_EQ(LastCell(LineWith(text, {"Total owing", "60.00"})), "60.00");
    // The second address line keeps its place before the city.
    EXPECT_NE(LineWith(text, {"Hinterhof"}), "");
    EXPECT_NE(LineWith(text, {"Berlin  10115"}), "");
    Golden("statements-unpaid-invoices.txt", text);
}

TEST_F(StatementReport, StatementThresholdsSkipCustomers) {
    ARReportOptions o = Options();
    o.Thresholds.MinOwing = Money::FromCents(6001); // Beta owes 60.00
    TrptARStatementsInv unpaid(db_, o);
    int pages = 0;
    std::string text = Pages(unpaid, &pages);
    EXPECT_EQ(pages, 2);
    EXPECT_EQ(LineWith(text, {"Beta"}), "");
    TrptARStatements history(db_, o);
    text = Pages(history, &pages);
    EXPECT_EQ(pages, 2);
    EXPECT_EQ(LineWith(text, {"Beta"}), "");
}

TEST_F(StatementReport, HistoryListsPostedInvoicesAndPaymentsWithCountsAndSums) {
    TrptARHistory report(db_, Options());
    const std::string text = Pages(report);
    // Invoices: Alpha 100 + 200 + 300 + 400 + 500 + 600 + 999 + 80 = 3,179, Beta 80 - 20,
    // Gamma 1,000: eleven for 4,239.00 (108 is not posted). Payments: 150 + 500 + 78 = 728.00,
    // with a discount of 2.00 (the unposted payment stays out).
    EXPECT_NE(LineWith(text, {"11 invoices 4,239.00"}), "");
    EXPECT_NE(LineWith(text, {"3 payments 728.00"}), "");
    EXPECT_NE(LineWith(text, {"   Discount taken 2.00"}), "");
    EXPECT_NE(LineWith(text, {"   Write-off 0.00"}), "");
    EXPECT_EQ(LineWith(text, {"108 "}), "");
    Golden("ar-history.txt", text);
}

TEST_F(StatementReport, HistoryNarrowsByPeriodOrDatesOnBothHalves) {
    ARReportOptions o;
    o.Year = 2018;
    o.Period = 6;
    TrptARHistory period(db_, o);
    std::string text = Pages(period);
    EXPECT_NE(LineWith(text, {"Period: 06/2018"}), "");
    // June: 109 (80) and 201 (80); the payments of June 10 and 15.
    EXPECT_NE(LineWith(text, {"2 invoices 160.00"}), "");
    EXPECT_NE(LineWith(text, {"2 payments 228.00"}), "");
    ARReportOptions year;
    year.Year = 2018;
    EXPECT_EQ(TrptARHistory::PeriodHeading(year), "Period: All 2018");
    o.Period = 11;
    EXPECT_EQ(TrptARHistory::PeriodHeading(o), "Period: 11/2018");

    ARReportOptions dates;
    dates.DateFrom = Date::FromYmd(2018, 7, 1);
    TrptARHistory after(db_, dates);
    text = Pages(after);
    // From July 1: invoice 107 and the payment of July 5.
    EXPECT_NE(LineWith(text, {"1 invoices 999.00"}), "");
    EXPECT_NE(LineWith(text, {"1 payments 500.00"}), "");
    dates.DateFrom.reset();
    dates.DateTo = Date::FromYmd(2018, 3, 31);
    dates.CurrencyID = Pesos;
    TrptARHistory before(db_, dates);
    text = Pages(before);
    EXPECT_NE(LineWith(text, {"1 invoices 1,000.00"}), "");
    EXPECT_NE(LineWith(text, {"0 payments 0.00"}), "");
}

} // namespace
