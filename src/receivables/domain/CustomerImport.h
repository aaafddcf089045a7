#pragma once

#include "banking/domain/RowImport.h"

namespace corvane::receivables {

// Customers from a data file, each saved as the customer form saves one: its number and id drawn
// from CustCtl (a number in the file replaces the drawn one), the new customer's defaults, every
// check in order.
banking::ImportTarget CustomerImport(store::Database& db);

} // namespace corvane::receivables
