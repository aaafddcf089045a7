#pragma once

namespace corvane::store {
class Database;
}

namespace corvane::company {

// The sample company's time billing: customers when it has none yet, employees, task types,
// jobs with their tasks, and four months of time sheets up to the end of the fiscal year, the
// first two months billed by AutoCreate as the program bills them.
void WriteSampleTimeBilling(store::Database& db, int fiscalYear);

} // namespace corvane::company
