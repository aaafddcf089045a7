#pragma once

#include "receivables/masters/FieldActionButton.h"
#include "shell/patterns/EntryForm.h"
#include "ui/DBEdit.h"
#include "ui/DBMemo.h"
#include "ui/FieldDataLink.h"

#include <memory>
#include <vector>

namespace corvane::shell {
class TdmLookUps;
}

namespace corvane::receivables {

// One salesman: the name (first and last together unique), the title, five telephones each
// with its dial button, the e-mail address with its mail button, and notes.
class TfrmSalesman : public shell::EntryForm {
public:
    TfrmSalesman(ui::Application& app, store::Database& db);

    store::Table& tblSalesman = EntryTable;
    ui::DBEdit editFirstName{*this, "editFirstName", EntryTable, "FirstName"};
    ui::DBEdit editLastName{*this, "editLastName", EntryTable, "LastName"};
    ui::DBEdit editJobTitle{*this, "editJobTitle", EntryTable, "JobTitle"};
    ui::DBEdit editBusinessPhone{*this, "editBusinessPhone", EntryTable, "BusinessPhone"};
    ui::DBEdit editBusinessPhoneExt{*this, "editBusinessPhoneExt", EntryTable, "BusinessPhoneExt"};
    ui::DBEdit editBusinessPhone2{*this, "editBusinessPhone2", EntryTable, "BusinessPhone2"};
    ui::DBEdit editBusinessPhone2Ext{*this, "editBusinessPhone2Ext", EntryTable,
                                     "BusinessPhone2Ext"};
    ui::DBEdit editCellular{*this, "editCellular", EntryTable, "Cellular"};
    ui::DBEdit editPager{*this, "editPager", EntryTable, "Pager"};
    ui::DBEdit editHomePhone{*this, "editHomePhone", EntryTable, "HomePhone"};
    ui::DBEdit editFax{*this, "editFax", EntryTable, "Fax"};
    ui::DBEdit editEMail{*this, "editEMail", EntryTable, "EMail"};
    ui::DBMemo memNotes{*this, "memNotes", EntryTable, "Notes"};
    ui::Button btnBusinessPhone{*this, "btnBusinessPhone", "Dial"};
    ui::Button btnBusinessPhone2{*this, "btnBusinessPhone2", "Dial"};
    ui::Button btnCellular{*this, "btnCellular", "Dial"};
    ui::Button btnPager{*this, "btnPager", "Dial"};
    ui::Button btnHomePhone{*this, "btnHomePhone", "Dial"};
    ui::Button btnEMail{*this, "btnEMail", "E-Mail"};

    shell::TdmLookUps* LookUps = nullptr;

protected:
    std::string KeyViolationMessage() const override;

private:
    void ShowCaption();

    std::vector<std::unique_ptr<FieldActionButton>> actions_;
    ui::DBEdit* const nameEdit_ = &editLastName;
    ui::FieldDataLink firstLink_{EntryTable, "FirstName", [this] { ShowCaption(); }};
    ui::FieldDataLink lastLink_{EntryTable, "LastName", [this] { ShowCaption(); }};
};

} // namespace corvane::receivables
