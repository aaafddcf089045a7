#pragma once

#include "shell/patterns/EntryForm.h"
#include "ui/DBEdit.h"
#include "ui/DBMemo.h"
#include "ui/FieldDataLink.h"

namespace corvane::timebilling {

// One employee: who records time and leads jobs.
class TfrmEmployee : public shell::EntryForm {
public:
    TfrmEmployee(ui::Application& app, store::Database& db);
    ~TfrmEmployee() override;

    store::Table& tblEmployee = EntryTable;
    ui::DBEdit editEmployeeName{*this, "editEmployeeName", EntryTable, "EmployeeName"};
    ui::DBEdit editJobTitle{*this, "editJobTitle", EntryTable, "JobTitle"};
    ui::DBEdit editBusinessPhone{*this, "editBusinessPhone", EntryTable, "BusinessPhone"};
    ui::DBEdit editBusinessPhoneExt{*this, "editBusinessPhoneExt", EntryTable, "BusinessPhoneExt"};
    ui::DBEdit editBusinessPhone2{*this, "editBusinessPhone2", EntryTable, "BusinessPhone2"};
    ui::DBEdit editBusinessPhone2Ext{*this, "editBusinessPhone2Ext", EntryTable,
                                     "BusinessPhone2Ext"};
    ui::DBEdit editHomePhone{*this, "editHomePhone", EntryTable, "HomePhone"};
    ui::DBEdit editFax{*this, "editFax", EntryTable, "Fax"};
    ui::DBEdit editCellular{*this, "editCellular", EntryTable, "Cellular"};
    ui::DBEdit editPager{*this, "editPager", EntryTable, "Pager"};
    ui::DBEdit editEMail{*this, "editEMail", EntryTable, "EMail"};
    ui::DBMemo memNotes{*this, "memNotes", EntryTable, "Notes"};

protected:
    std::string KeyViolationMessage() const override;

private:
    void ShowCaption();
    ui::DBEdit* const nameEdit_ = &editEmployeeName;
    ui::FieldDataLink nameLink_{EntryTable, "EmployeeName", [this] { ShowCaption(); }};
};

} // namespace corvane::timebilling
