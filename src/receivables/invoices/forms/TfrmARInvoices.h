#pragma once

#include "shell/main/FormRegistry.h"
#include "shell/patterns/ListForm.h"
#include "ui/MenuItem.h"
#include "ui/ToolBar.h"

#include <string>

namespace corvane::receivables {

class TfrmARInvoice;

// Every sales invoice, newest first: date, period, age, customer, number, amounts and state.
// Posted and time-sheet invoices are shown but cannot be deleted; Post turns the printed ones
// into vouchers and offers the vouchers' posting at once.
class TfrmARInvoices : public shell::ListForm {
public:
    TfrmARInvoices(ui::Application& app, store::Database& db,
                   const shell::FormRegistry* registry = nullptr,
                   shell::TfrmCorvane* main = nullptr);

    store::Table& tblARInv = MainTable;
    ui::MenuItem& mnuSortDate;
    ui::MenuItem& mnuSortInvoiceNo;
    ui::MenuItem mnuCopy{mnuRecords, "mnuCopy", "&Copy"};
    ui::MenuItem mnuPost{mnuRecords, "mnuPost", "&Post..."};
    ui::MenuItem mnuPayments{mnuRecords, "mnuPayments", "Pa&yment(s)..."};
    ui::ToolButton tbnPost{tlbList, "tbnPost", mnuPost};

    void CopyInvoice();
    void DeleteInvoice();
    void PostInvoices();
    void ShowPayments();
    void ToggleOutstanding();
    // "AR Invoices" with what narrows the list: "(Outstanding)", "(Filtered)", or both.
    std::string CaptionNow() const;

protected:
    shell::EntryForm& Entry() override;

private:
    TfrmARInvoice& InvoiceForm();
    ui::Form* MakeRegistered(std::string_view name);
    void AddListFields();

    const shell::FormRegistry* registry_;
    shell::TfrmCorvane* main_;
    store::Table tblCustomer;
};

} // namespace corvane::receivables
