#pragma once

#include "shell/patterns/EntryForm.h"
#include "store/Table.h"
#include "ui/DBEdit.h"
#include "ui/DBLookupComboBox.h"
#include "ui/FieldDataLink.h"

namespace corvane::timebilling {

// A task type: the rate an hour of it bills at, the account its sales go to, and the taxes it
// bears, by their one-letter codes.
class TfrmTaskType : public shell::EntryForm {
public:
    TfrmTaskType(ui::Application& app, store::Database& db);
    ~TfrmTaskType() override;

    store::Table& tblTaskType = EntryTable;
    store::Table tblGLAccnt;
    ui::DBEdit editTypeName{*this, "editTypeName", EntryTable, "TypeName"};
    ui::DBEdit editRate{*this, "editRate", EntryTable, "Rate"};
    ui::DBLookupComboBox cboSalesGLAccount;
    ui::DBEdit editTaxCodes{*this, "editTaxCodes", EntryTable, "TaxCodes"};

protected:
    std::string KeyViolationMessage() const override;

private:
    void ShowCaption();
    ui::DBEdit* const nameEdit_ = &editTypeName;
    ui::FieldDataLink nameLink_{EntryTable, "TypeName", [this] { ShowCaption(); }};
};

} // namespace corvane::timebilling
