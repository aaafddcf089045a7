#include "store/tables/CompanyTables.h"

namespace corvane::store::tables {

// AR invoice lines.
const TableDef& ARInvDet() {
    static const TableDef def{
        "ARInvDet",
        {
            {"ARInvoiceID", FieldType::Integer, 0, Required},
            {"Seq", FieldType::Integer},
            {"Quantity", FieldType::Float},
            {"ItemID", FieldType::Integer},
            {"UnitPrice", FieldType::Currency, 0, false, MoneyFormat},
            {"TaxCodes", FieldType::String, 3},
            {"Notes", FieldType::Memo},
            {"UnitCost", FieldType::Currency},
            {"JobID", FieldType::Integer},
            {"TaskID", FieldType::Integer},
            {"PercentDiscount", FieldType::Float},
            {"UnitPriceB4Disc", FieldType::Currency, 0, false, PriceFormat},
        },
        {
            {"", {"ARInvoiceID", "Seq"}, ixPrimary | ixUnique},
            {"ItemID", {"ItemID"}, 0},
        },
    };
    return def;
}

} // namespace corvane::store::tables
