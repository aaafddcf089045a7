#include "receivables/invoices/print/InvoiceCommands.h"

#include "core/Exception.h"
#include "receivables/invoices/print/InvoiceFile.h"
#include "receivables/invoices/print/TrptARInvoice.h"
#include "reports/preview/ReportOutput.h"
#include "reports/run/PreviewReport.h"
#include "store/Query.h"
#include "ui/Application.h"
#include "ui/DesktopServices.h"
#include "ui/WaitCursor.h"

#include <filesystem>

namespace corvane::receivables {

namespace {

struct MailFacts {
    std::string InvoiceNo, EMail, Contact, Sender;
};

MailFacts FactsOf(store::Database& db, std::int64_t arInvoiceId) {
    store::Query q(db, "SELECT I.InvoiceNo, C.EMail, C.Contact FROM ARInv I "
                       "INNER JOIN Customer C ON I.CustomerID = C.CustomerID "
                       "WHERE I.ARInvoiceID = :ARInvoiceID");
    q.ParamByName("ARInvoiceID").SetAsInteger(arInvoiceId);
    q.Open();
    if (q.IsEmpty()) throw Exception("Invoice has been deleted by another user.");
    MailFacts facts{q.FieldByName("InvoiceNo").AsString(),
                    q.FieldByName("EMail").AsString(),
                    q.FieldByName("Contact").AsString(),
                    {}};
    store::Query company(db, "SELECT EmailFromName, CompanyName FROM Company");
    company.Open();
    if (!company.IsEmpty()) {
        facts.Sender = company.FieldByName("EmailFromName").AsString();
        if (facts.Sender.empty()) facts.Sender = company.FieldByName("CompanyName").AsString();
    }
    return facts;
}

} // namespace

void ExportSelectedInvoice(ui::Application& app, store::Database& db, std::int64_t arInvoiceId) {
    auto path = reports::ReportOutput::Current().SaveFileName(
        "Export Selected Invoice", "ARInvoice.xlsx",
        "Excel files (*.xlsx)|*.xlsx|Text files (*.txt)|*.txt");
    if (!path) return;
    ui::WaitCursor wait(app);
    WriteInvoiceFile(db, arInvoiceId, *path);
}

void EmailSelectedInvoice(ui::Application& app, store::Database& db, std::int64_t arInvoiceId) {
    const MailFacts facts = FactsOf(db, arInvoiceId);
    if (facts.EMail.empty()) throw Exception("Customer's Email Address has not been entered");
    auto path = reports::ReportOutput::Current().SaveFileName("Create invoice PDF for email",
                                                              "Invoice " + facts.InvoiceNo + ".pdf",
                                                              "PDF files (*.pdf)|*.pdf");
    if (!path) return;
    {
        ui::WaitCursor wait(app);
        TrptARInvoice report(db, arInvoiceId);
        reports::ReportToFile(report, reports::ReportFileKind::Pdf, *path);
    }
    const std::string subject = "Invoice " + facts.InvoiceNo;
    if (app.MessageDlg("Send email?\n\nSubject: " + subject + "\nTo: " + facts.EMail,
                       ui::MsgType::Confirmation, {ui::mbYes, ui::mbNo}) == ui::mbYes) {
        const std::string body =
            "Hi " + facts.Contact + ",\n\nPlease see attachment.\n\nThank you,\n" + facts.Sender;
        try {
            app.Desktop().MailFile(facts.EMail, subject, body, *path);
        } catch (const Exception& e) {
            app.MessageDlg(std::string("Email could not be sent...\n\n") + e.what() +
                               "\nCheck email settings (Host, UserID, Password) in Your Company.",
                           ui::MsgType::Error, {ui::mbOK});
        }
    }
    if (app.MessageDlg("Delete PDF file?", ui::MsgType::Confirmation, {ui::mbYes, ui::mbNo}) ==
        ui::mbYes) {
        std::error_code ignored;
        std::filesystem::remove(*path, ignored);
    }
}

} // namespace corvane::receivables
