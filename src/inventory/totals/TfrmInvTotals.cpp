#include "inventory/totals/TfrmInvTotals.h"

#include "core/Exception.h"
#include "inventory/domain/ItemRecord.h"
#include "inventory/items/TfrmItemSearch.h"
#include "inventory/totals/TfrmInvTotalsFilter.h"
#include "ledger/inquiry/InquiryList.h"
#include "shell/patterns/FilterTerms.h"
#include "shell/patterns/OpenList.h"
#include "ui/Application.h"

namespace corvane::inventory {

namespace {

// The query up to its WHERE line, which the filter writes, and its two orders.
constexpr const char* kSelect =
    "SELECT B.ItemID, B.WarehouseID, B.QtyOnHand, I.ItemNo, I.ItemDescription, W.WarehouseName "
    "FROM IBalance B LEFT OUTER JOIN Item I ON B.ItemID = I.ItemID LEFT OUTER JOIN Warehse W ON "
    "B.WarehouseID = W.WarehouseID";
constexpr const char* kByNumber = "ORDER BY I.ItemNo, W.WarehouseName NOCASE";
constexpr const char* kByDescription = "ORDER BY I.ItemDescription, W.WarehouseName NOCASE";

} // namespace

TfrmInvTotals::TfrmInvTotals(ui::Application& app, store::Database& db, shell::TdmLookUps& lookUps)
    : ListForm(app, "frmInvTotals", "Inventory Totals", db,
               QuerySource{std::string(kSelect) + " " + kByNumber, "qryIBalance"},
               "ItemID;WarehouseID"),
      lookUps_(lookUps), orderBy_(kByNumber) {
    grdList.AddColumn("ItemNo", "Item no.", 90);
    grdList.AddColumn("ItemDescription", "Description", 240);
    grdList.AddColumn("WarehouseName", "Warehouse", 140);
    grdList.AddColumn("QtyOnHand", "Qty On Hand", 90);

    // Balances are what posting left behind: no row is made, changed or removed here.
    ledger::HideRowEditing(*this);
    mnuFind.Visible = true;
    mnuFind.OnClick = [this] { FindItem(0); };
    mnuHistory.OnClick = [this] { ShowHistory(); };
    grdList.OnDblClick = [this] { ShowHistory(); };
    grdList.OnKeyPress = [this](char& ch) {
        const char typed = ch;
        if (typed == '\r') {
            ch = 0;
            ShowHistory();
        } else if (static_cast<unsigned char>(typed) > 27) {
            ch = 0;
            FindItem(typed);
        }
    };

    for (ui::MenuItem* item : {&mnuSortItemNo, &mnuSortDescription})
        item->RadioItem = true;
    mnuSortItemNo.OnClick = [this] { SortBy(mnuSortItemNo, kByNumber, "ItemNo"); };
    mnuSortDescription.OnClick = [this] {
        SortBy(mnuSortDescription, kByDescription, "ItemDescription");
    };
    grdList.OnTitleClick = [this](ui::GridColumn& column) {
        if (column.FieldName == "ItemNo") return mnuSortItemNo.Click();
        if (column.FieldName == "ItemDescription") return mnuSortDescription.Click();
        PressKey(ui::KeyStroke(ui::Key::Alt));
    };

    // Each showing reads the balances afresh: a posting since the last one shows. A list the main
    // menu opened afresh has its filter off; the dialog and the WHERE line follow it.
    auto showList = OnShow;
    OnShow = [this, showList] {
        if (!mnuFilter.Checked()) {
            if (filter_) filter_->Clear();
            where_.clear();
        }
        Requery();
        if (showList) showList();
    };
    mnuSortItemNo.Click();
}

TfrmInvTotals::~TfrmInvTotals() = default;

void TfrmInvTotals::Requery() {
    // The statement is the program's own text; the conditions hold only numbers it produced.
    qryIBalance.Close();
    qryIBalance.SetSQL(std::string(kSelect) + (where_.empty() ? "" : " " + where_) + " " +
                       orderBy_);
    qryIBalance.Open();
}

void TfrmInvTotals::SortBy(ui::MenuItem& item, std::string orderBy, const char* fieldName) {
    orderBy_ = std::move(orderBy);
    Requery();
    qryIBalance.First();
    item.SetChecked(true);
    for (ui::GridColumn& column : grdList.Columns)
        column.TitleBold = column.FieldName == fieldName;
}

void TfrmInvTotals::SetConditions(const std::vector<std::string>& conditions) {
    where_ = conditions.empty() ? std::string() : "WHERE " + shell::JoinTerms(conditions);
    Requery();
}

void TfrmInvTotals::ShowOnly(const std::string& filter) {
    if (filter_) filter_->Clear();
    SetConditions({filter});
    mnuFilter.SetChecked(true);
}

void TfrmInvTotals::ShowHistory() {
    if (qryIBalance.IsEmpty()) return;
    const std::string filter =
        shell::LookupTerm("ItemID", qryIBalance.FieldByName("ItemID").AsInteger()) + " AND " +
        shell::LookupTerm("WarehouseID", qryIBalance.FieldByName("WarehouseID").AsInteger());
    shell::OpenListOn(App(), "frmInvHistory", "InvHistory", filter, filter);
}

void TfrmInvTotals::FindItem(char firstChar) {
    if (!search_) search_ = &App().SingleForm<TfrmItemSearch>(Db());
    shell::SearchStart start;
    start.IndexName = mnuSortDescription.Checked() ? "ItemDescription1" : "ItemNo";
    if (!qryIBalance.IsEmpty()) start.Key = {qryIBalance.FieldByName("ItemID").AsValue()};
    start.FirstChar = firstChar;
    search_->Start(grdList, start);
    if (search_->ShowModal() != ui::mrOK) return;
    const std::vector<store::Value> key = search_->SelectedKey();
    if (!qryIBalance.Locate("ItemID", key))
        throw Exception("'" +
                        ItemLabel(search_->SearchTable.FieldByName("ItemNo").AsString(),
                                  search_->SearchTable.FieldByName("ItemDescription").AsString()) +
                        "' not found in list");
}

shell::EntryForm& TfrmInvTotals::Entry() {
    // The record commands are hidden and disabled; a call that still arrives here is the
    // program's error, not the user's.
    throw Exception("Inventory Totals are not edited");
}

shell::FilterForm* TfrmInvTotals::Filter() {
    if (!filter_) filter_ = &App().SingleForm<TfrmInvTotalsFilter>(*this, lookUps_);
    return filter_;
}

} // namespace corvane::inventory
