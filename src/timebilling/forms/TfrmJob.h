#pragma once

#include "shell/patterns/EntryForm.h"
#include "store/Table.h"
#include "timebilling/domain/JobRules.h"
#include "timebilling/forms/NotesMenu.h"
#include "ui/Button.h"
#include "ui/DBCheckBox.h"
#include "ui/DBEdit.h"
#include "ui/DBLookupComboBox.h"
#include "ui/DateEdit.h"
#include "ui/FieldDataLink.h"
#include "ui/Grid.h"
#include "ui/Menu.h"
#include "ui/MenuItem.h"
#include "ui/RichEdit.h"

#include <optional>

namespace corvane::timebilling {

// A job: its customer and header, its notes, and a grid of its tasks typed in place. Task lines
// are written as they are typed; the form keeps the lines as they stood when the job was opened
// and puts them back on Cancel, so a cancelled job leaves its tasks as they were.
class TfrmJob : public shell::EntryForm {
public:
    TfrmJob(ui::Application& app, store::Database& db);
    ~TfrmJob() override;

    store::Table& tblJob = EntryTable;
    store::Table tblTask;
    store::Table tblCustomer, tblEmployee, tblTaskType, tblLeader;

    ui::DBLookupComboBox cboCustomer;
    ui::DBEdit editJobName{*this, "editJobName", EntryTable, "JobName"};
    ui::DBEdit editRequestedBy{*this, "editRequestedBy", EntryTable, "RequestedBy"};
    ui::DateEdit editRequestedOn{*this, "editRequestedOn"};
    ui::DateEdit editDueDate{*this, "editDueDate"};
    ui::DBEdit editPriority{*this, "editPriority", EntryTable, "Priority"};
    ui::DBCheckBox chkAuthorized{*this, "chkAuthorized", "OK to Proceed", EntryTable, "Authorized"};
    ui::DBCheckBox chkCompleted{*this, "chkCompleted", "Completed", EntryTable, "Completed"};
    ui::DBLookupComboBox cboProjectLeader;
    ui::DBEdit editEstimatedPrice{*this, "editEstimatedPrice", EntryTable, "EstimatedPrice"};
    ui::DBEdit editMaximumPrice{*this, "editMaximumPrice", EntryTable, "MaximumPrice"};
    ui::DBEdit editFixedPrice{*this, "editFixedPrice", EntryTable, "FixedPrice"};
    // Rich text: kept as the window's rich text box writes it, plain where typed headless.
    ui::DBRichEdit memNotes{*this, "memNotes", EntryTable, "Notes"};
    NotesMenu notesMenu{*this, memNotes, [this] { OpenNotes(false); }, [this] { OpenNotes(true); }};

    ui::PopupMenu popTasks{*this, "popTasks"};
    ui::MenuItem popNewTask{popTasks, "popNewTask", "&New", "Ctrl+Ins"};
    ui::MenuItem popDeleteTask{popTasks, "popDeleteTask", "&Delete", "Ctrl+Del"};
    ui::MenuItem popMoveUp{popTasks, "popMoveUp", "Move &Up", "Ctrl+U"};
    ui::MenuItem popMoveDown{popTasks, "popMoveDown", "Move &Down", "Ctrl+D"};
    ui::Grid grdTasks{*this, "grdTasks", tblTask};
    ui::Button btnMoveUp{*this, "btnMoveUp", "Move &Up"};
    ui::Button btnMoveDown{*this, "btnMoveDown", "Move &Down"};

    // A new job with the header and tasks of the saved job sourceId and a number of its own.
    void CopyFrom(std::int64_t sourceId);
    // The current task line one place up (-1) or down (+1); nothing at the ends.
    void MoveLine(int direction);
    void NewLine();
    void DeleteLine();
    // The notes in their own window, starting in its find box when find is asked.
    void OpenNotes(bool find);

protected:
    std::string KeyViolationMessage() const override;

private:
    void SetUpTaskFields();
    void ShowTasks();
    void TakeSnapshot();
    void RestoreSnapshot();
    void ShowCaption();
    std::int64_t JobId();
    // The question a busy JobCtl asks: Retry or Cancel.
    DrawRetry AskRetry();
    bool HasUnsavedWork() override;
    void DropUntouchedWork() override;
    void DropWork() override;

    std::optional<TaskSnapshot> snapshot_;
    bool copying_ = false;
    ui::FieldDataLink nameLink_{EntryTable, "JobName", [this] { ShowCaption(); }};
};

} // namespace corvane::timebilling
