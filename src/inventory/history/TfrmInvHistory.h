#pragma once

#include "shell/patterns/ListForm.h"
#include "store/Table.h"

#include <string>

namespace corvane::shell {
class TdmLookUps;
}

namespace corvane::inventory {

class TfrmInvHistoryFilter;

// Every movement of stock, newest first: receipts, sales and adjustments per item and warehouse,
// as posting wrote them. Nothing here is edited.
class TfrmInvHistory : public shell::ListForm {
public:
    TfrmInvHistory(ui::Application& app, store::Database& db, shell::TdmLookUps& lookUps);
    ~TfrmInvHistory() override;

    store::Table& tblIHist = MainTable;
    // The items and warehouses behind the numbers, names and descriptions of a row.
    store::Table tblItem, tblWarehse;

    // The words the list shows for a movement's type: "Adjust", "Sale", "PO Receipt", ...
    static std::string TypeText(std::int64_t transType);

protected:
    shell::EntryForm& Entry() override;
    shell::FilterForm* Filter() override;

private:
    void AddCalculatedFields();
    void CalculateRow(store::DataSet& row);

    shell::TdmLookUps& lookUps_;
    TfrmInvHistoryFilter* filter_ = nullptr;
};

} // namespace corvane::inventory
