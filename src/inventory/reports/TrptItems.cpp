#include "inventory/reports/TrptItems.h"

namespace corvane::inventory {

namespace {
constexpr std::string_view kAmount = "#,###,##0.00#;(#,###,##0.00#)";
}

TrptItems::TrptItems(store::Database& db)
    : MasterListReport(db, "Item", "Items", "ItemNo",
                       {{"ItemNo", "Item no.", 80},
                        {"ItemDescription", "Description", 180},
                        {"UnitPrice", "Unit Price", 65, kAmount},
                        {"TaxCodes", "Taxes", 35},
                        {"WgtAvgCost", "Wgt Avg Cost", 65, kAmount},
                        {"StandardCost", "Standard Cost", 65, kAmount}}) {}

TrptItemTypes::TrptItemTypes(store::Database& db)
    : MasterListReport(db, "ItemType", "Item Types", "TypeName1",
                       {{"TypeName", "Type Name", 250}}) {}

TrptItemSubtypes::TrptItemSubtypes(store::Database& db)
    : MasterListReport(db, "ItemSubtype", "Item Subtypes", "SubtypeName1",
                       {{"SubtypeName", "Subtype Name", 250}}) {}

TrptWarehouses::TrptWarehouses(store::Database& db)
    : MasterListReport(db, "Warehse", "Warehouses", "WarehouseName1",
                       {{"WarehouseName", "Warehouse Name", 250}}) {}

} // namespace corvane::inventory
