#pragma once

namespace corvane::store {
class Database;
}

namespace corvane::company {

// The sample company's receivables and inventory masters: a second tax, customer types and
// salesmen, customers in both currencies (some exempt from a tax, one suspended), two
// warehouses and items costed both ways with stock in each. Numbers come from the same draws
// the forms use, so the next customer or item typed follows on.
void WriteSampleMasters(store::Database& db);

} // namespace corvane::company
