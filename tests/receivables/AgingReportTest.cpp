#include "ARReportFixture.h"
#include "receivables/domain/Aging.h"
#include "receivables/reports/TrptAgedTrialBalance.h"

using namespace corvane;
using namespace corvane::receivables;
using corvane::testing::ARReportTest;

namespace {

class AgingReport : public ARReportTest {
protected:
    ARReportOptions Options() const {
        ARReportOptions o;
        o.AsOf = AsOf();
        return o;
    }
    std::string Aged(const ARReportOptions& o, int* pages = nullptr) {
        TrptAgedTrialBalance report(db_, o);
        return Pages(report, pages);
    }
};

TEST(AgingRules, AgeColumnsTurnAfterThirtySixtyAndNinetyDays) {
    EXPECT_EQ(AgeColumn(0), 1);
    EXPECT_EQ(AgeColumn(30), 1);
    EXPECT_EQ(AgeColumn(31), 2);
    EXPECT_EQ(AgeColumn(60), 2);
    EXPECT_EQ(AgeColumn(61), 3);
    EXPECT_EQ(AgeColumn(90), 3);
    EXPECT_EQ(AgeColumn(91), 4);
    // An invoice dated after the day it is aged on is as young as can be.
    EXPECT_EQ(AgeColumn(-3), 1);
}

TEST(AgingRules, DomesticAmountsRoundToTheCentAndARateOfZeroLeavesTheAmount) {
    // 80.00 euros at 1.25 = 100.00; 0.01 at 1.5 = 0.015, half away from zero 0.02.
    EXPECT_EQ(DomesticAmount(Money::FromWhole(80), 1.25), Money::FromWhole(100));
    EXPECT_EQ(DomesticAmount(Money::FromCents(1), 1.5), Money::FromCents(2));
    EXPECT_EQ(DomesticAmount(Money::FromCents(-1), 1.5), Money::FromCents(-2));
    EXPECT_EQ(DomesticAmount(Money::FromUnits(12345), 0.0), Money::FromUnits(12345));
}

TEST(AgingRules, ThresholdsCompareWithTheCustomersPresentSumAndOldestInvoice) {
    const Date asOf = Date::FromYmd(2018, 6, 30);
    CustomerOpenSum sum{Money::FromWhole(60), Date::FromYmd(2018, 5, 15)}; // 46 days old
    EXPECT_TRUE((AgingThresholds{Money::FromWhole(60), 0}.Pass(&sum, asOf)));
    EXPECT_FALSE((AgingThresholds{Money::FromCents(6001), 0}.Pass(&sum, asOf)));
    EXPECT_TRUE((AgingThresholds{Money(), 46}.Pass(&sum, asOf)));
    EXPECT_FALSE((AgingThresholds{Money(), 47}.Pass(&sum, asOf)));
    // With both off everyone passes, even a customer with nothing open.
    EXPECT_TRUE((AgingThresholds{}.Pass(nullptr, asOf)));
    EXPECT_FALSE((AgingThresholds{Money::FromCents(1), 0}.Pass(nullptr, asOf)));
    EXPECT_FALSE((AgingThresholds{Money(), 1}.Pass(nullptr, asOf)));
}

TEST(AgingRules, OptionRangesGiveTheirOwnSentences) {
    EXPECT_FALSE(CheckMinOwing(Money()));
    EXPECT_FALSE(CheckMinOwing(Money::FromWhole(100000)));
    EXPECT_EQ(CheckMinOwing(Money::FromCents(10000001)).value_or(""),
              "Min Owing must be between 0 and 100,000.00");
    EXPECT_EQ(CheckMinOwing(Money::FromCents(-1)).value_or(""),
              "Min Owing must be between 0 and 100,000.00");
    EXPECT_FALSE(CheckMinDaysOld(100));
    EXPECT_EQ(CheckMinDaysOld(101).value_or(""), "Min Days Old must be between 0 and 100");
    EXPECT_FALSE(CheckPeriod(12));
    EXPECT_EQ(CheckPeriod(13).value_or(""), "Period must be between 1 and 12 if selected");
    EXPECT_EQ(CheckPeriod(0).value_or(""), "Period must be between 1 and 12 if selected");
}

TEST_F(AgingReport, EachInvoiceFallsInTheColumnOfItsAgeAsOfTheDate) {
    const std::string text = Aged(Options());
    // Ages 30 and 31, 60 and 61, 90 and 91 on either side of each turn.
    EXPECT_EQ(Cells(LineWith(text, {"101 "})),
              (std::vector<std::string>{"101", "31 May 18", "30", "100.00", "100.00", "0.00",
                                        "0.00", "0.00"}));
    EXPECT_EQ(Cells(LineWith(text, {"102 "})),
              (std::vector<std::string>{"102", "30 May 18", "31", "200.00", "0.00", "200.00",
                                        "0.00", "0.00"}));
    EXPECT_EQ(Cell(LineWith(text, {"103 "}), 5), "300.00");
    EXPECT_EQ(Cell(LineWith(text, {"104 "}), 6), "400.00");
    EXPECT_EQ(Cell(LineWith(text, {"105 "}), 6), "500.00");
    // 106: 600 less the 150 paid on June 15.
    EXPECT_EQ(Cells(LineWith(text, {"106 "})),
              (std::vector<std::string>{"106", "31 Mar 18", "91", "450.00", "0.00", "0.00", "0.00",
                                        "450.00"}));
}

TEST_F(AgingReport, WhatTheDateDidNotYetKnowStaysOutAndWhatItKnewStaysIn) {
    const std::string text = Aged(Options());
    // 107 is dated after June 30, 108 is not posted, 109 was paid in full on June 10.
    EXPECT_EQ(LineWith(text, {"107 "}), "");
    EXPECT_EQ(LineWith(text, {"108 "}), "");
    EXPECT_EQ(LineWith(text, {"109 "}), "");
    // 105 was paid on July 5: its stored Owing is 0, yet on June 30 it was open in full. The
    // unposted payment of 200 on 104 takes nothing off.
    EXPECT_EQ(Cell(LineWith(text, {"105 "}), 3), "500.00");
    EXPECT_EQ(Cell(LineWith(text, {"104 "}), 3), "400.00");

    // On June 9, before the payments of June 10 and 15, 106 still owes all its 600.
    ARReportOptions before = Options();
    before.AsOf = Date::FromYmd(2018, 6, 9);
    const std::string earlier = Aged(before);
    EXPECT_EQ(Cell(LineWith(earlier, {"106 "}), 3), "600.00");
    EXPECT_EQ(Cell(LineWith(earlier, {"106 "}), 2), "70");
    // 109 was still open then, and 201 of June 10 not yet written.
    EXPECT_EQ(Cell(LineWith(earlier, {"109 "}), 3), "80.00");
    EXPECT_EQ(LineWith(earlier, {"201 "}), "");
    EXPECT_NE(LineWith(earlier, {"As of Jun 9, 2018"}), "");
}

TEST_F(AgingReport, CustomerSumsInTheirCurrencyDomesticLinesAndDomesticReportTotals) {
    int pages = 0;
    const std::string text = Aged(Options(), &pages);
    EXPECT_EQ(pages, 1);
    // Alpha: 100 | 200 + 300 | 400 + 500 | 450 = 1,950.00; at rate 1 the domestic line is the
    // same.
    EXPECT_EQ(
        Cells(LineWith(text, {"Total", "1,950.00"})),
        (std::vector<std::string>{"Total", "1,950.00", "100.00", "500.00", "900.00", "450.00"}));
    // Beta in euros: 80.00 at 20 days, the credit note -20.00 at 46 days; at 1.25 that is
    // 100.00 and (25.00).
    EXPECT_EQ(Cells(LineWith(text, {"Total", "60.00"})),
              (std::vector<std::string>{"Total", "60.00", "80.00", "(20.00)", "0.00", "0.00"}));
    EXPECT_EQ(Cells(LineWith(text, {"Total (domestic)", "75.00"})),
              (std::vector<std::string>{"Total (domestic)", "75.00", "100.00", "(25.00)", "0.00",
                                        "0.00"}));
    // Gamma's pesos have no rate: no domestic line, the 1,000.00 goes in as it stands.
    // Totals: 1,950 + 75 + 1,000 = 3,025.00; 100 + 100 = 200; 500 - 25 = 475; 900; 450 + 1,000.
    EXPECT_EQ(Cells(LineWith(text, {"Report Totals (Domestic):"})),
              (std::vector<std::string>{"Report Totals (Domestic):", "3,025.00", "200.00", "475.00",
                                        "900.00", "1,450.00"}));
    // Two domestic lines: Alpha's and Beta's.
    int domestic = 0;
    std::istringstream lines(text);
    for (std::string line; std::getline(lines, line);)
        domestic += line.find("Total (domestic)") != std::string::npos;
    EXPECT_EQ(domestic, 2);
    Golden("aged-receivables.txt", text);
}

TEST_F(AgingReport, ACustomerWithoutARateLeavesNothingInTheNextCustomersDomesticLine) {
    // Gamma (no rate) sorts between Beta and Hotel; Hotel's domestic line is its own 10.00.
    InsertRow("Customer", {{"CustomerID", 8},
                           {"CustomerNo", "C8"},
                           {"CustomerName", "Hotel Ltd"},
                           {"CurrencyID", Dollars}});
    AddInvoice(801, 8, "2018-06-20", 10);
    const std::string text = Aged(Options());
    EXPECT_EQ(
        Cells(LineWith(text, {"Total (domestic)", "10.00"})),
        (std::vector<std::string>{"Total (domestic)", "10.00", "10.00", "0.00", "0.00", "0.00"}));
    EXPECT_EQ(Cell(LineWith(text, {"Report Totals (Domestic):"}), 1), "3,035.00");
}

TEST_F(AgingReport, WithoutAnyRateTheTotalsAreNotCalledDomestic) {
    ARReportOptions o = Options();
    o.CurrencyID = Pesos;
    const std::string text = Aged(o);
    EXPECT_NE(LineWith(text, {"Currency: Pesos"}), "");
    EXPECT_EQ(LineWith(text, {"Alpha"}), "");
    EXPECT_EQ(Cells(LineWith(text, {"Report Totals:"})),
              (std::vector<std::string>{"Report Totals:", "1,000.00", "0.00", "0.00", "0.00",
                                        "1,000.00"}));
}

TEST_F(AgingReport, MinOwingEqualToTheCustomersSumKeepsItAndACentMoreDropsIt) {
    // Beta's present open sum is 80.00 - 20.00 = 60.00.
    ARReportOptions o = Options();
    o.Thresholds.MinOwing = Money::FromWhole(60);
    std::string text = Aged(o);
    EXPECT_NE(LineWith(text, {"Beta GmbH"}), "");
    EXPECT_NE(LineWith(text, {"Min Owing: 60.00"}), "");
    o.Thresholds.MinOwing = Money::FromCents(6001);
    text = Aged(o);
    EXPECT_EQ(LineWith(text, {"Beta GmbH"}), "");
    EXPECT_EQ(LineWith(text, {"Total", "75.00"}), "");
    EXPECT_NE(LineWith(text, {"Alpha Ltd"}), "");
    // The totals leave Beta out too: 1,950 + 1,000.
    EXPECT_EQ(Cell(LineWith(text, {"Report Totals"}), 1), "2,950.00");
}

TEST_F(AgingReport, MinOwingReadsThePresentSumEvenForAPastDate) {
    // On January 31 Alpha owed nothing yet (its first invoice is of March 31) and Gamma 1,000;
    // today Alpha's open invoices come to 100 + 200 + 300 + 400 + 450 + 999 + 50 = 2,499.00, and
    // Gamma's 1,000.00. A minimum of 1,500 hides Gamma, who owed at that date.
    ARReportOptions o = Options();
    o.AsOf = Date::FromYmd(2018, 1, 31);
    o.Thresholds.MinOwing = Money::FromWhole(1500);
    const std::string text = Aged(o);
    EXPECT_EQ(LineWith(text, {"Gamma"}), "");
    o.Thresholds.MinOwing = Money();
    EXPECT_NE(LineWith(Aged(o), {"Gamma"}), "");
}

TEST_F(AgingReport, MinDaysOldReadsTheOldestOpenInvoice) {
    // Beta's oldest open invoice (the credit note of May 15) is 46 days old on June 30.
    ARReportOptions o = Options();
    o.Thresholds.MinDaysOld = 46;
    EXPECT_NE(LineWith(Aged(o), {"Beta GmbH"}), "");
    o.Thresholds.MinDaysOld = 47;
    const std::string text = Aged(o);
    EXPECT_EQ(LineWith(text, {"Beta GmbH"}), "");
    EXPECT_NE(LineWith(text, {"Min Days Old: 47"}), "");
    EXPECT_NE(LineWith(text, {"Alpha Ltd"}), "");
}

TEST_F(AgingReport, ABalanceWithinATenThousandthIsPaid) {
    // Owing 0.0001 drops out; 0.0002 stays, in its column.
    AddInvoice(401, Delta, "2018-06-01", 10);
    AddInvoice(402, Delta, "2018-06-01", 10);
    InsertRow("ARPmt", {{"PaymentID", 9},
                        {"CustomerID", Delta},
                        {"BankID", 1},
                        {"PaymentDate", Date::FromYmd(2018, 6, 2)},
                        {"Posted", true}});
    InsertRow("ARInvPmt",
              {{"ARInvoiceID", 401}, {"PaymentID", 9}, {"PaymentAmount", Money::FromUnits(99999)}});
    InsertRow("ARInvPmt",
              {{"ARInvoiceID", 402}, {"PaymentID", 9}, {"PaymentAmount", Money::FromUnits(99998)}});
    const std::string text = Aged(Options());
    EXPECT_EQ(LineWith(text, {"401 "}), "") << text;
    EXPECT_EQ(Cell(LineWith(text, {"402 "}), 3), "0.00") << text;
}

TEST_F(AgingReport, SalesmanAndCustomerNarrowTheRows) {
    ARReportOptions o = Options();
    o.SalesmanID = 1;
    std::string text = Aged(o);
    EXPECT_NE(LineWith(text, {"Salesman: Sam Seller"}), "");
    EXPECT_NE(LineWith(text, {"Alpha Ltd   555-0101"}), "");
    EXPECT_EQ(LineWith(text, {"Beta"}), "");
    o = Options();
    o.CustomerID = Beta;
    text = Aged(o);
    EXPECT_NE(LineWith(text, {"Customer: Beta GmbH"}), "");
    EXPECT_EQ(LineWith(text, {"Alpha"}), "");
    EXPECT_EQ(Cell(LineWith(text, {"Report Totals (Domestic):"}), 1), "75.00");
}

TEST_F(AgingReport, TheSummaryPrintsOneLineForEachCustomer) {
    TrptAgedReceivablesSummary report(db_, Options());
    const std::string text = Pages(report);
    EXPECT_EQ(LineWith(text, {"31 May 18"}), "");
    EXPECT_EQ(Cells(LineWith(text, {"Alpha Ltd"})),
              (std::vector<std::string>{"Alpha Ltd", "555-0101", "1,950.00", "100.00", "500.00",
                                        "900.00", "450.00"}));
    EXPECT_EQ(Cell(LineWith(text, {"Report Totals (Domestic):"}), 1), "3,025.00");
    Golden("aged-receivables-summary.txt", text);
}

} // namespace
