#pragma once

#include "shell/patterns/ListForm.h"

#include <string>

namespace corvane::shell {
class TdmLookUps;
}

namespace corvane::receivables {

class TfrmCustomer;
class TfrmCustomersFilter;
class TfrmCustomerSearch;

// The customers with their address, telephone, main contact and balance, by name or number; a
// filter by salesman, type, currency, country and suspension; typing finds a customer. The
// pop-up menu dials the customer, writes to it, shows its address on a map or copies it.
class TfrmCustomers : public shell::ListForm {
public:
    TfrmCustomers(ui::Application& app, store::Database& db, shell::TdmLookUps& lookUps);
    ~TfrmCustomers() override;

    store::Table& tblCustomer = MainTable;
    store::Table tblCBalance;
    ui::MenuItem& mnuSortCustomerNo;
    ui::MenuItem& mnuSortCustomerName;
    ui::MenuItem mnuRecordsSep{mnuRecords, "mnuRecordsSep", "-"};
    ui::MenuItem mnuInvoices{mnuRecords, "mnuInvoices", "&Invoices"};
    ui::MenuItem mnuPayments{mnuRecords, "mnuPayments", "&Payments"};
    ui::MenuItem mnuJobs{mnuRecords, "mnuJobs", "&Jobs"};
    ui::MenuItem mnuTimeSheets{mnuRecords, "mnuTimeSheets", "&Time Sheets"};
    ui::MenuItem mnuSalesHistory{mnuRecords, "mnuSalesHistory", "Sales &History"};
    ui::MenuItem mnuEmailAll{mnuFile, "mnuEmailAll", "E&mail All"};
    ui::MenuItem mnuImport{mnuFile, "mnuImport", "&Import..."};
    ui::MenuItem popSep{popList, "popSep", "-"};
    ui::MenuItem popPhone{popList, "popPhone", "&Phone"};
    ui::MenuItem popEMail{popList, "popEMail", "E-&Mail"};
    ui::MenuItem popMap{popList, "popMap", "M&ap"};
    ui::MenuItem popCopyAddress{popList, "popCopyAddress",
                                "&Copy selected customer address to clipboard"};

    // The web service that answers "/maps?q=", from the settings file.
    std::string MapService;
    // Every e-mail address of the rows shown, joined by "; ", for one message to them all;
    // refused when there are too many for a mail program to take.
    std::string AllEMailAddresses();
    void EmailAll();

    // What the pop-up commands hand to the desktop, for the current customer.
    std::string MapAddress();
    std::string ClipboardAddress();

protected:
    shell::EntryForm& Entry() override;
    shell::FilterForm* Filter() override;
    shell::SearchForm* Search() override;
    // Export for labels: the address of every customer shown, to a workbook or a text file.
    void Export() override;

private:
    void BeforeDeleteCustomer();

    shell::TdmLookUps& lookUps_;
    TfrmCustomersFilter* filter_ = nullptr;
    TfrmCustomerSearch* search_ = nullptr;
};

} // namespace corvane::receivables
