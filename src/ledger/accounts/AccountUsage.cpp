#include "ledger/accounts/AccountUsage.h"

#include "store/Query.h"

#include <array>

namespace corvane::ledger {

namespace {

constexpr std::array kAccountUses{
    AccountUse{"GLActual", "GLAccountID", "GL Totals data exists for this account"},
    AccountUse{"GLBudget", "GLAccountID", "Budget data exists for this account"},
    AccountUse{"GLHist", "GLAccountID", "GL History exists for this account"},
    AccountUse{"JVDet", "GLAccountID", "JV(s) exist for this account"},
    AccountUse{"APInvDet", "GLAccountID", "AP Invoice(s) exist for this account"},
    // The write-off of a payment is kept on each of its invoice lines.
    AccountUse{"ARInvPmt", "WriteOffGLAccountID", "AR Payment(s) exist for this account"},
    AccountUse{"Item", "SalesGLAccountID", "Item(s) exist for this account"},
    AccountUse{"Item", "COGSGLAccountID", "Item(s) exist for this account"},
    AccountUse{"Item", "InventoryGLAccountID", "Item(s) exist for this account"},
    AccountUse{"Tax", "TaxGLAccountID", "Tax(s) exist for this account"},
    AccountUse{"Currency", "DfltWriteOffGLAccountID", "Currency(s) exist for this account"},
    AccountUse{"Currency", "APGLAccountID", "Currency(s) exist for this account"},
    AccountUse{"Currency", "GainLossExchangeGLAccntID", "Currency(s) exist for this account"},
    AccountUse{"Currency", "APDiscGLAccountID", "Currency(s) exist for this account"},
    AccountUse{"Currency", "ARGLAccountID", "Currency(s) exist for this account"},
    AccountUse{"Currency", "ARDiscGLAccountID", "Currency(s) exist for this account"},
    AccountUse{"Bank", "BankGLAccountID", "Bank(s) exist for this account"},
    AccountUse{"Company", "DfltSalesGLAccountID",
               "Your Company uses this account (Default Sales GL Account)"},
    AccountUse{"Company", "DfltCOGSGLAccountID",
               "Your Company uses this account (Default Cost of Goods Sold GL Account)"},
    AccountUse{"Company", "DfltInventoryGLAccountID",
               "Your Company uses this account (Default Inventory GL Account)"},
};

constexpr std::array kSubAccountUses{
    AccountUse{"GLActual", "SubAccount#ID", "GL Totals data exists for this subaccount"},
    AccountUse{"GLBudget", "SubAccount#ID", "Budget data exists for this subaccount"},
    AccountUse{"GLHist", "SubAccount#ID", "GL History exists for this subaccount"},
    AccountUse{"JVDet", "SubAccount#ID", "JV(s) exist for this subaccount"},
    AccountUse{"APInvDet", "SubAccount#ID", "AP Invoice(s) exist for this subaccount"},
    AccountUse{"ARInvPmt", "WriteOffSubAccount#ID", "AR Payment(s) exist for this subaccount"},
    AccountUse{"Item", "InventorySubAccount#ID", "Item(s) exist for this subaccount"},
    AccountUse{"Item", "COGSSubAccount#ID", "Item(s) exist for this subaccount"},
};

// Whether any row of the table holds id in the field. The table and field come from the tables
// above, never from the user; the id is bound.
bool Used(store::Database& db, std::string_view table, const std::string& field, std::int64_t id) {
    store::Query query(db);
    query.SetSQL("SELECT TOP 1 " + field + " FROM " + std::string(table) + " WHERE " + field +
                 " = :ID");
    query.ParamByName("ID").SetAsInteger(id);
    query.Open();
    return !query.IsEmpty();
}

std::string LevelField(std::string_view field, int level) {
    std::string named(field);
    named.replace(named.find('#'), 1, std::to_string(level));
    return named;
}

} // namespace

std::span<const AccountUse> AccountUses() {
    return kAccountUses;
}

std::span<const AccountUse> SubAccountUses() {
    return kSubAccountUses;
}

std::string AccountInUse(store::Database& db, std::int64_t glAccountId) {
    for (const AccountUse& use : kAccountUses)
        if (Used(db, use.Table, std::string(use.Field), glAccountId))
            return std::string(use.Reason);
    return {};
}

std::string SubAccountInUse(store::Database& db, int level, std::int64_t subAccountId) {
    for (const AccountUse& use : kSubAccountUses)
        if (Used(db, use.Table, LevelField(use.Field, level), subAccountId))
            return std::string(use.Reason);
    return {};
}

std::string DeleteQuestion(std::string_view number, std::string_view name) {
    return "Delete '" + std::string(number) + ": " + std::string(name) + "'?";
}

std::string DeleteRefusal(std::string_view number, std::string_view name, std::string_view reason) {
    return "Unable to delete '" + std::string(number) + ": " + std::string(name) + "'...\n" +
           std::string(reason);
}

} // namespace corvane::ledger
