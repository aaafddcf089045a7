#include "timebilling/TimeBillingFormsFixture.h"
#include "timebilling/forms/TfrmJobs.h"
#include "timebilling/forms/TfrmTimeSheets.h"
#include "timebilling/forms/TfrmTimeSheetsFilter.h"
#include "ui/FormDriver.h"
#include "ui/ScriptError.h"

using namespace corvane;
using namespace corvane::timebilling;
using corvane::ui::FormDriver;

namespace {

// Acme's jobs Site and Yard, Bolt's Shop; time of both employees, some of it billed on 10007.
class TimeSheetsFilterTest : public corvane::testing::TimeBillingFormsTest {
protected:
    void SetUp() override {
        TimeBillingFormsTest::SetUp();
        AddJob(1, 1, "Site");
        AddJob(2, 1, "Yard");
        AddJob(3, 2, "Shop");
        AddTask(1, 1, 1, "Draw", 1);
        AddTask(2, 2, 1, "Dig", 1);
        AddTask(3, 3, 1, "Weld", 1);
        const Date d = Date::FromYmd(2017, 3, 6);
        AddTime(1, 1, 1, 1, d, 1.0, "10007");
        AddTime(1, 1, 1, 1, d, 2.0);
        AddTime(1, 1, 1, 2, d, 3.0);
        AddTime(1, 2, 2, 1, d, 4.0);
        AddTime(2, 3, 3, 1, d, 5.0, "10007");
    }
    TfrmTimeSheets& List() {
        auto& list = app.CreateForm<TfrmTimeSheets>(db_);
        list.Show();
        return list;
    }
};

} // namespace

TEST_F(TimeSheetsFilterTest, CriteriaJoinTheOutstandingViewAndTheJobsFollowTheCustomer) {
    auto& list = List();
    FormDriver d(list);
    EXPECT_EQ(list.tblTimeSht.RecordCount(), 3);
    host.ScriptModal("frmTimeSheetsFilter", [](ui::Form& f) {
        FormDriver s(f);
        // Bolt's job is offered until a customer is chosen, then only that customer's jobs.
        s.Choose("cboJob", "Shop");
        s.Choose("cboCustomer", "Acme");
        EXPECT_EQ(s.Text("cboJob"), "") << "Shop is not Acme's";
        EXPECT_THROW(s.Choose("cboJob", "Shop"), ui::ScriptError);
        s.Choose("cboJob", "Site");
        s.Choose("cboEmployee", "Ann Lee");
        s.Click("btnOK");
    });
    d.PressKey(ui::ParseShortCut("Ctrl+F"));
    EXPECT_EQ(list.tblTimeSht.Filter(),
              "(EmployeeID = 1) AND (JobID = 1) AND (CustomerID = 1) AND (InvoiceNo = null)");
    EXPECT_EQ(list.Caption, "Time Sheets (Outstanding, Filtered)");
    EXPECT_EQ(list.tblTimeSht.RecordCount(), 1); // the 2 hours; the hour is billed
    d.Click("mnuOutstanding");
    EXPECT_EQ(list.Caption, "Time Sheets (Filtered)");
    EXPECT_EQ(list.tblTimeSht.RecordCount(), 2);

    // An invoice number is taken whole, as text: a quote in it finds nothing and breaks nothing.
    host.ScriptModal("frmTimeSheetsFilter", [](ui::Form& f) {
        FormDriver s(f);
        s.Click("btnReset");
        EXPECT_EQ(s.Text("cboCustomer"), "");
        s.EnterText("editInvoiceNo", "10007");
        s.Click("btnOK");
    });
    d.Click("mnuFilter");
    EXPECT_EQ(list.tblTimeSht.RecordCount(), 2);
    host.ScriptModal("frmTimeSheetsFilter", [](ui::Form& f) {
        FormDriver s(f);
        s.EnterText("editInvoiceNo", "1' OR '1");
        s.Click("btnOK");
    });
    d.Click("mnuFilter");
    EXPECT_EQ(list.tblTimeSht.Filter(), "(InvoiceNo = '1'' OR ''1')");
    EXPECT_EQ(list.tblTimeSht.RecordCount(), 0);
}

TEST_F(TimeSheetsFilterTest, CustomerFromTheSearchNarrowsTheJobsAndCancelKeepsWhatIsInForce) {
    auto& list = List();
    FormDriver d(list);
    d.Click("mnuOutstanding");
    host.ScriptModal("frmTimeSheetsFilter", [this](ui::Form& f) {
        FormDriver s(f);
        host.ScriptModal("frmCustomerSearch", [](ui::Form& search) {
            FormDriver(search).EnterText("editFindCustomerName", "bo");
            FormDriver(search).Click("btnOK");
        });
        s.Click("btnCustomer");
        EXPECT_EQ(s.Text("cboCustomer"), "Bolt");
        EXPECT_THROW(s.Choose("cboJob", "Site"), ui::ScriptError);
        s.Click("btnOK");
    });
    d.Click("mnuFilter");
    EXPECT_EQ(list.tblTimeSht.Filter(), "(CustomerID = 2)");
    EXPECT_EQ(list.tblTimeSht.RecordCount(), 1);
    host.ScriptModal("frmTimeSheetsFilter", [](ui::Form& f) {
        FormDriver s(f);
        s.Choose("cboCustomer", "Acme");
        s.Choose("cboJob", "Yard");
        s.Click("btnCancel");
    });
    d.Click("mnuFilter");
    EXPECT_EQ(list.tblTimeSht.Filter(), "(CustomerID = 2)");
    host.ScriptModal("frmTimeSheetsFilter", [](ui::Form& f) {
        FormDriver s(f);
        EXPECT_EQ(s.Text("cboCustomer"), "Bolt");
        EXPECT_EQ(s.Text("cboJob"), "");
        // The restored customer narrows the jobs again.
        EXPECT_THROW(s.Choose("cboJob", "Yard"), ui::ScriptError);
        s.Click("btnCancel");
    });
    d.Click("mnuFilter");
}

TEST_F(TimeSheetsFilterTest, TimeSheetsOfAJobShowItsTimeBilledOrNot) {
    auto& jobs = app.CreateForm<TfrmJobs>(db_);
    jobs.Show();
    TfrmTimeSheets* sheets = nullptr;
    jobs.MakeRegisteredForm = [&](std::string_view name) -> ui::Form* {
        if (name != "frmTimeSheets") return nullptr;
        sheets = &app.SingleForm<TfrmTimeSheets>(db_);
        return sheets;
    };
    ASSERT_TRUE(jobs.tblJob.Locate("JobID", {store::Value(1)}));
    FormDriver(jobs).Click("mnuTimeSheets");
    ASSERT_NE(sheets, nullptr);
    EXPECT_EQ(sheets->tblTimeSht.Filter(), "(JobID = 1)");
    EXPECT_EQ(sheets->Caption, "Time Sheets (Filtered)");
    EXPECT_EQ(sheets->tblTimeSht.RecordCount(), 3);
    // The dialog shows the job, so the next filter starts from it.
    host.ScriptModal("frmTimeSheetsFilter", [](ui::Form& f) {
        EXPECT_EQ(FormDriver(f).Text("cboJob"), "Site");
        FormDriver(f).Click("btnCancel");
    });
    FormDriver(*sheets).Click("mnuFilter");
}
