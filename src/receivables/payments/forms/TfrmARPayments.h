#pragma once

#include "receivables/customers/CustomerCommands.h"
#include "shell/patterns/ListForm.h"
#include "ui/MenuItem.h"
#include "ui/ToolBar.h"

#include <string>

namespace corvane::receivables {

class TfrmARPayment;
class TfrmARPaymentsFilter;

// Every customer payment, newest first: date, reference, customer, bank, amount and state. Post
// applies the unposted ones to their invoices and offers the vouchers' posting at once.
class TfrmARPayments : public shell::ListForm {
public:
    TfrmARPayments(ui::Application& app, store::Database& db);

    store::Table& tblARPmt = MainTable;
    ui::MenuItem& mnuSortDate;
    ui::MenuItem& mnuSortReference;
    ui::MenuItem mnuPost{mnuRecords, "mnuPost", "&Post..."};
    ui::MenuItem mnuCustomer{mnuRecords, "mnuCustomer", "&Customer..."};
    ui::MenuItem mnuReconciled{mnuRecords, "mnuReconciled", "Rec&onciled"};
    ui::ToolButton tbnPost{tlbList, "tbnPost", mnuPost};

    void DeletePayment();
    void PostPayments();
    // The customer of the payment the list stands on, in its own entry form.
    void ShowCustomer();
    void ToggleOutstanding();
    // Marks the payment the list stands on as cleared by the bank, or clears the mark.
    void FlipReconciled();
    // "AR Payments" with what narrows the list: "(Outstanding)", "(Filtered)", or both.
    std::string CaptionNow() const;

protected:
    shell::EntryForm& Entry() override;
    shell::FilterForm* Filter() override;

private:
    TfrmARPayment& PaymentForm();
    void AddListFields();
    // The filter dialog's criteria and the outstanding view together on the list.
    void ApplyFilters();

    store::Table tblCustomer, tblBank;
    TfrmARPaymentsFilter* filter_ = nullptr;

public:
    CustomerReachCommands Reach{App(), popList, tblARPmt, Db()};
};

} // namespace corvane::receivables
