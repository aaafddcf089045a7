#pragma once

#include "shell/patterns/ListForm.h"

#include <functional>
#include <string_view>

namespace corvane::shell {
class TdmLookUps;
}

namespace corvane::inventory {

class TfrmItemsFilter;
class TfrmItemSearch;

// The items with price, tax codes and costs, by number or description; a filter by type,
// subtype and suspension; typing finds an item; Copy starts a new item from the current one.
class TfrmItems : public shell::ListForm {
public:
    TfrmItems(ui::Application& app, store::Database& db, shell::TdmLookUps& lookUps);
    ~TfrmItems() override;

    store::Table& tblItem = MainTable;
    ui::MenuItem& mnuSortItemNo;
    ui::MenuItem& mnuSortItemDescription;
    ui::MenuItem mnuCopy{mnuRecords, "mnuCopy", "&Copy"};
    ui::ToolButton tbnCopy{tlbList, "tbnCopy", mnuCopy};
    ui::MenuItem mnuImport{mnuFile, "mnuImport", "&Import..."};
    ui::MenuItem mnuRecordsSep{mnuRecords, "mnuRecordsSep", "-"};
    ui::MenuItem mnuTotals{mnuRecords, "mnuTotals", "&Totals"};
    ui::MenuItem mnuHistory{mnuRecords, "mnuHistory", "&History"};
    ui::ToolButton tbnTotals{tlbList, "tbnTotals", mnuTotals};
    ui::ToolButton tbnHistory{tlbList, "tbnHistory", mnuHistory};

    void CopyRecord();

protected:
    shell::EntryForm& Entry() override;
    shell::FilterForm* Filter() override;
    shell::SearchForm* Search() override;

private:
    void BeforeDeleteItem();

    shell::TdmLookUps& lookUps_;
    TfrmItemsFilter* filter_ = nullptr;
    TfrmItemSearch* search_ = nullptr;
};

} // namespace corvane::inventory
