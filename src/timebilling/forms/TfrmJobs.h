#pragma once

#include "shell/patterns/ListForm.h"
#include "timebilling/forms/OutstandingView.h"
#include "timebilling/reports/TrptJobs.h"

#include <functional>
#include <string_view>

namespace corvane::timebilling {

class TfrmJob;
class TfrmJobsFilter;

// The jobs, by priority or due date (dated jobs first), all of them or the outstanding ones.
// A job with time recorded on it cannot go; one without goes with its tasks.
class TfrmJobs : public shell::ListForm {
public:
    TfrmJobs(ui::Application& app, store::Database& db);

    store::Table& tblJob = MainTable;
    ui::MenuItem& mnuSortPriority;
    ui::MenuItem& mnuSortDueDate;
    store::Table tblCustomer;
    ui::MenuItem mnuCopy{mnuRecords, "mnuCopy", "&Copy"};
    ui::MenuItem mnuTimeSheets{mnuRecords, "mnuTimeSheets", "&Time Sheets"};
    ui::MenuItem mnuCustomer{mnuRecords, "mnuCustomer", "C&ustomer"};
    ui::MenuItem mnuPrintJob{mnuFile, "mnuPrintJob", "Print &Job..."};
    ui::ToolButton tbnCopy{tlbList, "tbnCopy", mnuCopy};

    // Makes a form the program registered, or null; given by whoever makes this list.
    std::function<ui::Form*(std::string_view componentName)> MakeRegisteredForm;

    void CopyJob();
    void DeleteJobRow();
    void ShowTimeSheets();
    // The selected job on a page of its own, with its tasks.
    void PrintJob();
    void SetOutstanding(bool on);
    // What the list shows now, as the jobs report reads it.
    JobsReportOptions ReportOptions() const;

protected:
    shell::EntryForm& Entry() override;
    shell::FilterForm* Filter() override;

private:
    TfrmJob& JobForm();
    void FollowJob(TfrmJob& form);

    OutstandingView view_{*this, "Completed = false"};
    TfrmJobsFilter* filter_ = nullptr;
};

} // namespace corvane::timebilling
