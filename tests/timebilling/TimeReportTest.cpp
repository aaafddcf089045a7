#include "core/FormatSettings.h"
#include "reports/page/ReportDocument.h"
#include "reports/render/TextRenderer.h"
#include "support/GoldenFile.h"
#include "timebilling/TimeBillingFixture.h"
#include "timebilling/reports/TrptCustomerTimeDetail.h"
#include "timebilling/reports/TrptCustomerTimeSummary.h"
#include "timebilling/reports/TrptEmployeeTimeDetail.h"
#include "timebilling/reports/TrptEmployeeTimeSummary.h"
#include "timebilling/reports/TrptJobStatusReport.h"

#include <sstream>

using namespace corvane;
using namespace corvane::timebilling;

namespace {

// Two customers, two employees, three jobs (one finished), time over two weeks of March 2017.
class TimeReportTest : public corvane::testing::TimeBillingTest {
protected:
    void SetUp() override {
        TimeBillingTest::SetUp();
        saved_ = ProcessFormatSettings();
        ProcessFormatSettings() = FormatSettings{};
        InsertRow("Company",
                  {{"CompanyNo", 1}, {"CompanyName", "Time Test Co"}, {"FiscalYear", 2017}});
        AddMasters();
        AddCustomer(1, "C1", "Zenith Ltd");
        AddCustomer(2, "C2", "Acme Corp");
        AddTaskType(1, "Design", Money::FromWhole(90), "G");
        InsertRow("Job", {{"JobID", 1},
                          {"JobName", "Website"},
                          {"CustomerID", 1},
                          {"Priority", 2},
                          {"DueDate", Date::FromYmd(2017, 5, 1)},
                          {"DueDateEntered", "A"},
                          {"EstimatedPrice", Money::FromWhole(2500)},
                          {"FixedPrice", Money::FromCents(320050)},
                          {"Authorized", true},
                          {"Completed", false}});
        AddJob(2, 2, "Audit");
        AddJob(3, 2, "Old move", true, true);
        InsertRow("Task", {{"TaskID", 1},
                           {"JobID", 1},
                           {"LineNo", 1},
                           {"TaskName", "Layout"},
                           {"TaskTypeID", 1},
                           {"Completed", true},
                           {"EstimatedHours", 10.0}});
        InsertRow("Task", {{"TaskID", 2},
                           {"JobID", 1},
                           {"LineNo", 2},
                           {"TaskName", "Build"},
                           {"TaskTypeID", 1},
                           {"Completed", false},
                           {"EstimatedHours", 20.0},
                           {"DueDate", Date::FromYmd(2017, 4, 15)}});
        AddTask(3, 2, 1, "Ledgers", 1);
        AddTask(4, 3, 1, "Boxes", 1);
        const Date d6 = Date::FromYmd(2017, 3, 6), d7 = Date::FromYmd(2017, 3, 7),
                   d14 = Date::FromYmd(2017, 3, 14);
        AddTime(1, 1, 1, 1, d6, 3.5);
        AddTime(1, 1, 1, 1, d6, 1.25);
        AddTime(1, 1, 2, 2, d7, 6.0);
        AddTime(2, 2, 3, 1, d7, 2.0);
        AddTime(2, 2, 3, 2, d14, 4.75);
        AddTime(2, 3, 4, 2, d14, 8.0);
    }
    void TearDown() override {
        ProcessFormatSettings() = saved_;
        TimeBillingTest::TearDown();
    }
    static std::string Pages(reports::TrptBase& report) {
        report.QuickReport.PrintedAt = reports::ReportTimestamp{Date::FromYmd(2017, 4, 1), 9, 0, 0};
        report.Open();
        reports::ReportDocument document;
        report.QuickReport.Prepare(document);
        return reports::TextRenderer(reports::TextRenderer::PageBreak::PageMarker).Render(document);
    }
    static std::string LineWith(const std::string& text, const std::string& word) {
        std::istringstream lines(text);
        for (std::string line; std::getline(lines, line);)
            if (line.find(word) != std::string::npos) return line;
        return {};
    }
    FormatSettings saved_;
};

} // namespace

TEST(TimeReportOptionsText, ConditionsJoinBehindWhereThenAndInTheirOrder) {
    TimeReportOptions o;
    EXPECT_EQ(TimeConditions(o), "");
    o.DateTo = Date::FromYmd(2017, 3, 31);
    EXPECT_EQ(TimeConditions(o), " WHERE (T.WorkDate <= :DateTo)");
    o.DateFrom = Date::FromYmd(2017, 3, 1);
    o.EmployeeID = 2;
    o.CustomerID = 1;
    EXPECT_EQ(TimeConditions(o), " WHERE (T.WorkDate BETWEEN :DateFrom AND :DateTo) AND "
                                 "(T.EmployeeID = :EmployeeID) AND (T.CustomerID = :CustomerID)");
    o.DateTo.reset();
    EXPECT_EQ(TimeConditions(o, "TS", true), " AND (TS.WorkDate >= :DateFrom) AND "
                                             "(TS.EmployeeID = :EmployeeID) AND "
                                             "(TS.CustomerID = :CustomerID)");
}

TEST_F(TimeReportTest, EmployeeSummaryAddsEachDayAndTotalsByEmployee) {
    TrptEmployeeTimeSummary report(db_, {});
    const std::string pages = Pages(report);
    // Ann: 4.75 on the 6th, 2.00 on the 7th; Bob: 6.00, then 12.75 on the 14th. 25.50 in all.
    EXPECT_NE(LineWith(pages, "06 Mar 17").find("4.75"), std::string::npos) << pages;
    EXPECT_NE(LineWith(pages, "14 Mar 17").find("12.75"), std::string::npos) << pages;
    EXPECT_NE(LineWith(pages, "Report Totals:").find("25.50"), std::string::npos) << pages;
    corvane::testing::CompareWithGolden("timebilling", "employee-time-summary.txt", pages);
}

TEST_F(TimeReportTest, EmployeeDetailNarrowedByDatesAndEmployeeSaysSoInItsHeading) {
    TimeReportOptions o;
    o.DateFrom = Date::FromYmd(2017, 3, 7);
    o.DateTo = Date::FromYmd(2017, 3, 31);
    o.EmployeeID = 2;
    TrptEmployeeTimeDetail report(db_, o);
    const std::string pages = Pages(report);
    EXPECT_NE(pages.find("07 Mar 17 - 31 Mar 17"), std::string::npos) << pages;
    EXPECT_NE(pages.find("Employee: Bob Roy"), std::string::npos) << pages;
    EXPECT_EQ(pages.find("Ann Lee"), std::string::npos) << pages;
    EXPECT_NE(LineWith(pages, "Report Totals:").find("18.75"), std::string::npos) << pages;
    corvane::testing::CompareWithGolden("timebilling", "employee-time-detail.txt", pages);
}

TEST_F(TimeReportTest, CustomerSummaryAndDetailGroupByCustomerNameFirst) {
    TrptCustomerTimeSummary summary(db_, {});
    const std::string pages = Pages(summary);
    // Acme before Zenith: by name, not by number.
    EXPECT_LT(pages.find("Acme Corp"), pages.find("Zenith Ltd")) << pages;
    corvane::testing::CompareWithGolden("timebilling", "customer-time-summary.txt", pages);

    TimeReportOptions o;
    o.CustomerID = 1;
    o.DateTo = Date::FromYmd(2017, 3, 6);
    TrptCustomerTimeDetail detail(db_, o);
    const std::string narrowed = Pages(detail);
    EXPECT_NE(narrowed.find("To: 06 Mar 17"), std::string::npos) << narrowed;
    EXPECT_NE(narrowed.find("Customer: Zenith Ltd"), std::string::npos) << narrowed;
    EXPECT_NE(LineWith(narrowed, "Report Totals:").find("4.75"), std::string::npos) << narrowed;
    corvane::testing::CompareWithGolden("timebilling", "customer-time-detail.txt", narrowed);
}

TEST_F(TimeReportTest, JobStatusShowsUnfinishedJobsWithEstimatesAndRecordedHours) {
    TrptJobStatusReport report(db_, {});
    const std::string pages = Pages(report);
    EXPECT_EQ(pages.find("Old move"), std::string::npos) << pages;
    EXPECT_NE(LineWith(pages, "Layout").find("Yes"), std::string::npos) << pages;
    EXPECT_NE(LineWith(pages, "Build").find("6.00"), std::string::npos) << pages;
    // Priority 2 comes before priority 10; a price shows as money.
    EXPECT_LT(pages.find("Website"), pages.find("Audit")) << pages;
    EXPECT_NE(LineWith(pages, "Fixed:").find("3,200.50"), std::string::npos) << pages;
    corvane::testing::CompareWithGolden("timebilling", "job-status-report.txt", pages);
}
