#include "store/tables/CompanyTables.h"

namespace corvane::store::tables {

// Currencies, with their exchange rates and the accounts that carry them.
const TableDef& Currency() {
    static const TableDef def{
        "Currency",
        {
            {"CurrencyID", FieldType::Integer},
            {"CurrencyName", FieldType::String, 20, Required},
            {"ExchangeRate", FieldType::Float},
            {"GainLossExchangeGLAccntID", FieldType::Integer},
            {"APGLAccountID", FieldType::Integer, 0, Required},
            {"APDiscGLAccountID", FieldType::Integer, 0, Required},
            {"ARGLAccountID", FieldType::Integer, 0, Required},
            {"ARDiscGLAccountID", FieldType::Integer, 0, Required},
            {"DfltWriteOffGLAccountID", FieldType::Integer},
            {"ExchangeRateLY1", FieldType::Float},
            {"ExchangeRateLY2", FieldType::Float},
            {"ExchangeRateLY3", FieldType::Float},
            {"ExchangeRateLY4", FieldType::Float},
            {"ExchangeRateLY5", FieldType::Float},
            {"ExchangeRateLY6", FieldType::Float},
            {"ExchangeRateLY7", FieldType::Float},
            {"ExchangeRateLY8", FieldType::Float},
            {"ExchangeRateLY9", FieldType::Float},
            {"ExchangeRateLY10", FieldType::Float},
            {"ExchangeRateLY11", FieldType::Float},
            {"ExchangeRateLY12", FieldType::Float},
            {"ExchangeRateTY1", FieldType::Float},
            {"ExchangeRateTY2", FieldType::Float},
            {"ExchangeRateTY3", FieldType::Float},
            {"ExchangeRateTY4", FieldType::Float},
            {"ExchangeRateTY5", FieldType::Float},
            {"ExchangeRateTY6", FieldType::Float},
            {"ExchangeRateTY7", FieldType::Float},
            {"ExchangeRateTY8", FieldType::Float},
            {"ExchangeRateTY9", FieldType::Float},
            {"ExchangeRateTY10", FieldType::Float},
            {"ExchangeRateTY11", FieldType::Float},
            {"ExchangeRateTY12", FieldType::Float},
        },
        {
            {"", {"CurrencyID"}, ixPrimary | ixUnique},
            {"CurrencyName1", {"CurrencyName"}, ixUnique | ixNoCase},
            {"DfltWriteOffGLAccountID", {"DfltWriteOffGLAccountID"}, 0},
            {"ARDiscGLAccountID", {"ARDiscGLAccountID"}, 0},
            {"ARGLAccountID", {"ARGLAccountID"}, 0},
            {"APDiscGLAccountID", {"APDiscGLAccountID"}, 0},
            {"APGLAccountID", {"APGLAccountID"}, 0},
            {"GainLossExchangeGLAccntID", {"GainLossExchangeGLAccntID"}, 0},
        },
    };
    return def;
}

} // namespace corvane::store::tables
