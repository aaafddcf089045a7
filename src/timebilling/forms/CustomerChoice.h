#pragma once

#include "store/Value.h"

namespace corvane::store {
class Database;
class Table;
} // namespace corvane::store

namespace corvane::ui {
class Button;
class DBLookupComboBox;
} // namespace corvane::ui

namespace corvane::timebilling {

// A "..." button beside a customer combo of time billing opens the customer search, started on
// the customer chosen now; the customer picked there becomes the combo's choice (its OnChange
// runs), Cancel leaves it as it was.
void ConnectCustomerSearch(ui::Button& button, ui::DBLookupComboBox& combo, store::Database& db);

// A job list narrowed to one customer's jobs ("CustomerID = <id>"), or all jobs when none is
// chosen.
void NarrowJobsToCustomer(store::Table& jobs, const store::Value& customer);

} // namespace corvane::timebilling
