#pragma once

namespace corvane::store {
class Database;
}

namespace corvane::company {

// The sample company's sales in the last quarter of the fiscal year: invoices to customers in
// both currencies, two paid in part or in full at the point of sale, one credit note, most of
// them printed and posted through the invoice posting run (their vouchers wait, like the
// quarter's others, for the ledger's posting) and a few still being worked on. Written through
// the invoice document, so taxes, amounts and numbers are what entry would give.
void WriteSampleInvoices(store::Database& db, int fiscalYear);

} // namespace corvane::company
