#include "inventory/domain/ItemRecord.h"

#include "banking/domain/RecordChecks.h"
#include "banking/domain/RowUse.h"
#include "store/Database.h"
#include "store/NumberDraw.h"
#include "store/Query.h"
#include "store/Table.h"

#include <array>

namespace corvane::inventory {

using banking::NoId;
using banking::RequiredField;

namespace {

constexpr std::array kItemUses{
    banking::RowUse{"IHist", "ItemID",
                    "Inventory History data (posted transactions) exists for this item"},
    banking::RowUse{"ARInvDet", "ItemID", "Invoice(s) exist for this item"},
};

// One of the item's three accounts: its field, its subaccount fields' stem, and what the
// required-field message calls it.
struct ItemAccount {
    const char* Field;
    const char* SubStem;
};
constexpr std::array kAccounts{
    ItemAccount{"SalesGLAccountID", "SalesSubAccount"},
    ItemAccount{"COGSGLAccountID", "COGSSubAccount"},
    ItemAccount{"InventoryGLAccountID", "InventorySubAccount"},
};

bool Dangling(store::Database& db, store::DataSet& record, std::string_view field,
              std::string_view table, std::string_view keyField) {
    const store::Field& id = record.FieldByName(field);
    return !NoId(id) && !banking::RowExists(db, table, keyField, id.AsInteger());
}

Verdict CheckAccounts(store::Database& db, store::DataSet& item) {
    for (const ItemAccount& account : kAccounts) {
        if (NoId(item.FieldByName(account.Field))) continue;
        if (Dangling(db, item, account.Field, "GLAccnt", "GLAccountID"))
            return Refusal{account.Field, "GL Account no longer exists"};
        for (int level = 1; level <= 3; ++level) {
            const std::string field = account.SubStem + std::to_string(level) + "ID";
            const std::string table = "GLAcSub" + std::to_string(level);
            if (Dangling(db, item, field, table, "SubAccountID"))
                return Refusal{field, "Subaccount " + std::to_string(level) + " no longer exists"};
        }
    }
    return std::nullopt;
}

Verdict CheckTaxCodes(store::Database& db, store::DataSet& item) {
    std::string codes = item.FieldByName("TaxCodes").AsString();
    codes.resize(3, ' ');
    for (char c : codes) {
        if (c == ' ') continue;
        store::Query tax(db, "SELECT TOP 1 TaxID FROM Tax WHERE TaxCode = :Code");
        tax.ParamByName("Code").SetAsString(std::string(1, c));
        tax.Open();
        if (tax.IsEmpty())
            return Refusal{"TaxCodes",
                           "Tax Code '" + std::string(1, c) + "' does not exist on any taxes"};
    }
    for (std::size_t i = 0; i < 3; ++i) {
        if (codes[i] == ' ') continue;
        for (std::size_t j = 0; j < 3; ++j)
            if (j != i && codes[j] == codes[i])
                return Refusal{"TaxCodes",
                               "Tax Code '" + std::string(1, codes[i]) + "' occurs more than once"};
    }
    return std::nullopt;
}

bool ItemNoTaken(store::Database& db, const std::string& number) {
    store::Query query(db, "SELECT TOP 1 ItemID FROM Item WHERE UPPER(ItemNo) = UPPER(:No)");
    query.ParamByName("No").SetAsString(number);
    query.Open();
    return !query.IsEmpty();
}

void Exec(store::Database& db, const char* sql, std::int64_t id) {
    store::Query query(db, sql);
    query.ParamByName("ID").SetAsInteger(id);
    query.ExecSQL();
}

// One draw of the next pair from the control row.
std::optional<ItemKeys> DrawOnce(store::Database& db, const AskRetry& askRetry) {
    ItemKeys keys;
    const bool drawn = store::DrawFromControl(
        db, "ItemCtl", store::ControlRetry{"Item", 100, 1},
        [&keys](store::ControlRow& row) {
            keys.ItemNo =
                std::to_string(row.Take("NextItemNo", store::RestartOutside(1001, 10000000, 1001)));
            keys.ItemID = row.Take("NextItemID", store::StartWhenZero(10000));
        },
        askRetry);
    if (!drawn) return std::nullopt;
    return keys;
}

} // namespace

std::optional<ItemKeys> DrawItemKeys(store::Database& db, const AskRetry& askRetry) {
    // Item numbers are free to type, so the series may run into one; a few more draws get past
    // a run of hand-made numbers, and the last proposal stands for the unique index to judge.
    constexpr int kDuplicateRetries = 100;
    std::optional<ItemKeys> keys;
    for (int attempt = 0; attempt < kDuplicateRetries; ++attempt) {
        keys = DrawOnce(db, askRetry);
        if (!keys || !ItemNoTaken(db, keys->ItemNo)) break;
    }
    return keys;
}

std::string DefaultTaxCodes(store::Database& db) {
    std::string codes;
    store::Query taxes(db, "SELECT TaxCode FROM Tax ORDER BY TaxName");
    taxes.Open();
    for (taxes.First(); !taxes.Eof() && codes.size() < 3; taxes.Next()) {
        const std::string code = taxes.FieldByName("TaxCode").AsString();
        if (!code.empty() && code[0] != ' ' && codes.find(code[0]) == std::string::npos)
            codes += code[0];
    }
    return codes;
}

void SetNewItemDefaults(store::Database& db, store::DataSet& item) {
    item.FieldByName("Suspended").SetAsBoolean(false);
    store::Query company(db, "SELECT DfltSalesGLAccountID, DfltCOGSGLAccountID, "
                             "DfltInventoryGLAccountID FROM Company");
    company.Open();
    if (!company.IsEmpty()) {
        for (auto [from, to] : {std::pair{"DfltSalesGLAccountID", "SalesGLAccountID"},
                                std::pair{"DfltCOGSGLAccountID", "COGSGLAccountID"},
                                std::pair{"DfltInventoryGLAccountID", "InventoryGLAccountID"}}) {
            const store::Field& id = company.FieldByName(from);
            if (!NoId(id)) item.FieldByName(to).SetAsInteger(id.AsInteger());
        }
    }
    item.FieldByName("TaxCodes").SetAsString(DefaultTaxCodes(db));
}

Verdict CheckItem(store::Database& db, store::DataSet& item) {
    if (Verdict missing = banking::FirstMissing(
            item, {{"ItemNo", "Item no."},
                   {"ItemDescription", "Description"},
                   {"ItemTypeID", "Item Type", RequiredField::Id},
                   {"SalesGLAccountID", "Sales GL Account", RequiredField::Id}}))
        return missing;
    const bool cost = !NoId(item.FieldByName("COGSGLAccountID"));
    const bool stock = !NoId(item.FieldByName("InventoryGLAccountID"));
    if (stock && !cost)
        return Refusal{"COGSGLAccountID", "Field 'Cost of Goods Sold GL Account' must have a "
                                          "value if 'Inventory GL Account' entered"};
    if (cost && !stock)
        return Refusal{"InventoryGLAccountID", "Field 'Inventory GL Account' must have a value "
                                               "if 'Cost of Goods Sold GL Account' entered"};

    const std::int64_t typeId = item.FieldByName("ItemTypeID").AsInteger();
    store::Query type(db, "SELECT Inventory, CostingMethod FROM ItemType WHERE ItemTypeID = :ID");
    type.ParamByName("ID").SetAsInteger(typeId);
    type.Open();
    if (type.IsEmpty()) return Refusal{"ItemTypeID", "Item Type no longer exists"};
    const store::Field& subtype = item.FieldByName("ItemSubtypeID");
    if (!NoId(subtype)) {
        store::Query sub(db, "SELECT TOP 1 ItemSubtypeID FROM ItemSubtype "
                             "WHERE ItemSubtypeID = :ID AND ItemTypeID = :Type");
        sub.ParamByName("ID").SetAsInteger(subtype.AsInteger());
        sub.ParamByName("Type").SetAsInteger(typeId);
        sub.Open();
        if (sub.IsEmpty())
            return Refusal{"ItemSubtypeID",
                           "Item Subtype no longer exists or is not for selected Item Type"};
    }
    if (Verdict accounts = CheckAccounts(db, item)) return accounts;
    if (Verdict codes = CheckTaxCodes(db, item)) return codes;
    if (type.FieldByName("CostingMethod").AsInteger() == 2 &&
        type.FieldByName("Inventory").AsBoolean() && item.FieldByName("StandardCost").IsNull())
        return Refusal{"StandardCost", "Field 'Standard Cost' must have a value if Item Type "
                                       "costing method is standard"};
    return std::nullopt;
}

std::string ItemInUse(store::Database& db, std::int64_t itemId) {
    return banking::FirstUse(db, kItemUses, itemId);
}

void DeleteItem(store::Database& db, std::int64_t itemId) {
    store::Transaction transaction(db, {"IBalance", "Item"});
    Exec(db, "DELETE FROM IBalance WHERE ItemID = :ID", itemId);
    Exec(db, "DELETE FROM Item WHERE ItemID = :ID", itemId);
    transaction.Commit();
}

std::string ItemLabel(std::string_view number, std::string_view description) {
    return std::string(number) + ": " + std::string(description);
}

} // namespace corvane::inventory
