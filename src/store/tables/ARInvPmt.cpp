#include "store/tables/CompanyTables.h"

namespace corvane::store::tables {

// Links payments to invoices.
const TableDef& ARInvPmt() {
    static const TableDef def{
        "ARInvPmt",
        {
            {"ARInvoiceID", FieldType::Integer, 0, Required},
            {"PaymentID", FieldType::Integer, 0, Required},
            {"Seq", FieldType::Integer},
            {"PaymentAmount", FieldType::Currency, 0, false, MoneyFormat},
            {"DiscTakenAmount", FieldType::Currency, 0, false, MoneyFormat},
            {"WriteOffAmount", FieldType::Currency, 0, false, MoneyFormat},
            {"WriteOffGLAccountID", FieldType::Integer},
            {"WriteOffSubAccount1ID", FieldType::Integer},
            {"WriteOffSubAccount2ID", FieldType::Integer},
            {"WriteOffSubAccount3ID", FieldType::Integer},
        },
        {
            {"", {"ARInvoiceID", "PaymentID"}, ixPrimary | ixUnique},
            {"PaymentIDSeq", {"PaymentID", "Seq"}, 0},
            {"WriteOffGLAccountID", {"WriteOffGLAccountID"}, 0},
            {"WriteOffSubAccount1ID", {"WriteOffSubAccount1ID"}, 0},
            {"WriteOffSubAccount2ID", {"WriteOffSubAccount2ID"}, 0},
            {"WriteOffSubAccount3ID", {"WriteOffSubAccount3ID"}, 0},
            {"PaymentID", {"PaymentID"}, 0},
        },
    };
    return def;
}

} // namespace corvane::store::tables
