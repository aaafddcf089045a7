#pragma once

#include "ledger/accounts/AccountBox.h"
#include "shell/patterns/EntryForm.h"
#include "ui/DBEdit.h"
#include "ui/PageControl.h"

namespace corvane::ledger {

// "Your Company": the company's name and address, its fiscal year and the periods that new
// documents default to and are held within. The one row of Company is made here when the table
// has none.
class TfrmCompany : public shell::EntryForm {
public:
    TfrmCompany(ui::Application& app, store::Database& db);

    store::Table& tblCompany = EntryTable;
    ui::PageControl pgcCompany{*this, "pgcCompany"};
    ui::Page tabCompany{pgcCompany, "tabCompany", "Company"};
    ui::Page tabPeriods{pgcCompany, "tabPeriods", "Fiscal Periods"};
    ui::Page tabDefaults{pgcCompany, "tabDefaults", "Defaults"};
    ui::DBEdit editCompanyName{*this, "editCompanyName", EntryTable, "CompanyName"};
    ui::DBEdit editAddressLine1{*this, "editAddressLine1", EntryTable, "AddressLine1"};
    ui::DBEdit editAddressLine2{*this, "editAddressLine2", EntryTable, "AddressLine2"};
    ui::DBEdit editAddressLine3{*this, "editAddressLine3", EntryTable, "AddressLine3"};
    ui::DBEdit editPhone{*this, "editPhone", EntryTable, "Phone"};
    ui::DBEdit editTaxNo{*this, "editTaxNo", EntryTable, "TaxNo"};
    ui::DBEdit editFiscalYear{*this, "editFiscalYear", EntryTable, "FiscalYear"};
    ui::DBEdit editDefaultPeriodYYYY{*this, "editDefaultPeriodYYYY", EntryTable,
                                     "DefaultPeriodYYYY"};
    ui::DBEdit editDefaultPeriodPP{*this, "editDefaultPeriodPP", EntryTable, "DefaultPeriodPP"};
    ui::DBEdit editWPeriodFromYYYY{*this, "editWPeriodFromYYYY", EntryTable, "WPeriodFromYYYY"};
    ui::DBEdit editWPeriodFromPP{*this, "editWPeriodFromPP", EntryTable, "WPeriodFromPP"};
    ui::DBEdit editWPeriodToYYYY{*this, "editWPeriodToYYYY", EntryTable, "WPeriodToYYYY"};
    ui::DBEdit editWPeriodToPP{*this, "editWPeriodToPP", EntryTable, "WPeriodToPP"};
    ui::DBEdit editEPeriodFromYYYY{*this, "editEPeriodFromYYYY", EntryTable, "EPeriodFromYYYY"};
    ui::DBEdit editEPeriodFromPP{*this, "editEPeriodFromPP", EntryTable, "EPeriodFromPP"};
    ui::DBEdit editEPeriodToYYYY{*this, "editEPeriodToYYYY", EntryTable, "EPeriodToYYYY"};
    ui::DBEdit editEPeriodToPP{*this, "editEPeriodToPP", EntryTable, "EPeriodToPP"};

    // The accounts a new item starts with.
    ui::Edit editDfltSalesGLAccount{*this, "editDfltSalesGLAccount"};
    ui::Edit editDfltCOGSGLAccount{*this, "editDfltCOGSGLAccount"};
    ui::Edit editDfltInventoryGLAccount{*this, "editDfltInventoryGLAccount"};

    // Set while the year-end command moves the fiscal year, which it may do whatever exists.
    bool YearEndRunning = false;

protected:
    std::string KeyViolationMessage() const override;

private:
    void ShowCompany();
    void CheckForwardYear(store::Field& fiscalYear);
    void NewCompanyRow();

    // The fiscal year as the form found it: typing moves it back freely, forward only while
    // the company holds no documents.
    long long loadedYear_ = 0;
    AccountBox salesAccount_;
    AccountBox cogsAccount_;
    AccountBox inventoryAccount_;
};

} // namespace corvane::ledger
