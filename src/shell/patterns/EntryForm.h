#pragma once

#include "store/Database.h"
#include "store/Table.h"
#include "ui/Button.h"
#include "ui/Form.h"

#include <functional>
#include <string>

namespace corvane::shell {

// A free window on one record of its own table cursor, opened by a list form in insert or edit
// state. Subclasses add the bound controls and the layout (ending with ButtonRow{btnOK,
// btnCancel}) and name the message for a duplicate key.
class EntryForm : public ui::Form {
public:
    EntryForm(ui::Application& app, std::string name, store::Database& db, std::string tableName,
              std::string tableComponentName);

    store::Table EntryTable;
    ui::Button btnOK{*this, "btnOK", "OK"};
    ui::Button btnCancel{*this, "btnCancel", "Cancel"};

    // Posts the record (when in edit or insert) and closes; a refused post leaves the form open
    // with the record as it was typed.
    void SaveAndClose();
    // Drops what was typed and closes.
    void CancelAndClose();
    // Runs after a successful post, before the form closes: the list follows the saved row.
    std::function<void(EntryForm&)> AfterSave;

protected:
    // The sentence shown when the post would give a second row the same unique key.
    virtual std::string KeyViolationMessage() const = 0;

    // What the close question works with, for a form whose work is more than its one record (a
    // voucher and its lines): whether anything typed is unsaved, dropping what nobody typed
    // into, saving (raising when refused) and dropping the unsaved work.
    virtual bool HasUnsavedWork();
    virtual void DropUntouchedWork();
    virtual void SaveWork() { PostRecord(); }
    virtual void DropWork() { EntryTable.Cancel(); }

private:
    void PostRecord();
    void AskBeforeClose(bool& canClose);
};

} // namespace corvane::shell
