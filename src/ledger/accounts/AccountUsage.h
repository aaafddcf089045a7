#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace corvane::store {
class Database;
}

namespace corvane::ledger {

// A place that refers to an account or subaccount, and what the refusal to delete it says. A
// subaccount's field names its level with '#' ("SubAccount#ID").
struct AccountUse {
    std::string_view Table;
    std::string_view Field;
    std::string_view Reason;
};

// Every place an account is referred to, in the order a delete tests them.
std::span<const AccountUse> AccountUses();
// The same for a subaccount of any level.
std::span<const AccountUse> SubAccountUses();

// The reason of the first use found; empty when the account is used nowhere.
std::string AccountInUse(store::Database& db, std::int64_t glAccountId);
std::string SubAccountInUse(store::Database& db, int level, std::int64_t subAccountId);

// "Delete 'no: name'?" and "Unable to delete 'no: name'...\n" + reason.
std::string DeleteQuestion(std::string_view number, std::string_view name);
std::string DeleteRefusal(std::string_view number, std::string_view name, std::string_view reason);

} // namespace corvane::ledger
