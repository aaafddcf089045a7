#pragma once

#include "core/Refusal.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace corvane::store {
class Database;
class DataSet;
} // namespace corvane::store

namespace corvane::receivables {

// The hidden key and the number on screen of a customer being made.
struct CustomerKeys {
    std::string CustomerNo;
    std::int64_t CustomerID = 0;
};

// Asked when the control table stayed locked through a whole round of tries: true to try again.
using AskRetry = std::function<bool(const std::string& message)>;

// Takes the next number and id from CustCtl: the number restarts at 1001 when it strayed below
// 1001 or above 10000000, the id starts at 10000. Nothing when the user gave up; a number taken
// is never given back.
std::optional<CustomerKeys> DrawCustomerKeys(store::Database& db, const AskRetry& askRetry);

// A new customer after its keys: the company's currency and two taxes when it has them, not COD,
// no prepayment, not suspended, statements printed and back orders allowed.
void SetNewCustomerDefaults(store::Database& db, store::DataSet& customer);

// The checks before a customer is written, in the order the user is told: number, name,
// currency, then the salesman, the type and the currency still on file.
Verdict CheckCustomer(store::Database& db, store::DataSet& customer);

// A customer with invoices keeps its currency: the invoices are in it.
Verdict CheckCurrencyChange(store::Database& db, std::int64_t customerId);

// Why the customer cannot be deleted: jobs first, then invoices; empty when neither. Payments and
// time sheets go through invoices and jobs, so they are not looked at.
std::string CustomerInUse(store::Database& db, std::int64_t customerId);

// Deletes the customer with its balance row and its contacts, all or nothing.
void DeleteCustomer(store::Database& db, std::int64_t customerId);

// "<no>: <name>", how lists and messages name a customer.
std::string CustomerLabel(std::string_view number, std::string_view name);

inline constexpr std::string_view CustomerNoTakenMessage = "Customer no. must be unique";

} // namespace corvane::receivables
