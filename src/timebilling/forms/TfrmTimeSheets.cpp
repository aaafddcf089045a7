#include "timebilling/forms/TfrmTimeSheets.h"

#include "core/Exception.h"
#include "timebilling/domain/TimeSheetRules.h"
#include "timebilling/domain/TimeTexts.h"
#include "timebilling/forms/TfrmTimeSheet.h"
#include "timebilling/forms/TfrmTimeSheetsFilter.h"
#include "ui/Application.h"
#include "ui/Keys.h"

namespace corvane::timebilling {

namespace text = time_text;

TfrmTimeSheets::TfrmTimeSheets(ui::Application& app, store::Database& db)
    : ListForm(app, "frmTimeSheets", "Time Sheets", db, "TimeSht", "tblTimeSht", "TimeSheetID"),
      mnuSortWorkDate(
          AddSortEntry("mnuSortWorkDate", "Work Date &Ascending", "WorkDate", "WorkDateID")),
      mnuSortWorkDateDesc(AddSortEntry("mnuSortWorkDateDesc", "Work Date &Descending", "WorkDate",
                                       "WorkDateIDDESC")),
      mnuSortInvoiceNo(
          AddSortEntry("mnuSortInvoiceNo", "&Invoice no.", "InvoiceNo", "InvoiceNoWorkDate")),
      tblEmployee(db, "Employee"), tblCustomer(db, "Customer"), tblJob(db, "Job"),
      tblTask(db, "Task") {
    for (store::Table* t : {&tblEmployee, &tblCustomer, &tblJob, &tblTask})
        t->Open();
    tblTimeSht.Close();
    tblTimeSht.AddLookupField("EmployeeName", store::FieldType::String, 30, "EmployeeID",
                              tblEmployee, "EmployeeID", "EmployeeName");
    tblTimeSht.AddLookupField("CustomerName", store::FieldType::String, 40, "CustomerID",
                              tblCustomer, "CustomerID", "CustomerName");
    tblTimeSht.AddLookupField("JobName", store::FieldType::String, 80, "JobID", tblJob, "JobID",
                              "JobName");
    tblTimeSht.AddLookupField("TaskName", store::FieldType::String, 100, "TaskID", tblTask,
                              "TaskID", "TaskName");
    tblTimeSht.Open();
    grdList.AddColumn("WorkDate", "Date", 72);
    grdList.AddColumn("Hours", "Hours", 56);
    grdList.AddColumn("EmployeeName", "Employee", 120);
    grdList.AddColumn("CustomerName", "Customer", 150);
    grdList.AddColumn("JobName", "Job", 180);
    grdList.AddColumn("TaskName", "Task", 140);
    grdList.AddColumn("InvoiceNo", "Invoice no.", 72);
    // Find is not offered here, so Filter takes its key.
    mnuFind.ShortCut = {};
    mnuFilter.ShortCut = ui::ParseShortCut("Ctrl+F");
    mnuFileSep.Visible = false;
    mnuEdit.OnClick = popEdit.OnClick = [this] { EditTimeSheet(); };
    mnuDelete.OnClick = popDelete.OnClick = [this] { DeleteTimeSheetRow(); };
    mnuCopy.OnClick = [this] { CopyTimeSheet(); };
    mnuCreateInvoices.OnClick = [this] { CreateInvoices(); };
    mnuOutstanding.ShortCut = ui::ParseShortCut("Ctrl+O");
    mnuOutstanding.OnClick = [this] { SetOutstanding(!mnuOutstanding.Checked()); };
    mnuOutstanding.SetChecked(true);
    auto baseShow = OnShow;
    OnShow = [this, baseShow] {
        if (baseShow) baseShow();
        view_.Apply(filter_);
    };
    mnuSortWorkDateDesc.Click();
    view_.Apply(nullptr);
}

void TfrmTimeSheets::SetOutstanding(bool on) {
    view_.SetOutstanding(on, filter_);
}

shell::FilterForm* TfrmTimeSheets::Filter() {
    if (!filter_) {
        filter_ = &App().SingleForm<TfrmTimeSheetsFilter>(static_cast<shell::ListForm&>(*this));
        // The dialog's criteria join the outstanding view rather than replace it.
        auto apply = filter_->btnOK.OnClick;
        filter_->btnOK.OnClick = [this, apply] {
            if (apply) apply();
            view_.Apply(filter_);
        };
    }
    return filter_;
}

void TfrmTimeSheets::ShowJob(std::int64_t jobId) {
    static_cast<void>(Filter());
    filter_->OneJob(jobId);
    mnuOutstanding.SetChecked(false);
    view_.Apply(filter_);
}

TfrmTimeSheet& TfrmTimeSheets::SheetForm() {
    TfrmTimeSheet& form = App().SingleForm<TfrmTimeSheet>(Db());
    form.AfterSave = [this](shell::EntryForm& saved) {
        store::Value id = saved.EntryTable.FieldByName("TimeSheetID").AsValue();
        RefreshList();
        tblTimeSht.Locate("TimeSheetID", {id});
    };
    return form;
}

shell::EntryForm& TfrmTimeSheets::Entry() {
    return SheetForm();
}

void TfrmTimeSheets::EditTimeSheet() {
    if (tblTimeSht.IsEmpty()) return NewRecord();
    TfrmTimeSheet& form = SheetForm();
    const store::Value id = tblTimeSht.FieldByName("TimeSheetID").AsValue();
    if (!form.EntryTable.Locate("TimeSheetID", {id}))
        throw Exception(text::TimeSheetGoneOnEdit(TimeSheetLabel(Db(), tblTimeSht)));
    form.Show();
    form.EntryTable.Edit();
}

void TfrmTimeSheets::DeleteTimeSheetRow() {
    if (tblTimeSht.IsEmpty()) return;
    const std::string label = TimeSheetLabel(Db(), tblTimeSht);
    if (App().MessageDlg(text::DeleteTimeSheetQuestion(label), ui::MsgType::Confirmation,
                         {ui::mbYes, ui::mbNo}) != ui::mbYes)
        return;
    std::vector<store::Value> shown;
    for (const auto& field : tblTimeSht.Fields())
        if (field->FieldName() != "EmployeeName" && field->FieldName() != "CustomerName" &&
            field->FieldName() != "JobName" && field->FieldName() != "TaskName")
            shown.push_back(field->AsValue());
    const DeleteResult result = DeleteTimeSheet(Db(), shown);
    RefreshList();
    if (result == DeleteResult::AlreadyDeleted)
        throw Exception(text::TimeSheetAlreadyDeleted(label));
    if (result == DeleteResult::ChangedOrBilled) throw Exception(text::TimeSheetMayBeBilled(label));
}

void TfrmTimeSheets::CopyTimeSheet() {
    if (tblTimeSht.IsEmpty()) return;
    std::vector<store::Value> source;
    for (const auto& field : tblTimeSht.Fields())
        source.push_back(field->AsValue());
    TfrmTimeSheet& form = SheetForm();
    form.CopyFrom(source);
    form.Show();
}

void TfrmTimeSheets::CreateInvoices() {
    if (!MakeRegisteredForm) return;
    auto* invoices = dynamic_cast<shell::ListForm*>(MakeRegisteredForm("frmARInvoices"));
    if (!invoices) return;
    invoices->Show();
    invoices->NewRecord();
}

} // namespace corvane::timebilling
