#include "inventory/items/TfrmItems.h"

#include "banking/import/ImportCommand.h"
#include "core/Exception.h"
#include "core/Refusal.h"
#include "inventory/domain/ItemRecord.h"
#include "inventory/items/TfrmItem.h"
#include "inventory/items/TfrmItemSearch.h"
#include "inventory/items/TfrmItemsFilter.h"
#include "shell/patterns/FilterTerms.h"
#include "shell/patterns/OpenList.h"
#include "ui/Application.h"

namespace corvane::inventory {

TfrmItems::TfrmItems(ui::Application& app, store::Database& db, shell::TdmLookUps& lookUps)
    : ListForm(app, "frmItems", "Items", db, "Item", "tblItem", "ItemID"),
      mnuSortItemNo(AddSortEntry("mnuSortItemNo", "Item &no.", "ItemNo", "ItemNo")),
      mnuSortItemDescription(AddSortEntry("mnuSortItemDescription", "&Description",
                                          "ItemDescription", "ItemDescription1")),
      lookUps_(lookUps) {
    for (const char* money : {"UnitPrice", "WgtAvgCost", "StandardCost"})
        tblItem.FieldByName(money).DisplayFormat = "#,###,##0.00#;(#,###,##0.00#)";
    grdList.AddColumn("ItemNo", "Item no.", 90);
    grdList.AddColumn("ItemDescription", "Description", 240);
    grdList.AddColumn("UnitPrice", "Unit Price", 80);
    grdList.AddColumn("TaxCodes", "Taxes", 45);
    grdList.AddColumn("WgtAvgCost", "Wgt Avg Cost", 100);
    grdList.AddColumn("StandardCost", "Standard Cost", 100);
    mnuCopy.OnClick = [this] { CopyRecord(); };
    mnuImport.OnClick = [this] {
        if (banking::ImportInto(App(), "Items")) RefreshList();
    };
    // The item's stock per warehouse and its movements, each list limited to this item.
    mnuTotals.OnClick = [this] {
        if (tblItem.IsEmpty()) return;
        const std::string item =
            shell::LookupTerm("B.ItemID", tblItem.FieldByName("ItemID").AsInteger());
        shell::OpenListOn(App(), "frmInvTotals", "InvTotals", item, item);
    };
    mnuHistory.OnClick = [this] {
        if (tblItem.IsEmpty()) return;
        const std::string item =
            shell::LookupTerm("ItemID", tblItem.FieldByName("ItemID").AsInteger());
        shell::OpenListOn(App(), "frmInvHistory", "InvHistory", item, item);
    };
    tblItem.BeforeDelete = [this](store::DataSet&) { BeforeDeleteItem(); };
    mnuSortItemNo.Click();
}

TfrmItems::~TfrmItems() {
    tblItem.BeforeDelete = nullptr;
}

shell::EntryForm& TfrmItems::Entry() {
    auto& entry = App().SingleForm<TfrmItem>(Db(), lookUps_);
    return entry;
}

shell::FilterForm* TfrmItems::Filter() {
    if (!filter_) filter_ = &App().SingleForm<TfrmItemsFilter>(*this, lookUps_);
    return filter_;
}

shell::SearchForm* TfrmItems::Search() {
    if (!search_) search_ = &App().SingleForm<TfrmItemSearch>(Db());
    return search_;
}

void TfrmItems::CopyRecord() {
    if (tblItem.IsEmpty()) return NewRecord();
    auto& entry = static_cast<TfrmItem&>(Entry());
    entry.StartCopy(tblItem);
    entry.Show();
}

void TfrmItems::BeforeDeleteItem() {
    const std::string label = ItemLabel(tblItem.FieldByName("ItemNo").AsString(),
                                        tblItem.FieldByName("ItemDescription").AsString());
    if (App().MessageDlg(DeleteQuestion(label), ui::MsgType::Confirmation, {ui::mbYes, ui::mbNo}) !=
        ui::mbYes)
        Abort();
    const std::int64_t id = tblItem.FieldByName("ItemID").AsInteger();
    const std::string reason = ItemInUse(Db(), id);
    if (!reason.empty()) throw Exception(DeleteRefusal(label, reason));
    // The item goes with its balances in one transaction; the list then reads itself again.
    DeleteItem(Db(), id);
    RefreshList();
    Abort();
}

} // namespace corvane::inventory
