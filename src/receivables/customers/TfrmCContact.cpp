#include "receivables/customers/TfrmCContact.h"

#include "shell/lookups/LookUpCalcFields.h"
#include "ui/Layout.h"

namespace corvane::receivables {

std::string ContactFullName(const store::DataSet& contact) {
    auto& data = const_cast<store::DataSet&>(contact);
    return shell::SalesmanFullName(data.FieldByName("FirstName").AsString(),
                                   data.FieldByName("LastName").AsString());
}

TfrmCContact::TfrmCContact(ui::Application& app, store::Database& db)
    : EntryForm(app, "frmCContact", db, "CContact", "tblCContact") {
    using namespace ui;
    auto dial = [this](const std::string& number) { DialNumber(App(), number); };
    for (auto [button, field] :
         {std::pair{&btnBusinessPhone, "BusinessPhone"}, std::pair{&btnCellular, "Cellular"},
          std::pair{&btnHomePhone, "HomePhone"}})
        actions_.push_back(std::make_unique<FieldActionButton>(*button, EntryTable, field, dial));
    actions_.push_back(std::make_unique<FieldActionButton>(
        btnEMail, EntryTable, "EMail", [this](const std::string& a) { MailTo(App(), a); }));
    SetLayout(Column{
        FormRow{"First Name:", editFirstName},
        FormRow{"Last Name:", editLastName},
        FormRow{"Job Title:", editJobTitle},
        FormRow{"Business Phone:", Row{editBusinessPhone, editBusinessPhoneExt, btnBusinessPhone}},
        FormRow{"Cellular:", Row{editCellular, btnCellular}},
        FormRow{"Home Phone:", Row{editHomePhone, btnHomePhone}},
        FormRow{"Fax:", editFax},
        FormRow{"E-Mail:", Row{editEMail, btnEMail}},
        FormRow{"Notes:", memNotes},
        ButtonRow{btnOK, btnCancel},
    });
    EntryTable.OnNewRecord = [this](store::DataSet& ds) {
        ds.FieldByName("CustomerID").SetAsInteger(customerId_);
    };
    OnShow = [this] { ShowCaption(); };
}

void TfrmCContact::StartNew(std::int64_t customerId, std::string customerName) {
    customerId_ = customerId;
    customerName_ = std::move(customerName);
    EntryTable.Insert();
    ShowCaption();
}

void TfrmCContact::StartEdit(std::int64_t customerId, std::int64_t contactId,
                             std::string customerName) {
    customerId_ = customerId;
    customerName_ = std::move(customerName);
    EntryTable.Locate("CustomerID;ContactID", {customerId, contactId});
    EntryTable.Edit();
    ShowCaption();
}

void TfrmCContact::ShowCaption() {
    if (!EntryTable.Active()) return;
    const std::string name = ContactFullName(EntryTable);
    Caption = (EntryTable.State() == store::DataSetState::Insert && name.empty()
                   ? std::string("New Contact")
                   : name) +
              " at " + customerName_;
}

} // namespace corvane::receivables
