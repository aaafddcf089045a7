#pragma once

#include "shell/patterns/ListForm.h"
#include "timebilling/forms/OutstandingView.h"

#include <functional>
#include <string_view>

namespace corvane::timebilling {

class TfrmTimeSheet;
class TfrmTimeSheetsFilter;

// The time recorded, newest first, starting with what is not yet billed. Billed rows stay as
// they are: they open to be read and cannot be deleted.
class TfrmTimeSheets : public shell::ListForm {
public:
    TfrmTimeSheets(ui::Application& app, store::Database& db);

    store::Table& tblTimeSht = MainTable;
    ui::MenuItem& mnuSortWorkDate;
    ui::MenuItem& mnuSortWorkDateDesc;
    ui::MenuItem& mnuSortInvoiceNo;
    store::Table tblEmployee, tblCustomer, tblJob, tblTask;
    ui::MenuItem mnuCopy{mnuRecords, "mnuCopy", "&Copy"};
    ui::MenuItem mnuCreateInvoices{mnuRecords, "mnuCreateInvoices", "Create &Invoice(s)..."};
    ui::ToolButton tbnCopy{tlbList, "tbnCopy", mnuCopy};

    std::function<ui::Form*(std::string_view componentName)> MakeRegisteredForm;

    void CopyTimeSheet();
    void DeleteTimeSheetRow();
    void EditTimeSheet();
    void CreateInvoices();
    void SetOutstanding(bool on);
    // The time of one job, billed or not, through the filter dialog's criteria.
    void ShowJob(std::int64_t jobId);

protected:
    shell::EntryForm& Entry() override;
    shell::FilterForm* Filter() override;

private:
    TfrmTimeSheet& SheetForm();
    OutstandingView view_{*this, "InvoiceNo = null"};
    TfrmTimeSheetsFilter* filter_ = nullptr;
};

} // namespace corvane::timebilling
