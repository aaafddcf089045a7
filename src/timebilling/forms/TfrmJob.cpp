#include "timebilling/forms/TfrmJob.h"

#include "timebilling/forms/TfrmJobNotes.h"

#include "core/Exception.h"
#include "store/EngineError.h"
#include "timebilling/domain/TimeTexts.h"
#include "timebilling/forms/NameBox.h"
#include "timebilling/forms/VerdictFocus.h"
#include "ui/Application.h"
#include "ui/Layout.h"

namespace corvane::timebilling {

namespace text = time_text;
using store::DataSetState;

namespace {} // namespace

TfrmJob::TfrmJob(ui::Application& app, store::Database& db)
    : EntryForm(app, "frmJob", db, "Job", "tblJob"), tblTask(db, "Task"),
      tblCustomer(db, "Customer"), tblEmployee(db, "Employee"), tblTaskType(db, "TaskType"),
      tblLeader(db, "Employee"), cboCustomer(*this, "cboCustomer", EntryTable, "CustomerID",
                                             tblCustomer, "CustomerID", "CustomerName;CustomerNo"),
      cboProjectLeader(*this, "cboProjectLeader", EntryTable, "ProjectLeaderID", tblLeader,
                       "EmployeeID", "EmployeeName") {
    using namespace ui;
    Caption = "New Job";
    tblCustomer.SetIndexName("CustomerName1");
    tblLeader.SetIndexName("EmployeeName1");
    for (store::Table* t : {&tblCustomer, &tblEmployee, &tblTaskType, &tblLeader})
        t->Open();
    EntryTable.FieldByName("CustomerID").DisplayLabel = "Customer";
    EntryTable.FieldByName("JobName").DisplayLabel = "Job Name";
    editRequestedOn.Bind(EntryTable, "RequestedOn");
    editDueDate.Bind(EntryTable, "DueDate");
    editPriority.Hint = "Priority: 1=Highest";
    SetUpTaskFields();

    grdTasks.ReadOnly = false;
    grdTasks.Popup = &popTasks;
    grdTasks.AddColumn("TaskTypeID", "Task Type", 110);
    grdTasks.AddColumn("TaskName", "Task", 180);
    grdTasks.AddColumn("Notes", "Notes", 96);
    grdTasks.AddColumn("DueDate", "Due", 72);
    grdTasks.AddColumn("Completed", "Done", 44);
    grdTasks.AddColumn("EmployeeID", "Employee", 110);
    grdTasks.AddColumn("EstimatedHours", "Est. Hours", 70);
    grdTasks.AddColumn("RateOverride", "Rate Override", 90);

    SetLayout(Column{
        Row{Column{FormRow{"Customer", cboCustomer}, FormRow{"Job", editJobName},
                   FormRow{"Requested By", editRequestedBy},
                   FormRow{"Requested On", editRequestedOn}, FormRow{"Due Date", editDueDate}},
            Column{FormRow{"Priority", editPriority}, chkAuthorized, chkCompleted,
                   FormRow{"Project Leader", cboProjectLeader}},
            Column{FormRow{"Estimated Price", editEstimatedPrice},
                   FormRow{"Maximum Price", editMaximumPrice},
                   FormRow{"Fixed Price", editFixedPrice}}},
        FormRow{"Notes", memNotes},
        grdTasks,
        Row{btnMoveUp, btnMoveDown, Stretch{}},
        ButtonRow{btnOK, btnCancel},
    });

    EntryTable.OnNewRecord = [this](store::DataSet& ds) {
        StartNewJob(EntryTable.OwnerDatabase(), ds, Date::Today(), AskRetry());
    };
    EntryTable.AfterInsert = EntryTable.AfterEdit = [this](store::DataSet&) { TakeSnapshot(); };
    EntryTable.FieldByName("CustomerID").OnValidate = [this](store::Field& f) {
        Enforce(CheckCustomerChoice(EntryTable.OwnerDatabase(), EntryTable, f.AsValue()), {});
    };
    EntryTable.BeforePost = [this](store::DataSet&) {
        if (tblTask.Editing()) tblTask.CheckBrowseMode();
        Enforce(CheckJob(EntryTable.OwnerDatabase(), EntryTable),
                {{"CustomerID", &cboCustomer}, {"JobName", &editJobName}});
    };
    EntryTable.AfterPost = [this](store::DataSet&) {
        snapshot_.reset();
        copying_ = false;
        ShowCaption();
    };
    EntryTable.BeforeCancel = [this](store::DataSet&) {
        if (tblTask.Editing()) tblTask.Cancel();
    };
    EntryTable.AfterCancel = [this](store::DataSet&) {
        RestoreSnapshot();
        copying_ = false;
        ShowTasks();
    };
    EntryTable.AfterScroll = [this](store::DataSet&) { ShowTasks(); };

    editJobName.OnChange = [this] { ShowCaption(); };
    popNewTask.OnClick = [this] { NewLine(); };
    popDeleteTask.OnClick = [this] { DeleteLine(); };
    popMoveUp.OnClick = btnMoveUp.OnClick = [this] { MoveLine(-1); };
    popMoveDown.OnClick = btnMoveDown.OnClick = [this] { MoveLine(+1); };
    OnClose = [](ui::CloseAction& action) { action = ui::CloseAction::Free; };
    OnShow = [this] {
        ShowTasks();
        ShowCaption();
    };
}

TfrmJob::~TfrmJob() {
    tblTask.Close();
    for (store::DataSet::Handler* handler :
         {&EntryTable.OnNewRecord, &EntryTable.AfterInsert, &EntryTable.AfterEdit,
          &EntryTable.BeforePost, &EntryTable.AfterPost, &EntryTable.BeforeCancel,
          &EntryTable.AfterCancel, &EntryTable.AfterScroll})
        *handler = nullptr;
    if (store::Field* customer = EntryTable.FindField("CustomerID")) customer->OnValidate = nullptr;
}

void TfrmJob::SetUpTaskFields() {
    tblTask.Name = "tblTask";
    tblTask.SetIndexName("JobIDLineNo");
    tblTask.Open();
    ShowIdAsName(tblTask.FieldByName("TaskTypeID"), tblTaskType, "TaskTypeID", "TypeName",
                 text::TaskTypeGone);
    ShowIdAsName(tblTask.FieldByName("EmployeeID"), tblEmployee, "EmployeeID", "EmployeeName",
                 "Employee not found");
    tblTask.FieldByName("TaskName").DisplayLabel = "Task";
    tblTask.OnNewRecord = [this](store::DataSet& ds) {
        store::Database& db = EntryTable.OwnerDatabase();
        const std::int64_t job = JobId();
        StartNewTask(db, ds, job, NextLineNo(db, job), AskRetry());
    };
    tblTask.BeforeInsert = tblTask.BeforeEdit = [this](store::DataSet&) {
        // A line belongs to a job being worked on: a job at rest goes into edit first.
        if (EntryTable.State() == DataSetState::Browse) EntryTable.Edit();
    };
    tblTask.BeforePost = [this](store::DataSet& ds) {
        Enforce(CheckTask(EntryTable.OwnerDatabase(), ds), {{"TaskName", &grdTasks}});
    };
    tblTask.OnPostError = [](store::DataSet& ds, store::EngineError& e, store::DataAction&) {
        const std::string name = ds.FieldByName("TaskName").AsString();
        if (e.ErrorCode() == store::errKeyViolation) throw Exception(text::TaskKeyExists(name));
        throw Exception(text::TaskPostError(name, e.ErrorCode(), e.what()));
    };
    tblTask.BeforeDelete = [this](store::DataSet& ds) {
        const std::string name = ds.FieldByName("TaskName").AsString();
        if (App().MessageDlg(text::DeleteTaskQuestion(name), ui::MsgType::Confirmation,
                             {ui::mbYes, ui::mbNo}) != ui::mbYes)
            Abort();
        std::string refusal = TaskDeleteRefusal(EntryTable.OwnerDatabase(),
                                                ds.FieldByName("TaskID").AsInteger(), name);
        if (!refusal.empty()) throw Exception(refusal);
        if (EntryTable.State() == DataSetState::Browse) EntryTable.Edit();
    };
}

DrawRetry TfrmJob::AskRetry() {
    return [this](const std::string& message) {
        return App().MessageDlg(message, ui::MsgType::Error, {ui::mbRetry, ui::mbCancel}) ==
               ui::mbRetry;
    };
}

std::int64_t TfrmJob::JobId() {
    const store::Field& id = EntryTable.FieldByName("JobID");
    return id.IsNull() ? 0 : id.AsInteger();
}

void TfrmJob::ShowTasks() {
    if (!EntryTable.Active() || !tblTask.Active()) return;
    if (tblTask.Editing()) return;
    const store::Value job(JobId());
    tblTask.SetRange({job}, {job});
}

void TfrmJob::TakeSnapshot() {
    snapshot_ = TaskSnapshot::Take(EntryTable.OwnerDatabase(), JobId());
    ShowTasks();
}

void TfrmJob::RestoreSnapshot() {
    if (!snapshot_) return;
    snapshot_->Restore(EntryTable.OwnerDatabase());
    snapshot_.reset();
    tblTask.Refresh();
}

void TfrmJob::ShowCaption() {
    if (copying_) {
        Caption = "New (copied) Job";
        return;
    }
    if (!EntryTable.Active()) return;
    // What is typed counts before it reaches the field.
    const std::string name = editJobName.Text();
    Caption = EntryTable.State() == DataSetState::Insert && name.empty() ? "New Job" : name;
}

void TfrmJob::NewLine() {
    tblTask.CheckBrowseMode();
    tblTask.Append();
    if (Visible() && grdTasks.CanFocus()) grdTasks.SetFocus();
    grdTasks.SelectColumn(0);
}

void TfrmJob::DeleteLine() {
    if (tblTask.State() == DataSetState::Insert) {
        tblTask.Cancel();
        return;
    }
    if (tblTask.IsEmpty()) return;
    tblTask.Delete();
}

void TfrmJob::MoveLine(int direction) {
    // An open line is saved first: it moves as typed.
    tblTask.CheckBrowseMode();
    if (tblTask.IsEmpty()) return;
    if (EntryTable.State() == DataSetState::Browse) EntryTable.Edit();
    const store::Value task = tblTask.FieldByName("TaskID").AsValue();
    const std::int64_t line = tblTask.FieldByName("LineNo").AsInteger();
    tblTask.DisableControls();
    struct Enable {
        store::DataSet& ds;
        ~Enable() { ds.EnableControls(); }
    } enable{tblTask};
    if (!MoveTask(EntryTable.OwnerDatabase(), JobId(), line, direction)) return;
    tblTask.Refresh();
    tblTask.Locate("TaskID", {task});
}

void TfrmJob::CopyFrom(std::int64_t sourceId) {
    store::Database& db = EntryTable.OwnerDatabase();
    store::Table source(db, "Job");
    source.Open();
    if (!source.Locate("JobID", {store::Value(sourceId)}))
        throw Exception("The record has been deleted by another user");
    EntryTable.Insert();
    copying_ = true;
    try {
        for (const std::string& field : CopiedJobFields())
            EntryTable.FieldByName(field).SetValue(source.FieldByName(field).AsValue());
        CopyTasks(db, sourceId, JobId());
    } catch (...) {
        EntryTable.Cancel();
        throw;
    }
    tblTask.Refresh();
    ShowTasks();
    ShowCaption();
}

bool TfrmJob::HasUnsavedWork() {
    return EntryForm::HasUnsavedWork() || (tblTask.Editing() && tblTask.Modified());
}

void TfrmJob::DropUntouchedWork() {
    if (tblTask.Editing()) tblTask.Cancel();
    if (EntryTable.State() == DataSetState::Insert && tblTask.IsEmpty()) EntryTable.Cancel();
}

void TfrmJob::DropWork() {
    if (tblTask.Editing()) tblTask.Cancel();
    if (EntryTable.Editing()) EntryTable.Cancel();
}

std::string TfrmJob::KeyViolationMessage() const {
    return "Job already exists";
}

void TfrmJob::OpenNotes(bool find) {
    memNotes.CommitEdit();
    auto& notes = App().CreateForm<TfrmJobNotes>(static_cast<store::DataSet&>(EntryTable));
    notes.FindAtShow = find;
    notes.ShowModal();
}

} // namespace corvane::timebilling
