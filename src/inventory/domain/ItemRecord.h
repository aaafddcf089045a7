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

namespace corvane::inventory {

// The hidden key and the proposed number of an item being made.
struct ItemKeys {
    std::string ItemNo;
    std::int64_t ItemID = 0;
};

// Asked when the control table stayed locked through a whole round of tries: true to try again.
using AskRetry = std::function<bool(const std::string& message)>;

// Takes the next number and id from ItemCtl: the number restarts at 1001 outside 1001 to
// 10000000, the id starts at 10000. A number some item already carries (typed by hand earlier)
// is passed over and the next one drawn, so the proposal can be saved as it stands. Nothing
// when the user gave up.
std::optional<ItemKeys> DrawItemKeys(store::Database& db, const AskRetry& askRetry);

// The tax codes a new item starts with: the first letter of each tax in name order, each once,
// at most three. A new item is taxable by every tax until the user says not.
std::string DefaultTaxCodes(store::Database& db);

// A new item after its keys: not suspended, the company's default accounts, all tax codes.
void SetNewItemDefaults(store::Database& db, store::DataSet& item);

// The checks before an item is written, in the order the user is told: the required fields and
// the pair of cost accounts, the type and subtype on file, the accounts and subaccounts on file,
// the tax codes, and the standard cost of a standard-costed stocked item.
Verdict CheckItem(store::Database& db, store::DataSet& item);

// Why the item cannot be deleted: posted history first, then invoices; empty when neither.
std::string ItemInUse(store::Database& db, std::int64_t itemId);

// Deletes the item with its balance rows in every warehouse, all or nothing.
void DeleteItem(store::Database& db, std::int64_t itemId);

// "<no>: <description>", how lists and messages name an item.
std::string ItemLabel(std::string_view number, std::string_view description);

inline constexpr std::string_view ItemNoTakenMessage = "Item no. must be unique";

} // namespace corvane::inventory
