#pragma once

namespace corvane::store {
class Database;
}

namespace corvane::company {

// The sample company's customer payments in the last month of the fiscal year: one in full with
// a discount taken, one in part, one abroad with the rest written off, all posted through the
// payment posting run (their vouchers wait for the ledger's posting), and one more entered and
// not yet posted. Written through the payment document, as entry would write them.
void WriteSamplePayments(store::Database& db, int fiscalYear);

} // namespace corvane::company
