#include "inventory/domain/ItemImport.h"

#include "core/Exception.h"
#include "inventory/domain/ItemRecord.h"
#include "store/DataSet.h"
#include "store/NumberDraw.h"

namespace corvane::inventory {

banking::ImportTarget ItemImport(store::Database& db) {
    banking::ImportTarget target;
    target.Table = "Item";
    target.Label = "Item";
    target.TransactionTables = {"Item", "ItemCtl"};
    target.NewRecord = [&db](store::DataSet& item) {
        // Nobody is there to be asked: a control table that stays busy refuses the row.
        auto keys = DrawItemKeys(db, [](const std::string&) { return false; });
        if (!keys) throw Exception(store::ControlTableBusyMessage("Item"));
        item.FieldByName("ItemNo").SetAsString(keys->ItemNo);
        item.FieldByName("ItemID").SetAsInteger(keys->ItemID);
        SetNewItemDefaults(db, item);
    };
    target.Check = [&db](store::DataSet& item) { return CheckItem(db, item); };
    target.KeyViolationMessage = std::string(ItemNoTakenMessage);
    return target;
}

} // namespace corvane::inventory
