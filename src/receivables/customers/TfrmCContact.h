#pragma once

#include "receivables/masters/FieldActionButton.h"
#include "shell/patterns/EntryForm.h"
#include "ui/DBEdit.h"
#include "ui/DBMemo.h"

#include <functional>
#include <memory>
#include <vector>

namespace corvane::receivables {

// One contact at a customer: name, title, telephones with their dial buttons, e-mail and notes.
// The caption names the customer: "New Contact at <customer>" or "<contact> at <customer>".
class TfrmCContact : public shell::EntryForm {
public:
    TfrmCContact(ui::Application& app, store::Database& db);

    store::Table& tblCContact = EntryTable;
    ui::DBEdit editFirstName{*this, "editFirstName", EntryTable, "FirstName"};
    ui::DBEdit editLastName{*this, "editLastName", EntryTable, "LastName"};
    ui::DBEdit editJobTitle{*this, "editJobTitle", EntryTable, "JobTitle"};
    ui::DBEdit editBusinessPhone{*this, "editBusinessPhone", EntryTable, "BusinessPhone"};
    ui::DBEdit editBusinessPhoneExt{*this, "editBusinessPhoneExt", EntryTable, "BusinessPhoneExt"};
    ui::DBEdit editCellular{*this, "editCellular", EntryTable, "Cellular"};
    ui::DBEdit editHomePhone{*this, "editHomePhone", EntryTable, "HomePhone"};
    ui::DBEdit editFax{*this, "editFax", EntryTable, "Fax"};
    ui::DBEdit editEMail{*this, "editEMail", EntryTable, "EMail"};
    ui::DBMemo memNotes{*this, "memNotes", EntryTable, "Notes"};
    ui::Button btnBusinessPhone{*this, "btnBusinessPhone", "Dial"};
    ui::Button btnCellular{*this, "btnCellular", "Dial"};
    ui::Button btnHomePhone{*this, "btnHomePhone", "Dial"};
    ui::Button btnEMail{*this, "btnEMail", "E-Mail"};

    // Starts a contact of the customer, or opens one of its contacts.
    void StartNew(std::int64_t customerId, std::string customerName);
    void StartEdit(std::int64_t customerId, std::int64_t contactId, std::string customerName);

protected:
    std::string KeyViolationMessage() const override { return "Contact must be unique"; }

private:
    void ShowCaption();

    std::string customerName_;
    std::int64_t customerId_ = 0;
    std::vector<std::unique_ptr<FieldActionButton>> actions_;
};

// "<first> <last>", or the one that is set.
std::string ContactFullName(const store::DataSet& contact);

} // namespace corvane::receivables
