#include "store/tables/CompanyTables.h"

namespace corvane::store::tables {

// Items.
const TableDef& Item() {
    static const TableDef def{
        "Item",
        {
            {"ItemID", FieldType::Integer},
            {"ItemNo", FieldType::String, 20, Required},
            {"ItemDescription", FieldType::String, 40, Required},
            {"SalesGLAccountID", FieldType::Integer, 0, Required},
            {"SalesSubAccount1ID", FieldType::Integer},
            {"SalesSubAccount2ID", FieldType::Integer},
            {"SalesSubAccount3ID", FieldType::Integer},
            {"COGSGLAccountID", FieldType::Integer},
            {"COGSSubAccount1ID", FieldType::Integer},
            {"COGSSubAccount2ID", FieldType::Integer},
            {"COGSSubAccount3ID", FieldType::Integer},
            {"InventoryGLAccountID", FieldType::Integer},
            {"InventorySubAccount1ID", FieldType::Integer},
            {"InventorySubAccount2ID", FieldType::Integer},
            {"InventorySubAccount3ID", FieldType::Integer},
            {"TaxCodes", FieldType::String, 3},
            {"UnitPrice", FieldType::Currency, 0, false, MoneyFormat},
            {"WgtAvgCost", FieldType::Currency, 0, false, MoneyFormat},
            {"StandardCost", FieldType::Currency, 0, false, MoneyFormat},
            {"Suspended", FieldType::Boolean},
            {"Notes", FieldType::Memo},
            {"ItemTypeID", FieldType::Integer, 0, Required},
            {"ItemSubtypeID", FieldType::Integer},
        },
        {
            {"", {"ItemID"}, ixPrimary | ixUnique},
            {"ItemDescription1", {"ItemDescription"}, ixNoCase},
            {"ItemTypeID", {"ItemTypeID"}, 0},
            {"ItemSubtypeID", {"ItemSubtypeID"}, 0},
            {"InventoryGLAccountID", {"InventoryGLAccountID"}, 0},
            {"InventorySubAccount1ID", {"InventorySubAccount1ID"}, 0},
            {"InventorySubAccount2ID", {"InventorySubAccount2ID"}, 0},
            {"InventorySubAccount3ID", {"InventorySubAccount3ID"}, 0},
            {"COGSGLAccountID", {"COGSGLAccountID"}, 0},
            {"COGSSubAccount1ID", {"COGSSubAccount1ID"}, 0},
            {"COGSSubAccount2ID", {"COGSSubAccount2ID"}, 0},
            {"COGSSubAccount3ID", {"COGSSubAccount3ID"}, 0},
            {"SalesGLAccountID", {"SalesGLAccountID"}, 0},
            {"SalesSubAccount1ID", {"SalesSubAccount1ID"}, 0},
            {"SalesSubAccount2ID", {"SalesSubAccount2ID"}, 0},
            {"SalesSubAccount3ID", {"SalesSubAccount3ID"}, 0},
            {"ItemNo", {"ItemNo"}, ixUnique | ixNoCase},
        },
    };
    return def;
}

} // namespace corvane::store::tables
