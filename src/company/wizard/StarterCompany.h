#pragma once

#include "company/wizard/StarterAnswers.h"

namespace corvane::store {
class Database;
}

namespace corvane::company {

// Fills a company whose tables are all there and empty with its first rows: the chart of
// accounts, the home currency, the company, its bank, its tax when one was named, the
// warehouse, the item types, three items and the cash customer. Rows are posted one by one
// without a transaction, as the wizard's Finish does, so a failure half way leaves what was
// posted before it; the caller checks the answers first (StarterChecks.h).
void CreateStarterCompany(store::Database& db, const StarterAnswers& answers);

} // namespace corvane::company
