#include "core/FormatSettings.h"
#include "reports/page/ReportDocument.h"
#include "reports/render/TextRenderer.h"
#include "timebilling/TimeBillingFormsFixture.h"
#include "timebilling/forms/TfrmJobs.h"
#include "timebilling/forms/TfrmJobsFilter.h"
#include "timebilling/reports/TrptJobs.h"
#include "ui/FormDriver.h"

using namespace corvane;
using namespace corvane::timebilling;
using corvane::ui::FormDriver;

namespace {

// Acme's jobs at priorities 1, 5 and 10 (one of them not yet authorized, one done, one led by
// Bob), and a job of Bolt's at priority 2.
class JobsFilterTest : public corvane::testing::TimeBillingFormsTest {
protected:
    void SetUp() override {
        TimeBillingFormsTest::SetUp();
        saved_ = ProcessFormatSettings();
        ProcessFormatSettings() = FormatSettings{};
        InsertRow("Company", {{"CompanyNo", 1}, {"CompanyName", "Jobs Co"}, {"FiscalYear", 2017}});
        Job(1, 1, "Roof", 1, Date::FromYmd(2017, 6, 1), true, false, 2);
        Job(2, 1, "Fence", 5, std::nullopt, true, false, 1);
        Job(3, 1, "Shed", 10, Date::FromYmd(2017, 5, 1), false, false, 1);
        Job(4, 1, "Gate", 3, Date::FromYmd(2017, 4, 1), true, true, 1);
        Job(5, 2, "Drain", 2, Date::FromYmd(2017, 7, 1), true, false, 1);
    }
    void TearDown() override {
        ProcessFormatSettings() = saved_;
        TimeBillingFormsTest::TearDown();
    }
    void Job(int id, int customer, const std::string& name, int priority, std::optional<Date> due,
             bool authorized, bool completed, int leader) {
        InsertRow("Job", {{"JobID", id},
                          {"JobName", name},
                          {"CustomerID", customer},
                          {"Priority", priority},
                          {"DueDate", due ? store::Value(*due) : store::Value()},
                          {"DueDateEntered", due ? "A" : "B"},
                          {"Authorized", authorized},
                          {"Completed", completed},
                          {"ProjectLeaderID", leader}});
    }
    TfrmJobs& List() {
        auto& list = app.CreateForm<TfrmJobs>(db_);
        list.Show();
        return list;
    }
    static std::string Pages(reports::TrptBase& report) {
        report.QuickReport.PrintedAt = reports::ReportTimestamp{Date::FromYmd(2017, 4, 1), 9, 0, 0};
        report.Open();
        reports::ReportDocument document;
        report.QuickReport.Prepare(document);
        return reports::TextRenderer(reports::TextRenderer::PageBreak::PageMarker).Render(document);
    }
    // The job names in the order the text names them.
    static std::string Order(const std::string& pages) {
        std::vector<std::pair<std::size_t, std::string>> found;
        for (const char* name : {"Roof", "Fence", "Shed", "Gate", "Drain"})
            if (auto at = pages.find(name); at != std::string::npos) found.emplace_back(at, name);
        std::sort(found.begin(), found.end());
        std::string order;
        for (const auto& [at, name] : found)
            order += (order.empty() ? "" : ",") + name;
        return order;
    }
    FormatSettings saved_;
};

} // namespace

TEST_F(JobsFilterTest, LowestPriorityBoxStepsFromTenAndReadsAllWhenOff) {
    auto& list = List();
    host.ScriptModal("frmJobsFilter", [](ui::Form& f) {
        FormDriver d(f);
        EXPECT_EQ(d.Text("spnPriority"), "<All>");
        EXPECT_FALSE(d.Enabled("spnPriority"));
        d.SetChecked("chkAllPriorities", false);
        EXPECT_EQ(d.Text("spnPriority"), "10");
        d.PressKey("spnPriority", ui::Key::Down);
        d.PressKey("spnPriority", ui::Key::Down);
        d.PressKey("spnPriority", ui::Key::Down);
        d.PressKey("spnPriority", ui::Key::Down);
        d.PressKey("spnPriority", ui::Key::Down);
        EXPECT_EQ(d.Text("spnPriority"), "5");
        d.Choose("cboCustomer", "Acme");
        d.Click("btnOK");
    });
    FormDriver(list).Click("mnuFilter");
    EXPECT_EQ(list.tblJob.Filter(), "(CustomerID = 1) AND (Priority <= 5)");
    EXPECT_EQ(list.Caption, "Jobs (Filtered)");
    EXPECT_EQ(list.tblJob.RecordCount(), 3); // Roof, Fence, Gate

    // Cancel keeps the priority in force; Reset turns it off again.
    host.ScriptModal("frmJobsFilter", [](ui::Form& f) {
        FormDriver d(f);
        EXPECT_EQ(d.Text("spnPriority"), "5");
        d.SetChecked("chkAllPriorities", true);
        d.Click("btnCancel");
    });
    FormDriver(list).Click("mnuFilter");
    EXPECT_EQ(list.tblJob.Filter(), "(CustomerID = 1) AND (Priority <= 5)");
    host.ScriptModal("frmJobsFilter", [](ui::Form& f) {
        FormDriver d(f);
        EXPECT_EQ(d.Text("spnPriority"), "5");
        d.Click("btnReset");
        EXPECT_EQ(d.Text("spnPriority"), "<All>");
        d.Click("btnOK");
    });
    FormDriver(list).Click("mnuFilter");
    EXPECT_FALSE(list.tblJob.Filtered());
    EXPECT_EQ(list.Caption, "Jobs");
}

TEST_F(JobsFilterTest, PrintReadsTheListsConditionsAndNotesEachInTheHeading) {
    auto& list = List();
    host.ScriptModal("frmJobsFilter", [](ui::Form& f) {
        FormDriver d(f);
        d.Choose("cboCustomer", "Acme");
        d.Choose("cboProjectLeader", "Ann Lee");
        d.SetChecked("chkAllPriorities", false);
        d.Choose("rgpAuthorized", "Yes");
        d.Click("btnOK");
    });
    FormDriver(list).Click("mnuFilter");
    JobsReportOptions options = list.ReportOptions();
    EXPECT_EQ(JobsStatement(options),
              "SELECT J.*, C.CustomerName FROM Job J INNER JOIN Customer C ON J.CustomerID = "
              "C.CustomerID WHERE (1 = 1) AND (ProjectLeaderID = :ProjectLeaderID) AND "
              "(J.CustomerID = :CustomerID) AND (Priority >0) AND (Priority <= :LowestPriority) "
              "AND (Authorized = true) ORDER BY J.Priority, J.DueDateEntered, J.DueDate");
    TrptJobs report(db_, options);
    const std::string pages = Pages(report);
    for (const char* note : {"     Project Leader: Ann Lee", "     Customer: Acme",
                             "     Min Priority: 10", "     OK to Proceed: Yes"})
        EXPECT_NE(pages.find(note), std::string::npos) << note << "\n" << pages;
    // Roof is Bob's, Shed not authorized, Drain Bolt's.
    EXPECT_EQ(Order(pages), "Gate,Fence") << pages;
    // What the list shows is what prints.
    EXPECT_EQ(list.tblJob.RecordCount(), 2);
}

TEST_F(JobsFilterTest, PrintFollowsTheSortAndTheOutstandingViewDatedJobsFirst) {
    auto& list = List();
    FormDriver d(list);
    {
        TrptJobs report(db_, list.ReportOptions());
        const std::string pages = Pages(report);
        EXPECT_EQ(Order(pages), "Roof,Drain,Gate,Fence,Shed") << pages;
        EXPECT_EQ(pages.find("Min Priority"), std::string::npos) << pages;
    }
    d.Click("mnuOutstanding");
    d.Click("mnuSortDueDate");
    JobsReportOptions options = list.ReportOptions();
    EXPECT_TRUE(options.Outstanding);
    EXPECT_TRUE(options.ByDueDate);
    TrptJobs report(db_, options);
    const std::string pages = Pages(report);
    // The undated Fence after every dated job; Gate is done.
    EXPECT_EQ(Order(pages), "Shed,Roof,Drain,Fence") << pages;
    EXPECT_NE(pages.find("Jobs (Outstanding)"), std::string::npos) << pages;
    // With the priority narrowed, a job of priority 0 (none given) stays out.
    InsertRow("Job", {{"JobID", 6},
                      {"JobName", "Zero"},
                      {"CustomerID", 2},
                      {"Priority", 0},
                      {"DueDateEntered", "B"},
                      {"Authorized", true},
                      {"Completed", false}});
    options.LowestPriority = 3;
    TrptJobs narrowed(db_, options);
    const std::string few = Pages(narrowed);
    EXPECT_EQ(Order(few), "Roof,Drain") << few;
    EXPECT_EQ(few.find("Zero"), std::string::npos) << few;
}
