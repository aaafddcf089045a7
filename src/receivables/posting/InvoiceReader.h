#pragma once

#include "receivables/posting/InvoicePosting.h"
#include "store/Query.h"

#include <cstdint>
#include <map>
#include <optional>
#include <vector>

namespace corvane::receivables {

// Reads the invoices a posting run takes, with every look-up posting makes at run time: the
// currency's present rate and accounts, the taxes' accounts, the point-of-sale bank's account,
// each line's item, item type and task type. The masters are read once for the whole run.
class InvoiceReader {
public:
    explicit InvoiceReader(store::Database& db);

    // Printed invoices not yet posted: the run's selection.
    static std::int64_t CountToPost(store::Database& db);

    // The selection in key order, each with its lines in Seq order.
    std::vector<InvoiceToPost> ReadToPost();

private:
    struct CurrencyAccounts {
        double Rate = 0;
        std::optional<std::int64_t> ARGLAccountID, GainLossGLAccountID;
    };
    struct ItemTypeFlags {
        bool Inventory = false;
        int CostingMethod = 0;
    };
    void ReadMasters();
    std::optional<ItemForPosting> Item(std::int64_t itemId);
    std::optional<std::int64_t> TaskSalesAccount(std::int64_t taskId);

    store::Database& db_;
    std::map<std::int64_t, CurrencyAccounts> currencies_;
    std::map<std::int64_t, std::optional<std::int64_t>> taxAccounts_, bankAccounts_,
        taskTypeAccounts_;
    std::map<std::int64_t, ItemTypeFlags> itemTypes_;
    std::map<std::int64_t, std::optional<ItemForPosting>> items_;
    std::map<std::int64_t, std::optional<std::int64_t>> taskSalesAccounts_;
    // The look-ups of an item and a task, prepared once for the run.
    store::Query item_, task_;
};

} // namespace corvane::receivables
