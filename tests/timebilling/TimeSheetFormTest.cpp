#include "timebilling/TimeBillingFormsFixture.h"
#include "timebilling/forms/TfrmTimeCalculator.h"
#include "timebilling/forms/TfrmTimeSheet.h"
#include "timebilling/forms/TfrmTimeSheets.h"
#include "ui/FormDriver.h"
#include "ui/ScriptError.h"

using namespace corvane;
using namespace corvane::timebilling;
using corvane::ui::FormDriver;
using namespace std::chrono_literals;

namespace {

class TimeSheetFormTest : public corvane::testing::TimeBillingFormsTest {
protected:
    void SetUp() override {
        TimeBillingFormsTest::SetUp();
        AddJob(1, 1, "Site");
        AddJob(2, 1, "Finished", true, true);
        AddJob(3, 2, "Shop");
        AddTask(1, 1, 1, "Draw", 1);
        AddTask(2, 1, 2, "Untyped", {});
        AddTask(3, 3, 1, "Weld", 1);
    }
    TfrmTimeSheets& List() {
        auto& list = app.CreateForm<TfrmTimeSheets>(db_);
        list.Show();
        return list;
    }
    TfrmTimeSheet& SheetForm() { return dynamic_cast<TfrmTimeSheet&>(app.GetForm("frmTimeSheet")); }
};

} // namespace

TEST_F(TimeSheetFormTest, EveryRefusalInOrderThenTheRowSaves) {
    FormDriver d(List());
    d.Click("mnuNew");
    TfrmTimeSheet& form = SheetForm();
    FormDriver f(form);
    EXPECT_EQ(form.Caption, "New Time Sheet");
    f.EnterText("editWorkDate", "");
    auto refused = [&](const std::string& message) {
        f.Click("btnOK");
        EXPECT_EQ(dialogs.LastText(), message);
        EXPECT_TRUE(form.Visible());
    };
    refused("Field 'Employee' must have a value");
    f.Choose("cboEmployee", "Ann Lee");
    refused("Field 'Work Date' must have a value");
    f.EnterText("editWorkDate", "3/1/2017");
    refused("Field 'Hours' must have a value");
    f.EnterText("editHours", "0");
    refused("Field 'Customer' must have a value");
    // A key typed in the customer box starts the search's name with it.
    host.ScriptModal("frmCustomerSearch", [](ui::Form& search) {
        FormDriver s(search);
        EXPECT_EQ(s.Text("editFindCustomerName"), "a");
        EXPECT_EQ(s.GridRow("grdSearch").at(1), "Acme");
        s.Click("btnOK");
    });
    f.Focus("editCustomer");
    f.Type("a");
    EXPECT_EQ(f.Text("editCustomer"), "Acme");
    EXPECT_EQ(f.FocusedName(), "cboJob");
    refused("Field 'Job' must have a value");
    // Only Acme's open jobs are offered.
    EXPECT_THROW(f.Choose("cboJob", "Finished"), ui::ScriptError);
    EXPECT_THROW(f.Choose("cboJob", "Shop"), ui::ScriptError);
    f.Choose("cboJob", "Site");
    refused("Field 'Task' must have a value");
    EXPECT_EQ(f.FocusedName(), "cboTask");
    f.Choose("cboTask", "Untyped");
    refused("Task Type has not been entered on this job task...\nTask Type is required for "
            "invoicing info");
    f.Choose("cboTask", "Draw");
    f.Click("btnOK");
    // Saved and closed: the form is freed with its OK.
    EXPECT_EQ(app.FindForm("frmTimeSheet"), nullptr);
    EXPECT_EQ(Scalar("SELECT Hours FROM TimeSht"), "0");
}

TEST_F(TimeSheetFormTest, CustomerBoxOpensTheSearchAndRefusesASuspendedCustomer) {
    AddCustomer(3, "C3", "Cedar", 1);
    {
        store::Table customers(db_, "Customer");
        customers.Open();
        ASSERT_TRUE(customers.Locate("CustomerID", {store::Value(3)}));
        customers.Edit();
        customers.FieldByName("Suspended").SetAsBoolean(true);
        customers.Post();
    }
    AddTime(1, 1, 1, 1, Date::FromYmd(2017, 3, 1), 1.5);
    List();
    FormDriver(app, "frmTimeSheets").Click("mnuEdit");
    TfrmTimeSheet& form = SheetForm();
    FormDriver f(form);
    // An existing row shows its customer and keeps its job while the customer stays.
    EXPECT_EQ(f.Text("editCustomer"), "Acme");
    EXPECT_EQ(f.Text("cboJob"), "Site");
    // Typed text never lands in the box; Esc shows the stored customer and Cancel answers it.
    host.ScriptModal("frmCustomerSearch", [](ui::Form& search) {
        FormDriver s(search);
        EXPECT_EQ(s.Text("editFindCustomerName"), "c");
        EXPECT_EQ(s.GridRow("grdSearch").at(1), "Cedar");
        s.Click("btnOK");
        // A suspended customer takes no time; the search stays open for another choice.
        EXPECT_EQ(s.GetForm().ModalResult(), ui::mrNone);
        s.EnterText("editFindCustomerName", "bo");
        s.Click("btnOK");
    });
    f.Focus("editCustomer");
    f.Type("c");
    EXPECT_EQ(dialogs.LastText(), "Customer 'C3: Cedar' has been suspended");
    EXPECT_EQ(f.Text("editCustomer"), "Bolt");
    // The job list now holds only Bolt's open jobs: Acme's job is no longer a choice.
    EXPECT_EQ(form.tblJobList.RecordCount(), 1);
    EXPECT_EQ(form.tblJobList.FieldByName("JobName").AsString(), "Shop");
    f.Choose("cboJob", "Shop");
    f.Choose("cboTask", "Weld");
    // Enter opens the search as it is, on the customer chosen now; Cancel changes nothing.
    host.ScriptModal("frmCustomerSearch", [](ui::Form& search) {
        FormDriver s(search);
        EXPECT_EQ(s.Text("editFindCustomerName"), "");
        EXPECT_EQ(s.GridRow("grdSearch").at(1), "Bolt");
        s.Click("btnCancel");
    });
    f.PressKey("editCustomer", ui::KeyStroke(ui::Key::Enter));
    EXPECT_EQ(f.Text("editCustomer"), "Bolt");
    EXPECT_EQ(f.FocusedName(), "editCustomer");
    f.Click("btnOK");
    EXPECT_EQ(Scalar("SELECT CustomerID || ',' || JobID || ',' || TaskID FROM TimeSht"), "2,3,3");
}

TEST_F(TimeSheetFormTest, TimerCountsFromTheClockInRedBold) {
    AddTime(1, 1, 1, 1, Date::FromYmd(2017, 3, 1), 1.5);
    List();
    FormDriver d(app, "frmTimeSheets");
    d.Click("mnuEdit");
    TfrmTimeSheet& form = SheetForm();
    std::chrono::nanoseconds now = 500h;
    form.Timer = TimeSheetTimer([&] { return now; });
    FormDriver f(form);
    EXPECT_EQ(form.Caption, "01 Mar 17 - Ann Lee");
    f.Click("btnTimer");
    EXPECT_EQ(f.Text("btnTimer"), "Stop timer");
    EXPECT_TRUE(form.editHours.Alert);
    EXPECT_FALSE(f.Enabled("btnCalculator"));
    // Forty minutes pass with one tick delivered: the hours follow the clock, not the ticks.
    now += 40min;
    desktop.AdvanceTime(1000);
    EXPECT_EQ(f.Text("editHours"), "2.17");
    now += 2h; // a suspend: no tick at all
    f.Click("btnTimer");
    EXPECT_EQ(f.Text("btnTimer"), "Start timer");
    EXPECT_FALSE(form.editHours.Alert);
    EXPECT_TRUE(f.Enabled("btnCalculator"));
    EXPECT_EQ(desktop.RunningTimers(), 0u);
    f.Click("btnOK");
    EXPECT_EQ(Scalar("SELECT Hours FROM TimeSht"), "4.17");
}

TEST_F(TimeSheetFormTest, ABilledRowRefusesEditAndDelete) {
    AddTime(1, 1, 1, 1, Date::FromYmd(2017, 3, 1), 2, "10001");
    auto& list = List();
    FormDriver d(list);
    d.Click("mnuOutstanding"); // billed rows show once the outstanding view is off
    EXPECT_EQ(list.Caption, "Time Sheets");
    d.Click("mnuEdit");
    EXPECT_EQ(dialogs.LastText(), "Billed time sheets cannot be changed.");
    dialogs.Answer("Delete time sheet '3/1/2017 Ann Lee'?", ui::mbYes);
    d.Click("mnuDelete");
    EXPECT_EQ(dialogs.LastText(),
              "Unable to delete time sheet '3/1/2017 Ann Lee'...\nIt may have been billed by "
              "another user");
    EXPECT_EQ(CountRows("TimeSht"), 1);
}

TEST_F(TimeSheetFormTest, OutstandingIsOnAtStartAndCopyLeavesTheInvoiceBehind) {
    AddTime(1, 1, 1, 1, Date::FromYmd(2017, 3, 1), 2, "10001");
    AddTime(1, 1, 1, 2, Date::FromYmd(2017, 3, 2), 3);
    auto& list = List();
    EXPECT_EQ(list.Caption, "Time Sheets (Outstanding)");
    EXPECT_EQ(list.tblTimeSht.RecordCount(), 1);
    FormDriver d(list);
    d.Click("mnuOutstanding");
    list.tblTimeSht.Locate("TimeSheetID", {1});
    d.Click("mnuCopy");
    TfrmTimeSheet& form = SheetForm();
    EXPECT_EQ(form.Caption, "New (copied) Time Sheet");
    FormDriver(form).Click("btnOK");
    EXPECT_EQ(Scalar("SELECT COUNT(*) FROM TimeSht WHERE InvoiceNo IS NULL AND Hours = 2"), "1");
}

TEST_F(TimeSheetFormTest, CalculatorRowsAndTotal) {
    auto& calc = app.CreateForm<TfrmTimeCalculator>();
    calc.Start(1.5);
    EXPECT_EQ(calc.lblTotal.Caption, "1:30");
    FormDriver f(calc);
    f.EnterText("editStart1", "23:30");
    f.EnterText("editStop1", "00:30");
    f.EnterText("editStart2", "09:00");
    f.EnterText("editStop2", "05:00");
    f.EnterText("editStart3", "09:00");
    f.EnterText("editStop3", "00:15");
    f.EnterText("editStart4", "10:00");
    f.EnterText("editStop4", "10:00");
    EXPECT_EQ(calc.lblElapsed[0]->Caption, "1:00");
    EXPECT_EQ(calc.lblElapsed[1]->Caption, "8:00");
    EXPECT_EQ(calc.lblElapsed[2]->Caption, "15:15");
    EXPECT_EQ(calc.lblElapsed[3]->Caption, "");
    EXPECT_EQ(calc.lblTotal.Caption, "24:15");
    EXPECT_EQ(calc.DecimalTotal(), 24.25);
}
