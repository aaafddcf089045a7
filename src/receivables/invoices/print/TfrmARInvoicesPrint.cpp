#include "receivables/invoices/print/TfrmARInvoicesPrint.h"

#include "core/Exception.h"
#include "receivables/invoices/print/TrptARInvoice.h"
#include "reports/page/ReportDocument.h"
#include "reports/preview/PrinterCheck.h"
#include "reports/preview/ReportOutput.h"
#include "store/EngineError.h"
#include "store/Table.h"
#include "ui/Application.h"
#include "ui/Layout.h"
#include "ui/WaitCursor.h"

namespace corvane::receivables {

namespace {

std::string CountText(std::size_t n, const char* what) {
    return std::to_string(n) + " invoice(s) to be " + what;
}

} // namespace

TfrmARInvoicesPrint::TfrmARInvoicesPrint(ui::Application& app, store::Database& db,
                                         std::optional<std::int64_t> arInvoiceId)
    : Form(app, "frmARInvoicesPrint"), db_(db), id_(arInvoiceId) {
    using namespace ui;
    Caption = "Print AR Invoices";
    if (id_) {
        auto invoice = InvoiceToPrintOf(db_, *id_);
        if (!invoice) throw Exception("Invoice has been deleted by another user.");
        invoices_.push_back(*invoice);
        reprint_ = invoice->Printed;
        Caption = (reprint_ ? "Reprint AR Invoice " : "Print AR Invoice ") + invoice->InvoiceNo;
    } else {
        invoices_ = UnprintedInvoices(db_);
    }
    lblCount.Caption = CountText(invoices_.size(), "printed");
    SetLayout(Column{lblCount, ButtonRow{btnPrint, btnCancel}});
    // Wide enough for the caption, which the two buttons alone would cut.
    ClientWidth = 340;
    btnPrint.Default = true;
    btnCancel.Cancel = true;
    btnPrint.Enabled = !invoices_.empty();
    btnPrint.OnClick = [this] { Print(); };
    btnCancel.OnClick = [this] { SetModalResult(ui::mrCancel); };
    OnClose = [](ui::CloseAction& action) { action = ui::CloseAction::Free; };
}

void TfrmARInvoicesPrint::Print() {
    if (invoices_.empty()) return;
    if (ui::Form* entry = App().FindForm("frmARInvoice"); entry && entry->Visible())
        throw Exception("A conflicting program is running...\nPlease close 'AR Invoice' form");
    reports::RequirePrinter(App());
    reports::PrintRequest request;
    request.copies = CompanyInvoiceCopies(db_);
    reports::ReportOutput& output = reports::ReportOutput::Current();
    if (!output.PrintDialog(request)) return;

    // Nobody changes an invoice while it prints: the table against writes, each invoice checked.
    store::Table table(db_, "ARInv");
    table.Open();
    try {
        table.LockTable();
    } catch (const store::EngineError&) {
        throw Exception(
            "Unable to lock Invoices table... this table is being updated by another job.");
    }
    struct Unlock {
        store::Table& table;
        ~Unlock() {
            if (table.TableLocked()) table.UnlockTable();
        }
    } unlock{table};
    for (const InvoiceToPrint& invoice : invoices_) {
        if (!table.Locate("ARInvoiceID", {store::Value(invoice.ARInvoiceID)}))
            throw Exception("Invoice " + invoice.InvoiceNo + " has been deleted by another user.");
        try {
            table.Edit();
            table.Cancel();
        } catch (const store::EngineError&) {
            throw Exception(
                "Unable to lock Invoice... this invoice is being updated by another job.");
        }
    }

    ui::WaitCursor wait(App());
    TrptARInvoice report(db_, id_);
    reports::ReportDocument document;
    report.Produce(document);
    if (document.PageCount() == 0) return;
    reports::PrintJob job;
    job.printerIndex = request.printerIndex;
    job.firstPage = 1;
    job.lastPage = document.PageCount();
    job.title = document.title;
    // Each copy whole, one after the other, as a person sorts them.
    for (int copy = 0; copy < std::max(request.copies, 1); ++copy)
        output.PrintPages(document, job);

    if (reprint_) {
        SetModalResult(ui::mrOK);
        return;
    }
    lblCount.Caption = CountText(invoices_.size(), "updated");
    if (App().MessageDlg("Did invoice(s) print OK?", ui::MsgType::Confirmation,
                         {ui::mbYes, ui::mbNo}) != ui::mbYes)
        return;
    table.UnlockTable();
    for (const std::string& failure : MarkInvoicesPrinted(db_, invoices_))
        App().MessageDlg(failure, ui::MsgType::Warning, {ui::mbOK});
    SetModalResult(ui::mrOK);
}

} // namespace corvane::receivables
