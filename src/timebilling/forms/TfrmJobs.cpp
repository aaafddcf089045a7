#include "timebilling/forms/TfrmJobs.h"

#include "core/Exception.h"
#include "reports/run/PreviewReport.h"
#include "reports/run/TrptBase.h"
#include "timebilling/domain/JobRules.h"
#include "timebilling/domain/TimeTexts.h"
#include "timebilling/forms/TfrmJob.h"
#include "timebilling/forms/TfrmJobsFilter.h"
#include "timebilling/forms/TfrmTimeSheets.h"
#include "timebilling/reports/TrptJob.h"
#include "ui/Application.h"
#include "ui/Keys.h"

namespace corvane::timebilling {

namespace text = time_text;

TfrmJobs::TfrmJobs(ui::Application& app, store::Database& db)
    : ListForm(app, "frmJobs", "Jobs", db, "Job", "tblJob", "JobID"),
      mnuSortPriority(AddSortEntry("mnuSortPriority", "&Priority", "Priority", "PriorityDueDate")),
      mnuSortDueDate(AddSortEntry("mnuSortDueDate", "&Due Date", "DueDate", "DueDatePriority")),
      tblCustomer(db, "Customer") {
    tblCustomer.Open();
    tblJob.Close();
    tblJob.AddLookupField("CustomerName", store::FieldType::String, 40, "CustomerID", tblCustomer,
                          "CustomerID", "CustomerName");
    tblJob.Open();
    grdList.AddColumn("Priority", "Priority", 50);
    grdList.AddColumn("DueDate", "Due", 72);
    grdList.AddColumn("CustomerName", "Customer", 160);
    grdList.AddColumn("JobName", "Job", 220);
    grdList.AddColumn("Authorized", "OK", 36);
    grdList.AddColumn("Completed", "Completed", 64);
    mnuFileSep.Visible = false;
    mnuDelete.OnClick = popDelete.OnClick = [this] { DeleteJobRow(); };
    mnuCopy.OnClick = [this] { CopyJob(); };
    mnuTimeSheets.OnClick = [this] { ShowTimeSheets(); };
    mnuPrintJob.OnClick = [this] { PrintJob(); };
    mnuCustomer.OnClick = [this] {
        if (ui::Form* form = MakeRegisteredForm ? MakeRegisteredForm("frmCustomers") : nullptr)
            form->Show();
    };
    mnuOutstanding.ShortCut = ui::ParseShortCut("Ctrl+O");
    mnuOutstanding.OnClick = [this] { SetOutstanding(!mnuOutstanding.Checked()); };
    auto baseShow = OnShow;
    OnShow = [this, baseShow] {
        if (baseShow) baseShow();
        view_.Apply(filter_);
    };
    mnuSortPriority.Click();
}

void TfrmJobs::SetOutstanding(bool on) {
    view_.SetOutstanding(on, filter_);
}

JobsReportOptions TfrmJobs::ReportOptions() const {
    JobsReportOptions options;
    options.Outstanding = mnuOutstanding.Checked();
    options.ByDueDate = SortIndexName() == "DueDatePriority";
    if (filter_) filter_->Narrow(options);
    return options;
}

shell::EntryForm& TfrmJobs::Entry() {
    TfrmJob& form = JobForm();
    FollowJob(form);
    return form;
}

TfrmJob& TfrmJobs::JobForm() {
    return App().SingleForm<TfrmJob>(Db());
}

void TfrmJobs::FollowJob(TfrmJob& form) {
    form.AfterSave = [this](shell::EntryForm& saved) {
        store::Value id = saved.EntryTable.FieldByName("JobID").AsValue();
        RefreshList();
        tblJob.Locate("JobID", {id});
    };
}

shell::FilterForm* TfrmJobs::Filter() {
    if (!filter_) {
        filter_ = &App().SingleForm<TfrmJobsFilter>(static_cast<shell::ListForm&>(*this));
        // The dialog's criteria join the outstanding view rather than replace it.
        auto apply = filter_->btnOK.OnClick;
        filter_->btnOK.OnClick = [this, apply] {
            if (apply) apply();
            view_.Apply(filter_);
        };
    }
    return filter_;
}

void TfrmJobs::DeleteJobRow() {
    if (tblJob.IsEmpty()) return;
    const std::string name = tblJob.FieldByName("JobName").AsString();
    const std::int64_t id = tblJob.FieldByName("JobID").AsInteger();
    if (App().MessageDlg(text::DeleteJobQuestion(name), ui::MsgType::Confirmation,
                         {ui::mbYes, ui::mbNo}) != ui::mbYes)
        return;
    std::string refusal = JobDeleteRefusal(Db(), id, name);
    if (!refusal.empty()) throw Exception(refusal);
    DeleteJob(Db(), id);
    RefreshList();
}

void TfrmJobs::CopyJob() {
    if (tblJob.IsEmpty()) return;
    const std::int64_t id = tblJob.FieldByName("JobID").AsInteger();
    TfrmJob& form = JobForm();
    FollowJob(form);
    form.CopyFrom(id);
    form.Show();
}

void TfrmJobs::ShowTimeSheets() {
    if (tblJob.IsEmpty() || !MakeRegisteredForm) return;
    auto* list = dynamic_cast<TfrmTimeSheets*>(MakeRegisteredForm("frmTimeSheets"));
    if (!list) return;
    list->Show();
    list->ShowJob(tblJob.FieldByName("JobID").AsInteger());
}

void TfrmJobs::PrintJob() {
    if (tblJob.IsEmpty()) return;
    reports::PreviewReport(
        App(), std::make_unique<TrptJob>(Db(), tblJob.FieldByName("JobID").AsInteger()));
}

} // namespace corvane::timebilling
