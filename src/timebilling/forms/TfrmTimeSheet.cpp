#include "timebilling/forms/TfrmTimeSheet.h"

#include "core/DateEntry.h"
#include "core/Exception.h"
#include "timebilling/domain/TimeTexts.h"
#include "timebilling/forms/TfrmTimeCalculator.h"
#include "timebilling/forms/VerdictFocus.h"
#include "ui/Application.h"
#include "ui/Layout.h"

namespace corvane::timebilling {

namespace text = time_text;
using store::DataSetState;

namespace {

// The picture of a running timer: a hand going round.
constexpr const char* kFrames[] = {"|", "/", "-", "\\"};

} // namespace

TfrmTimeSheet::TfrmTimeSheet(ui::Application& app, store::Database& db)
    : EntryForm(app, "frmTimeSheet", db, "TimeSht", "tblTimeSht"), tblEmployee(db, "Employee"),
      tblJobList(db, "Job"), tblTaskList(db, "Task"),
      cboEmployee(*this, "cboEmployee", EntryTable, "EmployeeID", tblEmployee, "EmployeeID",
                  "EmployeeName"),
      cboJob(*this, "cboJob", EntryTable, "JobID", tblJobList, "JobID", "JobName"),
      cboTask(*this, "cboTask", EntryTable, "TaskID", tblTaskList, "TaskID", "TaskName") {
    using namespace ui;
    Caption = "New Time Sheet";
    tblEmployee.SetIndexName("EmployeeName1");
    tblJobList.SetIndexName("JobName1");
    tblTaskList.SetIndexName("JobIDLineNo");
    for (store::Table* t : {&tblEmployee, &tblJobList, &tblTaskList})
        t->Open();
    editWorkDate.Bind(EntryTable, "WorkDate");
    editInvoiceNo.ReadOnly = true;
    // Enter and the keys of the customer box open the search; the button is for the mouse.
    btnCustomer.TabStop = false;
    lblTimer.Visible = false;
    EntryTable.FieldByName("EmployeeID").DisplayLabel = "Employee";
    SetLayout(Column{
        FormRow{"Employee", cboEmployee},
        FormRow{"Date", editWorkDate},
        FormRow{"Hours", Row{editHours, btnCalculator, btnTimer, lblTimer}},
        FormRow{"Customer", Row{editCustomer, btnCustomer}},
        FormRow{"Job", cboJob},
        FormRow{"Task", cboTask},
        FormRow{"Notes", memNotes},
        FormRow{"Invoice no.", editInvoiceNo},
        ButtonRow{btnOK, btnCancel},
    });

    EntryTable.OnNewRecord = [this](store::DataSet& ds) {
        ds.FieldByName("WorkDate").SetAsDate(Date::Today());
        NarrowJobs(JobChoice::OpenJobsOfCustomer);
    };
    EntryTable.BeforeEdit = [](store::DataSet& ds) {
        if (!ds.FieldByName("InvoiceNo").IsNull()) throw Exception(text::BilledCannotChange);
    };
    // An existing row keeps its job readable, finished or not, until its customer changes.
    EntryTable.AfterEdit = [this](store::DataSet&) { NarrowJobs(JobChoice::AnyJobOfCustomer); };
    EntryTable.AfterScroll = [this](store::DataSet&) {
        if (EntryTable.State() == DataSetState::Browse) NarrowJobs(JobChoice::AnyJobOfCustomer);
    };
    EntryTable.FieldByName("CustomerID").OnChange = [this](store::Field&) {
        NarrowJobs(JobChoice::OpenJobsOfCustomer);
    };
    EntryTable.FieldByName("JobID").OnChange = [this](store::Field&) { NarrowTasks(); };
    EntryTable.BeforePost = [this](store::DataSet&) {
        Enforce(CheckTimeSheet(EntryTable.OwnerDatabase(), EntryTable, jobChoice_),
                {{"EmployeeID", &cboEmployee},
                 {"WorkDate", &editWorkDate},
                 {"Hours", &editHours},
                 {"CustomerID", &editCustomer},
                 {"JobID", &cboJob},
                 {"TaskID", &cboTask}});
    };
    EntryTable.AfterPost = EntryTable.AfterCancel = [this](store::DataSet&) {
        copying_ = false;
        ShowCaption();
    };
    btnTimer.OnClick = [this] { ClickTimer(); };
    btnCalculator.OnClick = [this] { OpenCalculator(); };
    btnCustomer.OnClick = [this] { customerBox_.Pick(); };
    OnClose = [this](ui::CloseAction& action) {
        if (tick_) App().StopTimer(*tick_);
        tick_.reset();
        action = ui::CloseAction::Free;
    };
    OnShow = [this] { ShowCaption(); };
}

TfrmTimeSheet::~TfrmTimeSheet() {
    if (tick_) App().StopTimer(*tick_);
    for (store::DataSet::Handler* handler :
         {&EntryTable.OnNewRecord, &EntryTable.BeforeEdit, &EntryTable.AfterEdit,
          &EntryTable.AfterScroll, &EntryTable.BeforePost, &EntryTable.AfterPost,
          &EntryTable.AfterCancel})
        *handler = nullptr;
    for (const char* name : {"CustomerID", "JobID"})
        if (store::Field* f = EntryTable.FindField(name)) f->OnChange = nullptr;
}

void TfrmTimeSheet::NarrowJobs(JobChoice choice) {
    jobChoice_ = choice;
    tblJobList.SetFilter(JobListFilter(EntryTable.FieldByName("CustomerID").AsValue(), choice));
    tblJobList.SetFiltered(true);
    NarrowTasks();
}

void TfrmTimeSheet::NarrowTasks() {
    tblTaskList.SetFilter(TaskListFilter(EntryTable.FieldByName("JobID").AsValue()));
    tblTaskList.SetFiltered(true);
}

void TfrmTimeSheet::ShowCaption() {
    if (copying_) {
        Caption = "New (copied) Time Sheet";
        return;
    }
    if (!EntryTable.Active()) return;
    const store::Field& date = EntryTable.FieldByName("WorkDate");
    const bool fresh =
        EntryTable.State() == DataSetState::Insert && EntryTable.FieldByName("EmployeeID").IsNull();
    if (fresh || date.IsNull()) {
        Caption = "New Time Sheet";
        return;
    }
    Caption = FormatDate("dd mmm yy", date.AsDate()) + " - " + cboEmployee.Text();
}

void TfrmTimeSheet::StartTimer() {
    if (EntryTable.State() == DataSetState::Browse) EntryTable.Edit();
    CommitPendingEdit();
    const store::Field& hours = EntryTable.FieldByName("Hours");
    Timer.Start(hours.IsNull() ? 0.0 : hours.AsFloat());
    btnCalculator.Enabled = false;
    editHours.Alert = true;
    lblTimer.Visible = true;
    btnTimer.Caption = "Stop timer";
    tick_ = App().StartTimer(1000, true, [this] { Tick(); });
}

void TfrmTimeSheet::Tick() {
    // Each tick reads the clock again: ticks lost while the machine slept cost nothing.
    frame_ = (frame_ + 1) % 4;
    lblTimer.Caption = kFrames[frame_];
    if (EntryTable.State() == DataSetState::Browse) return;
    EntryTable.FieldByName("Hours").SetAsFloat(Timer.Hours());
}

void TfrmTimeSheet::StopTimer() {
    if (tick_) App().StopTimer(*tick_);
    tick_.reset();
    const double hours = Timer.Stop();
    if (EntryTable.State() == DataSetState::Browse) EntryTable.Edit();
    EntryTable.FieldByName("Hours").SetAsFloat(hours);
    btnCalculator.Enabled = true;
    editHours.Alert = false;
    lblTimer.Visible = false;
    btnTimer.Caption = "Start timer";
}

void TfrmTimeSheet::OpenCalculator() {
    if (Timer.Running()) return;
    auto& calculator = App().SingleForm<TfrmTimeCalculator>();
    const store::Field& hours = EntryTable.FieldByName("Hours");
    calculator.Start(hours.IsNull() ? 0.0 : hours.AsFloat());
    if (calculator.ShowModal() != ui::mrOK) return;
    if (EntryTable.State() == DataSetState::Browse) EntryTable.Edit();
    EntryTable.FieldByName("Hours").SetAsFloat(calculator.DecimalTotal());
}

void TfrmTimeSheet::CopyFrom(const std::vector<store::Value>& source) {
    EntryTable.Insert();
    for (std::size_t i = 0; i < source.size() && i < EntryTable.Fields().size(); ++i) {
        store::Field& field = *EntryTable.Fields()[i];
        if (field.FieldName() == "TimeSheetID" || field.FieldName() == "InvoiceNo") continue;
        field.SetValue(source[i]);
    }
    copying_ = true;
    ShowCaption();
}

std::string TfrmTimeSheet::KeyViolationMessage() const {
    return "Time sheet already exists";
}

} // namespace corvane::timebilling
