#include "inventory/domain/InventoryMasters.h"

#include "banking/domain/RecordChecks.h"
#include "banking/domain/RowUse.h"
#include "store/DataSet.h"

#include <array>

namespace corvane::inventory {

using banking::RowUse;

namespace {

constexpr std::array kTypeUses{
    RowUse{"ItemSubtype", "ItemTypeID", "Item Subtype(s) exist for this item type"},
    RowUse{"Item", "ItemTypeID", "Item(s) exist for this item type"},
};
constexpr std::array kSubtypeUses{
    RowUse{"Item", "ItemSubtypeID", "Item(s) exist for this item subtype"},
};
constexpr std::array kWarehouseUses{
    RowUse{"IHist", "WarehouseID", "History exists for this warehouse"},
    RowUse{"IReceipt", "WarehouseID", "Receipt(s) exist for this warehouse"},
    RowUse{"IAdjust", "WarehouseID", "Adjustment(s) exist for this warehouse"},
    RowUse{"IAdjust", "FromWarehouseID", "Adjustment(s) exist for this warehouse. (From)"},
};

} // namespace

void SetNewItemTypeDefaults(store::DataSet& type) {
    type.FieldByName("Inventory").SetAsBoolean(true);
    type.FieldByName("CostingMethod").SetAsInteger(kWeightedAverage);
}

Verdict CheckItemType(store::DataSet& type) {
    return banking::FirstMissing(type, {{"TypeName", "Type Name"}});
}

std::string ItemTypeInUse(store::Database& db, std::int64_t itemTypeId) {
    return banking::FirstUse(db, kTypeUses, itemTypeId);
}

Verdict CheckItemSubtype(store::Database& db, store::DataSet& subtype) {
    if (Verdict missing = banking::FirstMissing(
            subtype, {{"SubtypeName", "Subtype Name"},
                      {"ItemTypeID", "Item Type", banking::RequiredField::Id}}))
        return missing;
    if (!banking::RowExists(db, "ItemType", "ItemTypeID",
                            subtype.FieldByName("ItemTypeID").AsInteger()))
        return Refusal{"ItemTypeID", "Item Type no longer exists"};
    return std::nullopt;
}

std::string ItemSubtypeInUse(store::Database& db, std::int64_t itemSubtypeId) {
    return banking::FirstUse(db, kSubtypeUses, itemSubtypeId);
}

Verdict CheckWarehouse(store::DataSet& warehouse) {
    return banking::FirstMissing(warehouse, {{"WarehouseName", "Warehouse Name"}});
}

std::string WarehouseInUse(store::Database& db, std::int64_t warehouseId) {
    return banking::FirstUse(db, kWarehouseUses, warehouseId);
}

} // namespace corvane::inventory
