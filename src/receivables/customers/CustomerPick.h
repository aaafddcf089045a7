#pragma once

#include "store/Value.h"

#include <optional>
#include <string>

namespace corvane::store {
class Database;
} // namespace corvane::store

namespace corvane::ui {
class Control;
} // namespace corvane::ui

namespace corvane::receivables {

// Where the customer search starts and whom it accepts.
struct CustomerPick {
    // The index whose box takes the first key: "CustomerName1" or "CustomerNo".
    std::string IndexName = "CustomerName1";
    // The customer chosen now, where the search stands at first; null for the first row.
    store::Value Current = {};
    // The key the user typed to open the search; 0 when it was opened otherwise.
    char FirstChar = 0;
    // Lists and reports take any customer; documents that bill one refuse a suspended one.
    bool AllowSuspended = true;
};

// Shows the customer search modal over caller; the id of the customer chosen, or nothing when
// the user cancelled.
std::optional<store::Value> PickCustomer(const ui::Control& caller, store::Database& db,
                                         const CustomerPick& pick);

} // namespace corvane::receivables
