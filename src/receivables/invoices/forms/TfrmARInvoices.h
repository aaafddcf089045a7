#pragma once

#include "receivables/customers/CustomerCommands.h"
#include "shell/patterns/ListForm.h"
#include "ui/MenuItem.h"
#include "ui/ToolBar.h"

#include <cstdint>
#include <optional>
#include <string>

namespace corvane::receivables {

class TfrmARInvoice;
class TfrmARInvoicesFilter;

// Every sales invoice, newest first: date, period, age, customer, number, amounts and state.
// Posted and time-sheet invoices are shown but cannot be deleted; Post turns the printed ones
// into vouchers and offers the vouchers' posting at once.
class TfrmARInvoices : public shell::ListForm {
public:
    TfrmARInvoices(ui::Application& app, store::Database& db);

    store::Table& tblARInv = MainTable;
    ui::MenuItem& mnuSortDate;
    ui::MenuItem& mnuSortInvoiceNo;
    ui::MenuItem mnuCopy{mnuRecords, "mnuCopy", "&Copy"};
    ui::MenuItem mnuPost{mnuRecords, "mnuPost", "&Post..."};
    ui::MenuItem mnuPayments{mnuRecords, "mnuPayments", "Pa&yment(s)..."};
    ui::MenuItem mnuCustomer{mnuRecords, "mnuCustomer", "C&ustomer..."};
    ui::MenuItem mnuSalesHistory{mnuRecords, "mnuSalesHistory", "Sales &History..."};
    ui::ToolButton tbnPost{tlbList, "tbnPost", mnuPost};
    // Invoice printing; the list's own separator and Exit move below these.
    ui::MenuItem mnuPrintSelected{mnuFile, "mnuPrintSelected", "Print &Selected Invoice..."};
    ui::MenuItem mnuPrintUnprinted{mnuFile, "mnuPrintUnprinted",
                                   "Print &All Unprinted Invoices..."};
    ui::MenuItem mnuEmailInvoice{mnuFile, "mnuEmailInvoice", "E&mail Selected Invoice..."};
    ui::MenuItem mnuExportInvoice{mnuFile, "mnuExportInvoice", "Export Selected &Invoice..."};
    ui::MenuItem mnuInvoiceSetup{mnuFile, "mnuInvoiceSetup", "Invoice Print Se&tup..."};
    ui::MenuItem mnuInvoicesSep{mnuFile, "mnuInvoicesSep", "-"};
    ui::MenuItem mnuClose{mnuFile, "mnuClose", "E&xit"};

    // The selection of a new invoice comes first where the program has one: a manual invoice
    // opens as before, invoices made from time are shown in the list.
    void NewRecord() override;
    void CopyInvoice();
    void DeleteInvoice();
    void PostInvoices();
    void ShowPayments();
    // Print AR Invoices for the invoice on the list, or for every unprinted one.
    void PrintInvoices(std::optional<std::int64_t> arInvoiceId);
    void ToggleOutstanding();
    // The customer of the invoice the list stands on, in its entry form.
    void ShowCustomer();
    // The customer's sales history, after the user's right to it is checked.
    void ShowSalesHistory();
    // "AR Invoices" with what narrows the list: "(Outstanding)", "(Filtered)", or both.
    std::string CaptionNow() const;

protected:
    shell::EntryForm& Entry() override;
    shell::FilterForm* Filter() override;

private:
    TfrmARInvoice& InvoiceForm();
    void AddListFields();
    // The filter dialog's criteria and the outstanding view together on the list.
    void ApplyFilters();

    store::Table tblCustomer;
    TfrmARInvoicesFilter* filter_ = nullptr;

public:
    CustomerReachCommands Reach{App(), popList, tblARInv, Db()};
};

} // namespace corvane::receivables
