#pragma once

#include "receivables/customers/CustomerPick.h"
#include "ui/Edit.h"
#include "ui/FieldDataLink.h"

#include <string>

namespace corvane::store {
class Database;
class DataSet;
} // namespace corvane::store

namespace corvane::receivables {

// An edit that shows a customer's name but stands for the CustomerID field of a record. The name
// is never typed: a printable key opens the customer search with that key as the start of the
// name, Enter opens it as it is, and Esc shows the stored customer again. The customer chosen
// becomes the field's value and the focus moves on; a suspended one is refused unless allowed.
class CustomerBox {
public:
    CustomerBox(ui::Edit& box, store::DataSet& dataSet, store::Database& db, bool allowSuspended);
    CustomerBox(const CustomerBox&) = delete;
    CustomerBox& operator=(const CustomerBox&) = delete;

    // Opens the search, firstChar (0 for none) starting its name; true when a customer was
    // chosen.
    bool Pick(char firstChar = 0);
    void ShowStored();

private:
    ui::Edit& box_;
    store::DataSet& dataSet_;
    store::Database& db_;
    bool allowSuspended_;
    ui::FieldDataLink link_;
};

} // namespace corvane::receivables
