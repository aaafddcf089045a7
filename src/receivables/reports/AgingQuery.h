#pragma once

#include "receivables/reports/ARReportOptions.h"

#include <memory>
#include <string>

namespace corvane::store {
class Query;
}

namespace corvane::receivables {

// The open invoices as of a date, computed from the invoices and the posted payments dated up to
// it (never from the stored Owing), so that a past date comes out as it stood then.
enum class AgingShape {
    Invoices,  // the aged receivables: one row an invoice
    Customers, // the summary: the same rows without the invoice's number and state
    Statement, // the unpaid-invoices statement: with description, terms and address
};

// The statement in the store's dialect with the options' conditions; its parameters are bound by
// BindOptions. Salesman narrows only the aged reports; a statement run for all customers takes
// only those who get statements. With oneCustomer the statement reads the invoices of the
// customer of :CustomerID only, for a report that walks the customers itself.
std::string AgingStatement(AgingShape shape, const ARReportOptions& options,
                           bool oneCustomer = false);

// The aging's calculated fields on the query: Owing, OwingDomestic, Age, AgePeriod1Amt to
// AgePeriod4Amt and their domestic AgePeriod1Dom to AgePeriod4Dom, CustomerNamePhone.
void AddAgingFields(store::Query& query, Date asOf);

// Hides every row of a customer who fails the thresholds; the present open sums are read when
// the query opens.
void ApplyThresholds(store::Query& query, store::Database& db, const ARReportOptions& options);

} // namespace corvane::receivables
