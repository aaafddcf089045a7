#pragma once

#include "store/DataSet.h"
#include "store/Value.h"
#include "ui/FieldDataLink.h"
#include "ui/MenuItem.h"

#include <string>

namespace corvane::store {
class Database;
}

namespace corvane::ui {
class Application;
class PopupMenu;
} // namespace corvane::ui

namespace corvane::receivables {

// The customer of a row of another list (an invoice, a payment) in the customer's entry form,
// after the user's right to the customers is checked. A customer that has gone is said so.
void OpenCustomerRecord(ui::Application& app, const store::Value& customerId);

// Phone and E-Mail on the pop-up menu of a list whose rows name a customer: they reach the row's
// customer as the customer list reaches its own, and each is enabled only while that customer
// has the number or the address.
class CustomerReachCommands {
public:
    // rows: the list's cursor, with a CustomerID field.
    CustomerReachCommands(ui::Application& app, ui::PopupMenu& menu, store::DataSet& rows,
                          store::Database& db);

    ui::MenuItem popReachSep;
    ui::MenuItem popPhone;
    ui::MenuItem popEMail;

    // The customer's field of the row the list stands on; empty without one.
    std::string CustomerField(const char* fieldName);

private:
    void Follow();

    ui::Application& app_;
    store::DataSet& rows_;
    store::Database& db_;
    ui::FieldDataLink link_;
};

} // namespace corvane::receivables
