#pragma once

#include "shell/patterns/EntryForm.h"
#include "ui/DBEdit.h"
#include "ui/FieldDataLink.h"

namespace corvane::shell {
class TdmLookUps;
}

namespace corvane::receivables {

// One customer type: its name, unique without regard to case.
class TfrmCusType : public shell::EntryForm {
public:
    TfrmCusType(ui::Application& app, store::Database& db);

    store::Table& tblCusType = EntryTable;
    ui::DBEdit editTypeName{*this, "editTypeName", EntryTable, "TypeName"};

    shell::TdmLookUps* LookUps = nullptr;

protected:
    std::string KeyViolationMessage() const override;

private:
    void ShowCaption();

    ui::DBEdit* const nameEdit_ = &editTypeName;
    ui::FieldDataLink nameLink_{EntryTable, "TypeName", [this] { ShowCaption(); }};
};

} // namespace corvane::receivables
