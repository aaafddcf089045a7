#pragma once

#include "receivables/masters/FieldActionButton.h"
#include "shell/patterns/EntryForm.h"
#include "ui/DBCheckBox.h"
#include "ui/DBEdit.h"
#include "ui/DBLookupComboBox.h"
#include "ui/DBMemo.h"
#include "ui/FieldDataLink.h"
#include "ui/Grid.h"
#include "ui/Label.h"
#include "ui/PageControl.h"

#include <functional>
#include <memory>
#include <string_view>
#include <vector>

namespace corvane::shell {
class TdmLookUps;
}

namespace corvane::receivables {

// One customer: number and name, the address and ship-to address, the terms and currency, the
// taxes with their exemption numbers, salesman and type, the contacts and notes. A new customer
// draws its number and id from CustCtl when it is made.
class TfrmCustomer : public shell::EntryForm {
public:
    TfrmCustomer(ui::Application& app, store::Database& db, shell::TdmLookUps& lookUps);
    ~TfrmCustomer() override;

    store::Table& tblCustomer = EntryTable;
    store::Table tblCContact;

    ui::DBEdit editCustomerNo{*this, "editCustomerNo", EntryTable, "CustomerNo"};
    ui::DBEdit editCustomerName{*this, "editCustomerName", EntryTable, "CustomerName"};
    ui::DBCheckBox chkSuspended{*this, "chkSuspended", "Suspended", EntryTable, "Suspended"};
    ui::Label lblBalance{*this, "lblBalance", ""};
    ui::PageControl pgcCustomer{*this, "pgcCustomer"};
    ui::Page tabAddress{pgcCustomer, "tabAddress", "Address"};
    ui::Page tabShipTo{pgcCustomer, "tabShipTo", "Ship-to"};
    ui::Page tabTerms{pgcCustomer, "tabTerms", "Terms etc."};
    ui::Page tabTax{pgcCustomer, "tabTax", "Tax etc."};
    ui::Page tabContacts{pgcCustomer, "tabContacts", "Contacts"};
    ui::Page tabNotes{pgcCustomer, "tabNotes", "Notes"};

    // Address
    ui::DBEdit editAddressLine1{*this, "editAddressLine1", EntryTable, "AddressLine1"};
    ui::DBEdit editAddressLine2{*this, "editAddressLine2", EntryTable, "AddressLine2"};
    ui::DBEdit editCity{*this, "editCity", EntryTable, "City"};
    ui::DBEdit editStateProv{*this, "editStateProv", EntryTable, "StateProv"};
    ui::DBEdit editZipCode{*this, "editZipCode", EntryTable, "ZipCode"};
    ui::DBEdit editCountry{*this, "editCountry", EntryTable, "Country"};
    ui::DBEdit editContact{*this, "editContact", EntryTable, "Contact"};
    ui::DBEdit editPhone{*this, "editPhone", EntryTable, "Phone"};
    ui::DBEdit editFax{*this, "editFax", EntryTable, "Fax"};
    ui::DBEdit editEMail{*this, "editEMail", EntryTable, "EMail"};
    ui::DBEdit editWebPage{*this, "editWebPage", EntryTable, "WebPage"};
    ui::Button btnPhone{*this, "btnPhone", "Dial"};
    ui::Button btnEMail{*this, "btnEMail", "E-Mail"};
    ui::Button btnWebPage{*this, "btnWebPage", "Web"};

    // Ship-to
    ui::DBEdit editShipToName{*this, "editShipToName", EntryTable, "ShipToName"};
    ui::DBEdit editShipToAddressLine1{*this, "editShipToAddressLine1", EntryTable,
                                      "ShipToAddressLine1"};
    ui::DBEdit editShipToAddressLine2{*this, "editShipToAddressLine2", EntryTable,
                                      "ShipToAddressLine2"};
    ui::DBEdit editShipToCity{*this, "editShipToCity", EntryTable, "ShipToCity"};
    ui::DBEdit editShipToStateProv{*this, "editShipToStateProv", EntryTable, "ShipToStateProv"};
    ui::DBEdit editShipToZipCode{*this, "editShipToZipCode", EntryTable, "ShipToZipCode"};
    ui::DBEdit editShipToCountry{*this, "editShipToCountry", EntryTable, "ShipToCountry"};

    // Terms etc.
    ui::DBEdit editDiscPC{*this, "editDiscPC", EntryTable, "DiscPC"};
    ui::DBEdit editDiscDays{*this, "editDiscDays", EntryTable, "DiscDays"};
    ui::DBEdit editNetDays{*this, "editNetDays", EntryTable, "NetDays"};
    ui::DBCheckBox chkCOD{*this, "chkCOD", "COD", EntryTable, "COD"};
    ui::DBCheckBox chkPrepayment{*this, "chkPrepayment", "Prepayment", EntryTable, "Prepayment"};
    ui::DBEdit editTermsText{*this, "editTermsText", EntryTable, "TermsText"};
    ui::DBEdit editCreditLimit{*this, "editCreditLimit", EntryTable, "CreditLimit"};
    ui::DBLookupComboBox cboCurrency;
    ui::Button btnCurrencies{*this, "btnCurrencies", "..."};
    ui::DBEdit editCustomerMessage{*this, "editCustomerMessage", EntryTable, "CustomerMessage"};
    ui::DBCheckBox chkPrintStatement{*this, "chkPrintStatement", "Print Statement", EntryTable,
                                     "PrintStatement"};
    ui::DBCheckBox chkAllowBackorders{*this, "chkAllowBackorders", "Allow Backorders", EntryTable,
                                      "AllowBackorders"};

    // Tax etc.
    ui::DBLookupComboBox cboTax1;
    ui::DBEdit editTax1ExemptionNo{*this, "editTax1ExemptionNo", EntryTable, "Tax1ExemptionNo"};
    ui::DBLookupComboBox cboTax2;
    ui::DBEdit editTax2ExemptionNo{*this, "editTax2ExemptionNo", EntryTable, "Tax2ExemptionNo"};
    ui::Button btnTaxes{*this, "btnTaxes", "..."};
    ui::DBEdit editTaxNo{*this, "editTaxNo", EntryTable, "TaxNo"};
    ui::DBLookupComboBox cboSalesman;
    ui::Button btnSalesmen{*this, "btnSalesmen", "..."};
    ui::DBLookupComboBox cboCustomerType;
    ui::Button btnCustomerTypes{*this, "btnCustomerTypes", "..."};

    // Contacts
    ui::Grid grdContacts{*this, "grdContacts", tblCContact};
    ui::Button btnContactNew{*this, "btnContactNew", "&New"};
    ui::Button btnContactEdit{*this, "btnContactEdit", "&Edit"};
    ui::Button btnContactDelete{*this, "btnContactDelete", "&Delete"};

    // Notes
    ui::DBMemo memNotes{*this, "memNotes", EntryTable, "Notes"};

    void NewContact();
    void EditContact();
    void DeleteContact();

protected:
    std::string KeyViolationMessage() const override;

private:
    void NewCustomer();
    void BeforePostCustomer();
    void CheckCurrencyUnchanged();
    void ShowState();
    void ShowBalance();
    bool SavedBeforeContacts();
    void ShowContact(bool insert);

    shell::TdmLookUps& lookUps_;
    std::vector<std::unique_ptr<FieldActionButton>> actions_;
    ui::DBEdit* const numberEdit_ = &editCustomerNo;
    ui::FieldDataLink nameLink_{EntryTable, "CustomerName", [this] { ShowState(); }};
};

} // namespace corvane::receivables
