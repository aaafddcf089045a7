#pragma once

#include "receivables/customers/CustomerBox.h"
#include "shell/patterns/EntryForm.h"
#include "store/Table.h"
#include "timebilling/domain/TimeSheetRules.h"
#include "timebilling/domain/TimeSheetTimer.h"
#include "ui/Button.h"
#include "ui/DBEdit.h"
#include "ui/DBLookupComboBox.h"
#include "ui/DBMemo.h"
#include "ui/DateEdit.h"
#include "ui/DesktopServices.h"
#include "ui/Edit.h"
#include "ui/FieldDataLink.h"
#include "ui/Label.h"

#include <optional>

namespace corvane::timebilling {

// One row of time: who worked, when, how long, for which customer, job and task. The job list
// holds the customer's open, authorized jobs and the task list the job's tasks. A billed row is
// shown but cannot change. The timer counts the hours from the clock while the user works.
class TfrmTimeSheet : public shell::EntryForm {
public:
    TfrmTimeSheet(ui::Application& app, store::Database& db);
    ~TfrmTimeSheet() override;

    store::Table& tblTimeSht = EntryTable;
    store::Table tblEmployee, tblJobList, tblTaskList;

    ui::DBLookupComboBox cboEmployee;
    ui::DateEdit editWorkDate{*this, "editWorkDate"};
    ui::DBEdit editHours{*this, "editHours", EntryTable, "Hours"};
    ui::Button btnCalculator{*this, "btnCalculator", "..."};
    ui::Button btnTimer{*this, "btnTimer", "Start timer"};
    ui::Label lblTimer{*this, "lblTimer"};
    // The customer is chosen through the customer search, never from a list.
    ui::Edit editCustomer{*this, "editCustomer"};
    ui::Button btnCustomer{*this, "btnCustomer", "..."};
    ui::DBLookupComboBox cboJob;
    ui::DBLookupComboBox cboTask;
    ui::DBMemo memNotes{*this, "memNotes", EntryTable, "Notes"};
    ui::DBEdit editInvoiceNo{*this, "editInvoiceNo", EntryTable, "InvoiceNo"};

    // The timer; tests give it a clock of their own.
    TimeSheetTimer Timer;
    void StartTimer();
    void StopTimer();
    void ClickTimer() { Timer.Running() ? StopTimer() : StartTimer(); }
    // The calculator on the present hours; OK writes its total back.
    void OpenCalculator();
    // A new row with every field of the saved row sourceId but its invoice number.
    void CopyFrom(const std::vector<store::Value>& source);

protected:
    std::string KeyViolationMessage() const override;

private:
    void NarrowJobs(JobChoice choice);
    void NarrowTasks();
    void ShowCaption();
    void Tick();

    // Time is recorded for customers that may still be billed, so a suspended one is refused.
    receivables::CustomerBox customerBox_{editCustomer, EntryTable, EntryTable.OwnerDatabase(),
                                          false};
    JobChoice jobChoice_ = JobChoice::OpenJobsOfCustomer;
    std::optional<ui::TimerId> tick_;
    int frame_ = 0;
    bool copying_ = false;
    ui::FieldDataLink dateLink_{EntryTable, "WorkDate", [this] { ShowCaption(); }};
    ui::FieldDataLink employeeLink_{EntryTable, "EmployeeID", [this] { ShowCaption(); }};
};

} // namespace corvane::timebilling
