#pragma once

#include "shell/patterns/ListForm.h"
#include "ui/MenuItem.h"
#include "ui/ToolBar.h"

#include <string>
#include <vector>

namespace corvane::shell {
class TdmLookUps;
}

namespace corvane::inventory {

class TfrmInvTotalsFilter;
class TfrmItemSearch;

// The stock on hand of each item in each warehouse it ever moved in, read from the balances that
// posting keeps. The rows come from a query whose WHERE line the filter writes; nothing here is
// edited. From a row one opens the item's history in that warehouse.
class TfrmInvTotals : public shell::ListForm {
public:
    TfrmInvTotals(ui::Application& app, store::Database& db, shell::TdmLookUps& lookUps);
    ~TfrmInvTotals() override;

    store::Query& qryIBalance = MainQuery;
    ui::MenuItem mnuSortItemNo{mnuSortBy, "mnuSortItemNo", "Item &no."};
    ui::MenuItem mnuSortDescription{mnuSortBy, "mnuSortDescription", "&Description"};
    ui::MenuItem mnuRecordsSep{mnuRecords, "mnuRecordsSep", "-"};
    ui::MenuItem mnuHistory{mnuRecords, "mnuHistory", "&History"};
    ui::ToolButton tbnHistory{tlbList, "tbnHistory", mnuHistory};

    // The conditions, each in parentheses, that the query is read under; none reads every row.
    void SetConditions(const std::vector<std::string>& conditions);
    // "" when no condition is in force, else "WHERE " and the conditions.
    const std::string& WhereLine() const { return where_; }
    // One condition put in force as the filter (an item's totals opened from the items list).
    void ShowOnly(const std::string& filter) override;

    void ShowHistory();
    // The item search, started with the key typed (0 from the menu); the row of the item found
    // becomes the current one.
    void FindItem(char firstChar);

protected:
    shell::EntryForm& Entry() override;
    shell::FilterForm* Filter() override;

private:
    void SortBy(ui::MenuItem& item, std::string orderBy, const char* fieldName);
    void Requery();

    shell::TdmLookUps& lookUps_;
    TfrmInvTotalsFilter* filter_ = nullptr;
    TfrmItemSearch* search_ = nullptr;
    std::string where_;
    std::string orderBy_;
};

} // namespace corvane::inventory
