#include "receivables/customers/CustomerCommands.h"

#include "core/Exception.h"
#include "core/Text.h"
#include "receivables/masters/FieldActionButton.h"
#include "shell/patterns/EntryForm.h"
#include "shell/patterns/OpenList.h"
#include "store/Query.h"
#include "ui/Application.h"
#include "ui/Menu.h"

namespace corvane::receivables {

void OpenCustomerRecord(ui::Application& app, const store::Value& customerId) {
    if (customerId.IsNull()) return;
    auto* entry =
        dynamic_cast<shell::EntryForm*>(shell::OpenAllowed(app, "frmCustomer", "Customers"));
    if (!entry) return;
    if (!entry->EntryTable.Locate("CustomerID", {customerId}))
        throw Exception("The record has been deleted by another user");
    entry->EntryTable.Edit();
    entry->Show();
}

CustomerReachCommands::CustomerReachCommands(ui::Application& app, ui::PopupMenu& menu,
                                             store::DataSet& rows, store::Database& db)
    : popReachSep(menu, "popReachSep", "-"), popPhone(menu, "popPhone", "&Phone"),
      popEMail(menu, "popEMail", "E-&Mail"), app_(app), rows_(rows), db_(db),
      link_(rows, "CustomerID", [this] { Follow(); }) {
    popPhone.OnClick = [this] {
        const std::string phone = CustomerField("Phone");
        if (!phone.empty()) DialNumber(app_, phone);
    };
    popEMail.OnClick = [this] {
        const std::string mail = CustomerField("EMail");
        if (!mail.empty()) MailTo(app_, mail);
    };
    // A right click asks afresh: the customer may have been changed since the row was reached.
    menu.OnPopup = [this] { Follow(); };
    Follow();
}

std::string CustomerReachCommands::CustomerField(const char* fieldName) {
    if (!rows_.Active() || rows_.IsEmpty()) return {};
    const store::Value customer = rows_.FieldByName("CustomerID").AsValue();
    if (customer.IsNull()) return {};
    // Read afresh: a number changed on the customer's form counts at once.
    store::Query q(db_,
                   std::string("SELECT ") + fieldName + " FROM Customer WHERE CustomerID = :ID");
    q.ParamByName("ID").SetValue(customer);
    q.Open();
    if (q.IsEmpty()) return {};
    return std::string(TrimBlanks(q.FieldByName(fieldName).AsString()));
}

void CustomerReachCommands::Follow() {
    popPhone.Enabled = !CustomerField("Phone").empty();
    popEMail.Enabled = !CustomerField("EMail").empty();
}

} // namespace corvane::receivables
