#include "store/tables/CompanyTables.h"

namespace corvane::store::tables {

// Links invoices and cheques.
const TableDef& APInvChq() {
    static const TableDef def{
        "APInvChq",
        {
            {"APInvoiceID", FieldType::Integer, 0, Required},
            {"ChequeID", FieldType::Integer, 0, Required},
            {"Seq", FieldType::Integer},
            {"PaymentAmount", FieldType::Currency, 0, Required, MoneyFormat},
        },
        {
            {"", {"APInvoiceID", "ChequeID"}, ixPrimary | ixUnique},
            {"ChequeIDSeq", {"ChequeID", "Seq"}, 0},
            {"ChequeID", {"ChequeID"}, 0},
        },
    };
    return def;
}

} // namespace corvane::store::tables
