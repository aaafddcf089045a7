#include "receivables/payments/forms/TfrmARPaymentInv.h"

#include "ui/Layout.h"

namespace corvane::receivables {

TfrmARPaymentInv::TfrmARPaymentInv(ui::Application& app, store::Database& db)
    : SearchForm(app, "frmARPaymentInv", db, "ARInv", "ARInvoiceID") {
    using namespace ui;
    Caption = "Invoices";
    SearchTable.FieldByName("InvoiceDate").DisplayFormat = "dd mmm yy";
    for (const char* money : {"InvoiceAmount", "Owing"})
        SearchTable.FieldByName(money).DisplayFormat = "#,###,##0.00#;(#,###,##0.00#)";
    grdSearch.AddColumn("InvoiceNo", "Invoice no.", 80);
    grdSearch.AddColumn("InvoiceDate", "Date", 80);
    grdSearch.AddColumn("InvoiceAmount", "Amount", 90);
    grdSearch.AddColumn("Owing", "Owing", 90);
    SetLayout(Column{
        FormRow{"Invoice no.", editFindInvoiceNo},
        grdSearch,
        ButtonRow{btnOK, btnCancel},
    });
    AddSearchEdit(editFindInvoiceNo, "InvoiceNo", "InvoiceNo");
}

} // namespace corvane::receivables
