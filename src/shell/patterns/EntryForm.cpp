#include "shell/patterns/EntryForm.h"

#include "core/Exception.h"
#include "shell/patterns/EditErrorHook.h"
#include "store/EngineError.h"
#include "ui/Application.h"

namespace corvane::shell {

using store::DataSetState;

EntryForm::EntryForm(ui::Application& app, std::string name, store::Database& db,
                     std::string tableName, std::string tableComponentName)
    : Form(app, std::move(name)), EntryTable(db, std::move(tableName)) {
    EntryTable.Name = std::move(tableComponentName);
    EntryTable.Open();
    EditErrorHook::Attach(EntryTable);
    EnterMovesFocus = true;
    btnCancel.Cancel = true; // Escape
    btnOK.OnClick = [this] { SaveAndClose(); };
    btnCancel.OnClick = [this] { CancelAndClose(); };
    OnCloseQuery = [this](bool& canClose) { AskBeforeClose(canClose); };
}

void EntryForm::PostRecord() {
    try {
        EntryTable.Post();
    } catch (const store::EngineError& e) {
        if (e.ErrorCode() == store::errKeyViolation) throw Exception(KeyViolationMessage());
        throw;
    }
    EntryTable.FlushBuffers();
    if (AfterSave) AfterSave(*this);
}

void EntryForm::SaveAndClose() {
    if (EntryTable.Editing()) PostRecord();
    Close();
}

void EntryForm::CancelAndClose() {
    {
        // No control redraws the half-typed record on its way back to browse.
        EntryTable.DisableControls();
        struct Enable {
            store::DataSet& ds;
            ~Enable() { ds.EnableControls(); }
        } enable{EntryTable};
        if (EntryTable.Editing()) EntryTable.Cancel();
    }
    // Closing may free the form: nothing of it is touched after.
    Close();
}

bool EntryForm::HasUnsavedWork() {
    return EntryTable.State() == DataSetState::Edit ||
           (EntryTable.State() == DataSetState::Insert && EntryTable.Modified());
}

void EntryForm::DropUntouchedWork() {
    // A new record nobody typed into is no work to lose.
    if (EntryTable.State() == DataSetState::Insert) EntryTable.Cancel();
}

void EntryForm::AskBeforeClose(bool& canClose) {
    // What is still in the focused edit counts as typed; after a Cancel there is nothing to keep.
    if (EntryTable.Editing()) CommitPendingEdit();
    if (!HasUnsavedWork()) {
        DropUntouchedWork();
        return;
    }
    if (State == ui::WindowState::Minimized) State = ui::WindowState::Normal;
    switch (App().MessageDlg("Do you want to save changes?", ui::MsgType::Confirmation,
                             {ui::mbYes, ui::mbNo, ui::mbCancel})) {
    case ui::mbYes:
        // A refused save raises here, and the close stops with the work as typed.
        SaveWork();
        break;
    case ui::mbNo:
        DropWork();
        break;
    default:
        canClose = false;
    }
}

} // namespace corvane::shell
