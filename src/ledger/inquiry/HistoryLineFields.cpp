#include "ledger/inquiry/HistoryLineFields.h"

#include "ledger/inquiry/AccountLabel.h"
#include "ledger/inquiry/VoucherLabels.h"
#include "store/Table.h"

#include <string>
#include <vector>

namespace corvane::ledger {

void CalculateHistoryLine(store::DataSet& line, const HistoryLookups& lookups) {
    SetVoucherLabels(line);
    AccountLabelParts parts;
    std::vector<store::Value> account = lookups.Accounts.LookupValues(
        "GLAccountID", {line.FieldByName("GLAccountID").AsValue()}, "GLAccount;AccountName");
    if (account.size() == 2) {
        parts.Number = account[0].IsNull() ? std::string() : account[0].Str();
        parts.Name = account[1].IsNull() ? std::string() : account[1].Str();
    }
    store::Table* subs[] = {&lookups.Sub1, &lookups.Sub2, &lookups.Sub3};
    for (int level = 0; level < 3; ++level) {
        store::Value id =
            line.FieldByName("SubAccount" + std::to_string(level + 1) + "ID").AsValue();
        if (id.IsNull()) continue;
        std::vector<store::Value> sub =
            subs[level]->LookupValues("SubAccountID", {id}, "SubAccount;SubAccountName");
        if (sub.size() != 2 || sub[0].IsNull()) continue;
        parts.SubNumbers[static_cast<std::size_t>(level)] = sub[0].Str();
        parts.SubNames[static_cast<std::size_t>(level)] =
            sub[1].IsNull() ? std::string() : sub[1].Str();
    }
    line.FieldByName("AccountNo").SetAsString(AccountNumberLabel(parts));
    line.FieldByName("AccountNameLabel").SetAsString(AccountNameLabel(parts));
}

bool HistoryLineHasType(store::DataSet& line, store::Table& accounts, int accountType) {
    if (accountType == 0) return true;
    store::Value type =
        accounts.Lookup("GLAccountID", {line.FieldByName("GLAccountID").AsValue()}, "AccountType");
    return !type.IsNull() && type.Int() == accountType;
}

} // namespace corvane::ledger
