#pragma once

namespace corvane::store {
class Field;
class Table;
} // namespace corvane::store

namespace corvane::ledger {

// Where a line's id field finds the number the user knows it by.
struct NumberSource {
    store::Table* Table;
    const char* IdField;
    const char* NumberField;
    // The refusals of a typed number that is unknown, or whose row is suspended.
    const char* NotFound;
    const char* Suspended;
};

// Makes an id field read and write as the number of its row in source: a box bound to it shows
// "1000" for the account whose id it holds and takes a typed number back as that row's id.
// Empty text clears the field. source.Table must outlive the field's use.
void ShowIdAsNumber(store::Field& idField, NumberSource source);

} // namespace corvane::ledger
