#pragma once

#include "ledger/accounts/AccountBox.h"
#include "ledger/accounts/SubAccountBox.h"
#include "shell/patterns/EntryForm.h"
#include "ui/CheckBox.h"
#include "ui/DBCheckBox.h"
#include "ui/DBEdit.h"
#include "ui/DBLookupComboBox.h"
#include "ui/DBMemo.h"
#include "ui/FieldDataLink.h"
#include "ui/Grid.h"
#include "ui/PageControl.h"

#include <functional>
#include <memory>
#include <string_view>
#include <vector>

namespace corvane::shell {
class TdmLookUps;
}

namespace corvane::inventory {

// One item: number, description, type and subtype, price, tax codes and costs, with its stock in
// each warehouse; its sales, cost and inventory accounts; notes. A new item draws its number and
// id from ItemCtl and starts taxable by every tax.
class TfrmItem : public shell::EntryForm {
public:
    TfrmItem(ui::Application& app, store::Database& db, shell::TdmLookUps& lookUps);
    ~TfrmItem() override;

    store::Table& tblItem = EntryTable;
    store::Table tblItemSubtype;
    store::Table tblWarehse;
    store::Table tblIBalance;

    ui::DBEdit editItemNo{*this, "editItemNo", EntryTable, "ItemNo"};
    ui::DBEdit editItemDescription{*this, "editItemDescription", EntryTable, "ItemDescription"};
    ui::DBCheckBox chkSuspended{*this, "chkSuspended", "Suspended", EntryTable, "Suspended"};
    ui::PageControl pgcItem{*this, "pgcItem"};
    ui::Page tabGeneral{pgcItem, "tabGeneral", "General"};
    ui::Page tabAccounts{pgcItem, "tabAccounts", "GL Accounts"};
    ui::Page tabNotes{pgcItem, "tabNotes", "Notes"};

    ui::DBLookupComboBox cboItemType;
    ui::Button btnItemTypes{*this, "btnItemTypes", "..."};
    ui::DBLookupComboBox cboItemSubtype;
    ui::Button btnItemSubtypes{*this, "btnItemSubtypes", "..."};
    ui::DBEdit editUnitPrice{*this, "editUnitPrice", EntryTable, "UnitPrice"};
    ui::DBEdit editTaxCodes{*this, "editTaxCodes", EntryTable, "TaxCodes"};
    ui::DBEdit editWgtAvgCost{*this, "editWgtAvgCost", EntryTable, "WgtAvgCost"};
    ui::CheckBox chkReadOnly{*this, "chkReadOnly", "Read Only"};
    ui::DBEdit editStandardCost{*this, "editStandardCost", EntryTable, "StandardCost"};
    ui::Grid grdBalances{*this, "grdBalances", tblIBalance};

    ui::Edit editSalesGLAccount{*this, "editSalesGLAccount"};
    ui::Edit editSalesGLAccountName{*this, "editSalesGLAccountName"};
    ui::Edit editCOGSGLAccount{*this, "editCOGSGLAccount"};
    ui::Edit editCOGSGLAccountName{*this, "editCOGSGLAccountName"};
    ui::Edit editInventoryGLAccount{*this, "editInventoryGLAccount"};
    ui::Edit editInventoryGLAccountName{*this, "editInventoryGLAccountName"};
    // The three subaccounts of each account, by level.
    ui::Edit editSalesSubAccount1{*this, "editSalesSubAccount1"};
    ui::Edit editSalesSubAccount2{*this, "editSalesSubAccount2"};
    ui::Edit editSalesSubAccount3{*this, "editSalesSubAccount3"};
    ui::Edit editCOGSSubAccount1{*this, "editCOGSSubAccount1"};
    ui::Edit editCOGSSubAccount2{*this, "editCOGSSubAccount2"};
    ui::Edit editCOGSSubAccount3{*this, "editCOGSSubAccount3"};
    ui::Edit editInventorySubAccount1{*this, "editInventorySubAccount1"};
    ui::Edit editInventorySubAccount2{*this, "editInventorySubAccount2"};
    ui::Edit editInventorySubAccount3{*this, "editInventorySubAccount3"};
    ui::Button btnGLAccounts{*this, "btnGLAccounts", "GL Accounts..."};

    ui::DBMemo memNotes{*this, "memNotes", EntryTable, "Notes"};

    // Copy: a new item filled from the row the list stands on, with its own new number.
    void StartCopy(store::DataSet& source);

protected:
    std::string KeyViolationMessage() const override;

private:
    void NewItem();
    void BeforePostItem();
    void ShowState();
    void LimitSubtypes();

    shell::TdmLookUps& lookUps_;
    std::vector<std::unique_ptr<ledger::AccountBox>> accounts_;
    std::vector<std::unique_ptr<ledger::SubAccountBox>> subAccounts_;
    bool copying_ = false;
    ui::DBEdit* const numberEdit_ = &editItemNo;
    ui::FieldDataLink nameLink_{EntryTable, "ItemDescription", [this] { ShowState(); }};
    ui::FieldDataLink typeLink_{EntryTable, "ItemTypeID", [this] { LimitSubtypes(); }};
};

} // namespace corvane::inventory
