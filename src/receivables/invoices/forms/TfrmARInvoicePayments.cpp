#include "receivables/invoices/forms/TfrmARInvoicePayments.h"

#include "core/Exception.h"
#include "receivables/posting/InvoicePosting.h"
#include "shell/patterns/EntryForm.h"
#include "shell/patterns/OpenList.h"
#include "ui/Application.h"
#include "ui/DesktopServices.h"
#include "ui/Layout.h"

namespace corvane::receivables {

TfrmARInvoicePayments::TfrmARInvoicePayments(ui::Application& app, store::Database& db)
    : Form(app, "frmARInvoicePayments"),
      qryPayments(db, "SELECT IP.PaymentID, IP.PaymentAmount, IP.DiscTakenAmount, "
                      "IP.WriteOffAmount, P.ChequeNo, P.PaymentDate, P.ChequeAmount, P.PaidBy "
                      "FROM ARInvPmt IP INNER JOIN ARPmt P ON P.PaymentID = IP.PaymentID "
                      "WHERE ARInvoiceID = :ARInvoiceID ORDER BY P.PaymentDate, IP.PaymentID"),
      db_(db) {
    Caption = "Payment(s)";
    StayOnTop = true;
    qryPayments.AddCalculatedField("PaidByText", store::FieldType::String, 20);
    const bool checkWording = App().Desktop().CountryName() == "United States";
    qryPayments.OnCalcFields = [checkWording](store::DataSet& ds) {
        ds.FieldByName("PaidByText")
            .SetAsString(PaidByText(ds.FieldByName("PaidBy"), checkWording));
    };
    grdPayments.AddColumn("PaymentDate", "Date", 80);
    grdPayments.AddColumn("ChequeNo", "Reference", 80);
    grdPayments.AddColumn("PaidByText", "Paid by", 100);
    grdPayments.AddColumn("ChequeAmount", "Payment Amount", 100);
    grdPayments.AddColumn("PaymentAmount", "Paid", 90);
    grdPayments.AddColumn("DiscTakenAmount", "Discount", 80);
    grdPayments.AddColumn("WriteOffAmount", "Write-off", 80);
    grdPayments.OnDblClick = [this] { OpenPayment(); };
    SetLayout(ui::Column{lblHint, grdPayments});
    ClientWidth = 660;
    ClientHeight = 220;
}

void TfrmARInvoicePayments::ShowInvoice(std::int64_t arInvoiceId, const std::string& invoiceNo) {
    Caption = "Payment(s) for invoice " + invoiceNo;
    qryPayments.Close();
    qryPayments.ParamByName("ARInvoiceID").SetValue(store::Value(arInvoiceId));
    qryPayments.Open();
    qryPayments.FieldByName("PaymentDate").DisplayFormat = "dd mmm yy";
    for (const char* money : {"ChequeAmount", "PaymentAmount", "DiscTakenAmount", "WriteOffAmount"})
        qryPayments.FieldByName(money).DisplayFormat = "#,###,##0.00#;(#,###,##0.00#)";
    qryPayments.First();
}

void TfrmARInvoicePayments::OpenPayment() {
    if (!qryPayments.Active() || qryPayments.IsEmpty()) return;
    const store::Value id = qryPayments.FieldByName("PaymentID").AsValue();
    auto* payment =
        dynamic_cast<shell::EntryForm*>(shell::OpenAllowed(App(), "frmARPayment", "ARPayments"));
    if (!payment) return;
    payment->EntryTable.Refresh();
    if (!payment->EntryTable.Locate("PaymentID", {id}))
        throw Exception("Payment not found...\nIt may have been purged.");
    payment->Show();
}

} // namespace corvane::receivables
