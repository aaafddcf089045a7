#include "timebilling/TimeBillingFormsFixture.h"
#include "timebilling/forms/TfrmJob.h"
#include "timebilling/forms/TfrmJobNotes.h"
#include "timebilling/forms/TfrmJobs.h"
#include "ui/FormDriver.h"

using namespace corvane;
using namespace corvane::timebilling;
using corvane::ui::FormDriver;

namespace {

class JobFormTest : public corvane::testing::TimeBillingFormsTest {
protected:
    TfrmJobs& List() {
        auto& list = app.CreateForm<TfrmJobs>(db_);
        list.Show();
        return list;
    }
    TfrmJob& JobForm() { return dynamic_cast<TfrmJob&>(app.GetForm("frmJob")); }
    std::string Lines(int job) {
        store::Query q(db_, "SELECT TaskName FROM Task WHERE JobID = :J ORDER BY LineNo");
        q.ParamByName("J").SetAsInteger(job);
        q.Open();
        std::string names;
        for (; !q.Eof(); q.Next())
            names += (names.empty() ? "" : ",") + q.FieldByName("TaskName").AsString();
        return names;
    }
    void TypeTask(FormDriver& f, const std::string& type, const std::string& name) {
        f.Click("popNewTask");
        f.EnterCell("grdTasks", "TaskTypeID", type);
        f.EnterCell("grdTasks", "TaskName", name);
    }
};

} // namespace

TEST_F(JobFormTest, NewJobIsCheckedInOrderAndItsTasksAreTypedIntoTheGrid) {
    FormDriver d(List());
    d.Click("mnuNew");
    TfrmJob& form = JobForm();
    FormDriver f(form);
    EXPECT_EQ(form.Caption, "New Job");
    EXPECT_EQ(f.Text("editPriority"), "10");
    EXPECT_TRUE(f.Checked("chkAuthorized"));
    f.Click("btnOK");
    EXPECT_EQ(dialogs.LastText(), "Field 'Customer' must have a value");
    f.Choose("cboCustomer", "Acme");
    f.Click("btnOK");
    EXPECT_EQ(dialogs.LastText(), "Field 'Job Name' must have a value");
    EXPECT_EQ(f.FocusedName(), "editJobName");
    f.EnterText("editJobName", "Office fit-out");
    TypeTask(f, "Design", "Plans");
    TypeTask(f, "travel", "Site visits"); // a type is found whatever its case
    f.Click("popNewTask");
    f.EnterCell("grdTasks", "TaskTypeID", "Design");
    f.Click("btnOK");
    EXPECT_EQ(dialogs.LastText(),
              "Field 'Task Name' must have a value...\nMake changes or press Esc to undo");
    f.EnterCell("grdTasks", "TaskName", "Build");
    f.Click("btnOK");
    // Saved and closed: the form is freed with its OK.
    EXPECT_EQ(app.FindForm("frmJob"), nullptr);
    EXPECT_EQ(Lines(1), "Plans,Site visits,Build");
    EXPECT_EQ(Scalar("SELECT DueDateEntered FROM Job"), "B");
    EXPECT_EQ(d.GridRow("grdList")[3], "Office fit-out");
}

TEST_F(JobFormTest, CtrlUAndCtrlDMoveTheLineAndCancelPutsTheLinesBack) {
    AddJob(1, 1, "Site");
    AddTask(1, 1, 1, "A", 1);
    AddTask(2, 1, 2, "B", 1);
    AddTask(3, 1, 3, "C", 1);
    InsertRow("JobCtl", {{"NextJobID", 2}, {"NextTaskID", 4}});
    FormDriver d(List());
    d.Click("mnuEdit");
    TfrmJob& form = JobForm();
    FormDriver f(form);
    EXPECT_EQ(form.Caption, "Site");
    f.SelectRow("grdTasks", 2);
    f.PressKey("grdTasks", ui::ParseShortCut("Ctrl+U"));
    EXPECT_EQ(Lines(1), "A,C,B");
    EXPECT_EQ(form.tblTask.FieldByName("TaskName").AsString(), "C"); // the line moved with it
    f.PressKey("grdTasks", ui::ParseShortCut("Ctrl+U"));
    f.PressKey("grdTasks", ui::ParseShortCut("Ctrl+U")); // at the top: nothing happens
    EXPECT_EQ(Lines(1), "C,A,B");
    f.Click("btnMoveDown");
    EXPECT_EQ(Lines(1), "A,C,B");
    TypeTask(f, "Design", "D");
    dialogs.Answer(ui::mbYes);
    f.SelectRow("grdTasks", 0);
    f.Click("popDeleteTask");
    EXPECT_EQ(dialogs.LastText(), "Delete task 'A'?");
    EXPECT_EQ(Lines(1), "C,B,D");
    f.Click("btnCancel");
    EXPECT_EQ(Lines(1), "A,B,C");
}

TEST_F(JobFormTest, CopyMakesANewJobWithCopiedTasksThatCancelRemoves) {
    AddJob(1, 1, "Site");
    AddTask(1, 1, 1, "A", 1);
    AddTask(2, 1, 2, "B", 2);
    InsertRow("JobCtl", {{"NextJobID", 5}, {"NextTaskID", 20}});
    FormDriver d(List());
    d.Click("mnuCopy");
    TfrmJob& form = JobForm();
    EXPECT_EQ(form.Caption, "New (copied) Job");
    EXPECT_EQ(Lines(5), "A,B");
    FormDriver f(form);
    f.Click("btnCancel");
    EXPECT_EQ(Lines(5), "");
    EXPECT_EQ(CountRows("Job"), 1);
    d.Click("mnuCopy");
    FormDriver(JobForm()).Click("btnOK");
    EXPECT_EQ(CountRows("Job"), 2);
    EXPECT_EQ(Lines(6), "A,B");
    EXPECT_EQ(Scalar("SELECT MIN(TaskID) FROM Task WHERE JobID = 6"), "22");
}

TEST_F(JobFormTest, DeleteAsksThenRefusesAJobWithTime) {
    AddJob(1, 1, "Site");
    AddTask(1, 1, 1, "A", 1);
    AddJob(2, 2, "Shop");
    AddTask(2, 2, 1, "B", 1);
    AddTime(1, 1, 1, 1, Date::FromYmd(2017, 3, 1), 1);
    auto& list = List();
    FormDriver d(list);
    list.tblJob.Locate("JobID", {1});
    dialogs.Answer(ui::mbYes);
    d.Click("mnuDelete");
    EXPECT_EQ(dialogs.LastText(), "Unable to delete job 'Site'...\nTime Sheet(s) exist");
    list.tblJob.Locate("JobID", {2});
    dialogs.Answer(ui::mbYes);
    d.Click("mnuDelete");
    EXPECT_EQ(CountRows("Job"), 1);
    EXPECT_EQ(CountRows("Task"), 1);
}

TEST_F(JobFormTest, OutstandingAndFilterCaptions) {
    AddJob(1, 1, "Open");
    AddJob(2, 1, "Done", true, true);
    auto& list = List();
    FormDriver d(list);
    EXPECT_EQ(list.Caption, "Jobs");
    d.Click("mnuOutstanding");
    EXPECT_EQ(list.Caption, "Jobs (Outstanding)");
    EXPECT_EQ(list.tblJob.RecordCount(), 1);
    d.Click("mnuOutstanding");
    EXPECT_EQ(list.Caption, "Jobs");
    EXPECT_EQ(list.tblJob.RecordCount(), 2);
}

TEST_F(JobFormTest, NotesPopUpKeepsPlainTextHeadlessAndCancelPutsItBack) {
    AddJob(1, 1, "Site");
    FormDriver d(List());
    d.Click("mnuEdit");
    TfrmJob& form = JobForm();
    FormDriver f(form);
    f.EnterText("memNotes", "Bring the ladder");
    // Formatting asks a host that draws rich text; headless the text stays plain and whole.
    f.Click("popNotesBold");
    f.Click("popNotesUnderline");
    EXPECT_EQ(f.Text("memNotes"), "Bring the ladder");
    EXPECT_TRUE(f.Checked("popNotesWordWrap"));
    f.Click("popNotesWordWrap");
    EXPECT_FALSE(form.memNotes.WordWrap);

    host.ScriptModal("frmJobNotes", [](ui::Form& notes) {
        FormDriver n(notes);
        EXPECT_EQ(n.Text("memNotes"), "Bring the ladder");
        n.EnterText("memNotes", "Nothing to bring");
        n.Click("btnCancel");
    });
    f.Click("popNotesEdit");
    EXPECT_EQ(f.Text("memNotes"), "Bring the ladder");

    // Find starts in the find box and selects the next place, letter case aside.
    host.ScriptModal("frmJobNotes", [this](ui::Form& notes) {
        FormDriver n(notes);
        EXPECT_EQ(n.FocusedName(), "editFind");
        n.EnterText("editFind", "LADDER");
        n.Click("btnFindNext");
        auto& memo = dynamic_cast<TfrmJobNotes&>(notes).memNotes;
        EXPECT_EQ(memo.SelText(), "ladder");
        n.EnterText("editFind", "rope");
        n.Click("btnFindNext");
        EXPECT_EQ(dialogs.LastText(), "'rope' not found");
        n.EnterText("memNotes", "Bring the ladder and the rope");
        n.Click("btnOK");
    });
    f.Click("popNotesFind");
    f.Click("btnOK");
    EXPECT_EQ(Scalar("SELECT Notes FROM Job WHERE JobID = 1"), "Bring the ladder and the rope");
}
