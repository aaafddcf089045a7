#pragma once

#include "core/Refusal.h"

#include <cstdint>
#include <string>

namespace corvane::store {
class Database;
class DataSet;
} // namespace corvane::store

namespace corvane::receivables {

// A customer type needs its name ("Type Name must be unique" is the unique index's).
Verdict CheckCustomerType(store::DataSet& type);
// "Customer(s) exist for this customer type", or empty.
std::string CustomerTypeInUse(store::Database& db, std::int64_t customerTypeId);

// A salesman needs a name: a first name, a last name or both.
Verdict CheckSalesman(store::DataSet& salesman);
// "Customer(s) exist for this salesman", or empty.
std::string SalesmanInUse(store::Database& db, std::int64_t salesmanId);

} // namespace corvane::receivables
