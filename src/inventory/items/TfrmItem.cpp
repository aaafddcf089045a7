#include "inventory/items/TfrmItem.h"

#include "banking/usage/RefusalFocus.h"
#include "core/Exception.h"
#include "inventory/domain/ItemRecord.h"
#include "shell/lookups/TdmLookUps.h"
#include "shell/patterns/OpenList.h"
#include "ui/Application.h"
#include "ui/Layout.h"

#include <array>
#include <utility>

namespace corvane::inventory {

namespace {

using shell::LookUp;
constexpr const char* kAmountFormat = "#,###,##0.00#;(#,###,##0.00#)";

} // namespace

TfrmItem::TfrmItem(ui::Application& app, store::Database& db, shell::TdmLookUps& lookUps)
    : EntryForm(app, "frmItem", db, "Item", "tblItem"), tblItemSubtype(db, "ItemSubtype"),
      tblWarehse(db, "Warehse"), tblIBalance(db, "IBalance"),
      cboItemType(*this, "cboItemType", EntryTable, "ItemTypeID",
                  lookUps.ListSource(LookUp::ItemType), "ItemTypeID", "TypeName"),
      cboItemSubtype(*this, "cboItemSubtype", EntryTable, "ItemSubtypeID", tblItemSubtype,
                     "ItemSubtypeID", "SubtypeName"),
      lookUps_(lookUps) {
    using namespace ui;
    lookUps_.Open(LookUp::ItemType, db);
    EntryTable.FieldByName("ItemNo").DisplayLabel = "Item no.";
    EntryTable.FieldByName("ItemDescription").DisplayLabel = "Description";
    for (const char* money : {"UnitPrice", "WgtAvgCost", "StandardCost"})
        EntryTable.FieldByName(money).DisplayFormat = kAmountFormat;
    editTaxCodes.SetEditMask(">lll;0;_");

    tblItemSubtype.SetIndexName("SubtypeName1");
    tblItemSubtype.Open();
    tblWarehse.Open();
    tblIBalance.SetMasterSource(&EntryTable, "ItemID");
    tblIBalance.AddLookupField("WarehouseName", store::FieldType::String, 20, "WarehouseID",
                               tblWarehse, "WarehouseID", "WarehouseName");
    tblIBalance.Open();
    tblIBalance.FieldByName("QtyOnHand").DisplayFormat = "#,##0.######";
    grdBalances.ReadOnly = true;
    grdBalances.AddColumn("WarehouseName", "Warehouse", 140);
    grdBalances.AddColumn("QtyOnHand", "On Hand", 90);

    // The average is kept by receipt posting; the user corrects it only on purpose.
    chkReadOnly.SetChecked(true);
    editWgtAvgCost.ReadOnly = true;
    chkReadOnly.OnClick = [this] { editWgtAvgCost.ReadOnly = chkReadOnly.Checked(); };

    for (auto [number, name, field] :
         {std::tuple{&editSalesGLAccount, &editSalesGLAccountName, "SalesGLAccountID"},
          std::tuple{&editCOGSGLAccount, &editCOGSGLAccountName, "COGSGLAccountID"},
          std::tuple{&editInventoryGLAccount, &editInventoryGLAccountName,
                     "InventoryGLAccountID"}}) {
        accounts_.push_back(std::make_unique<ledger::AccountBox>(*number, EntryTable, field, db));
        accounts_.push_back(std::make_unique<ledger::AccountBox>(*name, EntryTable, field, db,
                                                                 ledger::AccountBoxShows::Name));
    }
    for (auto [stem, boxes] :
         {std::pair{"SalesSubAccount", std::array{&editSalesSubAccount1, &editSalesSubAccount2,
                                                  &editSalesSubAccount3}},
          std::pair{"COGSSubAccount",
                    std::array{&editCOGSSubAccount1, &editCOGSSubAccount2, &editCOGSSubAccount3}},
          std::pair{"InventorySubAccount",
                    std::array{&editInventorySubAccount1, &editInventorySubAccount2,
                               &editInventorySubAccount3}}})
        for (int level = 1; level <= 3; ++level)
            subAccounts_.push_back(std::make_unique<ledger::SubAccountBox>(
                *boxes[static_cast<std::size_t>(level - 1)], EntryTable,
                std::string(stem) + std::to_string(level) + "ID", level, db));
    auto lookUpButton = [this](Button& button, std::string_view form, std::string_view right) {
        button.OnClick = [this, form, right] { shell::OpenList(App(), form, right); };
    };
    lookUpButton(btnItemTypes, "frmItemTypes", "ItemTypes");
    lookUpButton(btnItemSubtypes, "frmItemSubtypes", "ItemSubtypes");
    lookUpButton(btnGLAccounts, "frmGLAccounts", "GLAccounts");

    tabGeneral.SetLayout(Column{
        FormRow{"Item Type:", Row{cboItemType, btnItemTypes, Stretch{}}},
        FormRow{"Item Subtype:", Row{cboItemSubtype, btnItemSubtypes, Stretch{}}},
        FormRow{"Unit Price:", editUnitPrice},
        FormRow{"Taxes:", editTaxCodes},
        FormRow{"Wgt Avg Cost:", Row{editWgtAvgCost, chkReadOnly}},
        FormRow{"Standard Cost:", editStandardCost},
        grdBalances,
    });
    tabAccounts.SetLayout(Column{
        FormRow{"Sales:", Row{editSalesGLAccount, editSalesGLAccountName}},
        FormRow{"Subaccounts:",
                Row{editSalesSubAccount1, editSalesSubAccount2, editSalesSubAccount3, Stretch{}}},
        FormRow{"Cost of Goods Sold:", Row{editCOGSGLAccount, editCOGSGLAccountName}},
        FormRow{"Subaccounts:",
                Row{editCOGSSubAccount1, editCOGSSubAccount2, editCOGSSubAccount3, Stretch{}}},
        FormRow{"Inventory:", Row{editInventoryGLAccount, editInventoryGLAccountName}},
        FormRow{"Subaccounts:", Row{editInventorySubAccount1, editInventorySubAccount2,
                                    editInventorySubAccount3, Stretch{}}},
        Row{btnGLAccounts, Stretch{}},
        Stretch{},
    });
    tabNotes.SetLayout(Column{memNotes});
    SetLayout(Column{
        FormRow{"Item no.:", Row{editItemNo, chkSuspended, Stretch{}}},
        FormRow{"Description:", editItemDescription},
        pgcItem,
        ButtonRow{btnOK, btnCancel},
    });

    EntryTable.OnNewRecord = [this](store::DataSet&) { NewItem(); };
    EntryTable.BeforePost = [this](store::DataSet&) { BeforePostItem(); };
    OnShow = [this] {
        pgcItem.SetActivePage(tabGeneral);
        chkReadOnly.SetChecked(true);
        editWgtAvgCost.ReadOnly = true;
        ShowState();
        LimitSubtypes();
    };
}

TfrmItem::~TfrmItem() {
    EntryTable.OnNewRecord = EntryTable.BeforePost = nullptr;
}

void TfrmItem::NewItem() {
    store::Database& db = EntryTable.OwnerDatabase();
    auto keys = DrawItemKeys(db, [this](const std::string& message) {
        return App().MessageDlg(message, ui::MsgType::Warning, {ui::mbRetry, ui::mbCancel}) ==
               ui::mbRetry;
    });
    if (!keys) Abort();
    EntryTable.FieldByName("ItemNo").SetAsString(keys->ItemNo);
    EntryTable.FieldByName("ItemID").SetAsInteger(keys->ItemID);
    SetNewItemDefaults(db, EntryTable);
}

void TfrmItem::StartCopy(store::DataSet& source) {
    std::vector<std::pair<std::string, store::Value>> copied;
    for (const char* field : {"ItemDescription",
                              "TaxCodes",
                              "UnitPrice",
                              "Suspended",
                              "Notes",
                              "ItemTypeID",
                              "ItemSubtypeID",
                              "SalesGLAccountID",
                              "COGSGLAccountID",
                              "InventoryGLAccountID",
                              "StandardCost",
                              "SalesSubAccount1ID",
                              "SalesSubAccount2ID",
                              "SalesSubAccount3ID",
                              "COGSSubAccount1ID",
                              "COGSSubAccount2ID",
                              "COGSSubAccount3ID",
                              "InventorySubAccount1ID",
                              "InventorySubAccount2ID",
                              "InventorySubAccount3ID"})
        copied.emplace_back(field, source.FieldByName(field).AsValue());
    copying_ = true;
    EntryTable.Insert();
    for (auto& [field, value] : copied)
        EntryTable.FieldByName(field).SetValue(value);
    ShowState();
}

void TfrmItem::BeforePostItem() {
    auto page = [this](ui::Page& tab) { return [this, &tab] { pgcItem.SetActivePage(tab); }; };
    banking::RaiseRefusal(CheckItem(EntryTable.OwnerDatabase(), EntryTable),
                          {{"ItemNo", &editItemNo},
                           {"ItemDescription", &editItemDescription},
                           {"ItemTypeID", &cboItemType, page(tabGeneral)},
                           {"ItemSubtypeID", &cboItemSubtype, page(tabGeneral)},
                           {"SalesGLAccountID", &editSalesGLAccount, page(tabAccounts)},
                           {"COGSGLAccountID", &editCOGSGLAccount, page(tabAccounts)},
                           {"InventoryGLAccountID", &editInventoryGLAccount, page(tabAccounts)},
                           {"SalesSubAccount1ID", &editSalesSubAccount1, page(tabAccounts)},
                           {"SalesSubAccount2ID", &editSalesSubAccount2, page(tabAccounts)},
                           {"SalesSubAccount3ID", &editSalesSubAccount3, page(tabAccounts)},
                           {"COGSSubAccount1ID", &editCOGSSubAccount1, page(tabAccounts)},
                           {"COGSSubAccount2ID", &editCOGSSubAccount2, page(tabAccounts)},
                           {"COGSSubAccount3ID", &editCOGSSubAccount3, page(tabAccounts)},
                           {"InventorySubAccount1ID", &editInventorySubAccount1, page(tabAccounts)},
                           {"InventorySubAccount2ID", &editInventorySubAccount2, page(tabAccounts)},
                           {"InventorySubAccount3ID", &editInventorySubAccount3, page(tabAccounts)},
                           {"TaxCodes", &editTaxCodes, page(tabGeneral)},
                           {"StandardCost", &editStandardCost, page(tabGeneral)}});
}

void TfrmItem::ShowState() {
    if (!EntryTable.Active()) return;
    const std::string name = EntryTable.FieldByName("ItemDescription").AsString();
    if (EntryTable.State() == store::DataSetState::Insert && copying_ && name.empty())
        Caption = "New (copied) Item";
    else if (name.empty())
        Caption = "New Item";
    else
        Caption = name;
    if (EntryTable.State() != store::DataSetState::Insert) copying_ = false;
}

void TfrmItem::LimitSubtypes() {
    if (!EntryTable.Active()) return;
    const store::Field& type = EntryTable.FieldByName("ItemTypeID");
    tblItemSubtype.SetFilter(type.IsNull() ? "ItemTypeID = null"
                                           : "ItemTypeID = " + std::to_string(type.AsInteger()));
    tblItemSubtype.SetFiltered(true);
}

std::string TfrmItem::KeyViolationMessage() const {
    if (Visible() && numberEdit_->CanFocus()) numberEdit_->SetFocus();
    return std::string(ItemNoTakenMessage);
}

} // namespace corvane::inventory
