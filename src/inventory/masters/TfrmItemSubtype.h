#pragma once

#include "shell/patterns/EntryForm.h"
#include "ui/DBEdit.h"
#include "ui/DBLookupComboBox.h"
#include "ui/FieldDataLink.h"

namespace corvane::shell {
class TdmLookUps;
}

namespace corvane::inventory {

// One item subtype: its name and the item type it belongs to.
class TfrmItemSubtype : public shell::EntryForm {
public:
    TfrmItemSubtype(ui::Application& app, store::Database& db);

    store::Table& tblItemSubtype = EntryTable;
    store::Table tblItemType;
    ui::DBEdit editSubtypeName{*this, "editSubtypeName", EntryTable, "SubtypeName"};
    ui::DBLookupComboBox cboItemType;

    shell::TdmLookUps* LookUps = nullptr;

protected:
    std::string KeyViolationMessage() const override;

private:
    void ShowCaption();

    ui::DBEdit* const nameEdit_ = &editSubtypeName;
    ui::FieldDataLink nameLink_{EntryTable, "SubtypeName", [this] { ShowCaption(); }};
};

} // namespace corvane::inventory
