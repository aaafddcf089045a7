#include "receivables/invoices/forms/TfrmARInvoicesFilter.h"

#include "shell/patterns/ListForm.h"
#include "ui/Layout.h"

namespace corvane::receivables {

TfrmARInvoicesFilter::TfrmARInvoicesFilter(ui::Application& app, shell::ListForm& list)
    : FilterForm(app, "frmARInvoicesFilter", list), tblCustomer(list.Db(), "Customer"),
      tblCurrency(list.Db(), "Currency") {
    using namespace ui;
    Caption = "Filter AR Invoices";
    tblCustomer.SetIndexName("CustomerName1");
    tblCustomer.Open();
    tblCurrency.Open();
    rgPosted.Columns = 3;
    SetLayout(Column{
        FormRow{"Customer:", cboCustomer},
        FormRow{"Currency:", cboCurrency},
        rgPosted,
        ButtonRow{btnOK, btnCancel, btnReset},
    });
    AddLookupCriterion(cboCustomer, "CustomerID");
    AddLookupCriterion(cboCurrency, "CurrencyID");
    AddYesNoCriterion(rgPosted, "Posted", 0, 1, 2);
    Reset();
}

} // namespace corvane::receivables
