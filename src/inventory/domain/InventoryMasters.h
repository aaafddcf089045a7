#pragma once

#include "core/Refusal.h"

#include <cstdint>
#include <string>

namespace corvane::store {
class Database;
class DataSet;
} // namespace corvane::store

namespace corvane::inventory {

// Item types: stocked or not, and costed at weighted average (1) or standard (2).
inline constexpr int kWeightedAverage = 1;
inline constexpr int kStandardCost = 2;

// A new type is stocked and costed at weighted average.
void SetNewItemTypeDefaults(store::DataSet& type);
Verdict CheckItemType(store::DataSet& type);
// Subtypes first, then items; empty when neither names the type.
std::string ItemTypeInUse(store::Database& db, std::int64_t itemTypeId);

// A subtype needs its name and a type that is still on file.
Verdict CheckItemSubtype(store::Database& db, store::DataSet& subtype);
std::string ItemSubtypeInUse(store::Database& db, std::int64_t itemSubtypeId);

Verdict CheckWarehouse(store::DataSet& warehouse);
// History, receipts, adjustments, then adjustments that move stock out of it.
std::string WarehouseInUse(store::Database& db, std::int64_t warehouseId);

} // namespace corvane::inventory
