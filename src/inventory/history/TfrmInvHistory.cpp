#include "inventory/history/TfrmInvHistory.h"

#include "core/Exception.h"
#include "inventory/history/TfrmInvHistoryFilter.h"
#include "ledger/inquiry/InquiryList.h"
#include "ui/Application.h"

#include <array>

namespace corvane::inventory {

TfrmInvHistory::TfrmInvHistory(ui::Application& app, store::Database& db,
                               shell::TdmLookUps& lookUps)
    : ListForm(app, "frmInvHistory", "Inventory History", db, "IHist", "tblIHist", "IHistID"),
      tblItem(db, "Item"), tblWarehse(db, "Warehse"), lookUps_(lookUps) {
    tblItem.Name = "tblItem";
    tblItem.Open();
    tblWarehse.Name = "tblWarehse";
    tblWarehse.Open();
    AddCalculatedFields();
    tblIHist.SetIndexName("PeriodDateDESC");
    grdList.AddColumn("Period", "Period", 64);
    grdList.AddColumn("TransDate", "Date", 76);
    grdList.AddColumn("ItemNo", "Item no.", 90);
    grdList.AddColumn("ItemDescription", "Description", 220);
    grdList.AddColumn("TypeText", "Type", 80);
    grdList.AddColumn("Quantity", "Quantity", 80);
    grdList.AddColumn("UnitCost", "Unit Cost", 90);
    grdList.AddColumn("WarehouseName", "Warehouse", 120);
    grdList.AddColumn("TransDescription", "Transaction Description", 240);

    // History is written by posting only: nothing is made, changed or removed here.
    ledger::HideRowEditing(*this);
    grdList.OnDblClick = nullptr;
    grdList.OnKeyPress = nullptr;
}

TfrmInvHistory::~TfrmInvHistory() = default;

std::string TfrmInvHistory::TypeText(std::int64_t transType) {
    static constexpr std::array<const char*, 5> kTypes{"Adjust", "Sale", "PO Receipt",
                                                       "Mfg Receipt", "Usage"};
    if (transType < 1 || transType > static_cast<std::int64_t>(kTypes.size())) return {};
    return kTypes[static_cast<std::size_t>(transType - 1)];
}

void TfrmInvHistory::AddCalculatedFields() {
    // Calculated fields exist only in a cursor that adds them before it opens.
    tblIHist.Close();
    tblIHist.AddCalculatedField("Period", store::FieldType::String, 7);
    tblIHist.AddCalculatedField("ItemNo", store::FieldType::String, 20);
    tblIHist.AddCalculatedField("ItemDescription", store::FieldType::String, 40);
    tblIHist.AddCalculatedField("TypeText", store::FieldType::String, 12);
    tblIHist.AddCalculatedField("WarehouseName", store::FieldType::String, 20);
    tblIHist.OnCalcFields = [this](store::DataSet& row) { CalculateRow(row); };
    tblIHist.Open();
}

void TfrmInvHistory::CalculateRow(store::DataSet& row) {
    auto text = [](const store::Value& value) {
        return value.IsNull() ? std::string() : value.Str();
    };
    const store::Field& year = row.FieldByName("GLYear");
    const store::Field& period = row.FieldByName("GLPeriod");
    row.FieldByName("Period").SetAsString(year.IsNull() || period.IsNull()
                                              ? std::string()
                                              : period.AsString() + "/" + year.AsString());
    std::vector<store::Value> item = tblItem.LookupValues(
        "ItemID", {row.FieldByName("ItemID").AsValue()}, "ItemNo;ItemDescription");
    row.FieldByName("ItemNo").SetAsString(item.size() == 2 ? text(item[0]) : std::string());
    row.FieldByName("ItemDescription")
        .SetAsString(item.size() == 2 ? text(item[1]) : std::string());
    row.FieldByName("TypeText").SetAsString(TypeText(row.FieldByName("TransType").AsInteger()));
    row.FieldByName("WarehouseName")
        .SetAsString(text(tblWarehse.Lookup(
            "WarehouseID", {row.FieldByName("WarehouseID").AsValue()}, "WarehouseName")));
}

shell::EntryForm& TfrmInvHistory::Entry() {
    // The record commands are hidden and disabled; a call that still arrives here is the
    // program's error, not the user's.
    throw Exception("Inventory History is not edited");
}

shell::FilterForm* TfrmInvHistory::Filter() {
    if (!filter_) filter_ = &App().SingleForm<TfrmInvHistoryFilter>(*this, lookUps_);
    return filter_;
}

} // namespace corvane::inventory
