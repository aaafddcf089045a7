#include "receivables/invoices/print/InvoicePrintRules.h"

#include "core/DisplayFormat.h"
#include "store/EngineError.h"
#include "store/Query.h"
#include "store/Table.h"

#include <cmath>

namespace corvane::receivables {

std::string PrintedTerms(const InvoiceTerms& t) {
    if (!t.TermsText.empty() || t.COD || t.Prepayment || (t.NetDays && *t.NetDays != 0))
        return "Terms: " + TermsDescription(t);
    InvoiceTerms discountOnly = t;
    discountOnly.NetDays = 0;
    std::string text = TermsDescription(discountOnly);
    // The discount part stands as entry gives it; only the net part reads otherwise.
    text.erase(text.rfind("Net 0"));
    return "Terms: " + text + "Payable on Receipt";
}

std::string TaxDescriptionRate(const std::string& description, const std::string& taxName,
                               double rate) {
    if (taxName.find("Quebec") != std::string::npos) return description;
    return description + " @ " + FormatFloat("0.###", rate) + "%";
}

std::string InvoiceTitle(bool negative) {
    return negative ? "Credit Note" : "Invoice";
}

namespace {

std::vector<InvoiceToPrint> Read(store::Query& q) {
    std::vector<InvoiceToPrint> invoices;
    q.ForEachRow([&](const std::vector<store::Value>& row) {
        invoices.push_back({row[0].Int(), row[1].Str(), !row[2].IsNull() && row[2].Bool()});
    });
    return invoices;
}

} // namespace

std::vector<InvoiceToPrint> UnprintedInvoices(store::Database& db) {
    store::Query q(db, "SELECT ARInvoiceID, InvoiceNo, Printed FROM ARInv "
                       "WHERE (Printed <> true) ORDER BY InvoiceNo");
    return Read(q);
}

std::optional<InvoiceToPrint> InvoiceToPrintOf(store::Database& db, std::int64_t arInvoiceId) {
    store::Query q(db, "SELECT ARInvoiceID, InvoiceNo, Printed FROM ARInv "
                       "WHERE ARInvoiceID = :ARInvoiceID");
    q.ParamByName("ARInvoiceID").SetAsInteger(arInvoiceId);
    auto found = Read(q);
    if (found.empty()) return std::nullopt;
    return found.front();
}

std::vector<std::string> MarkInvoicesPrinted(store::Database& db,
                                             const std::vector<InvoiceToPrint>& invoices) {
    std::vector<std::string> failures;
    store::Table table(db, "ARInv");
    table.Open();
    for (const InvoiceToPrint& invoice : invoices) {
        if (!table.Locate("ARInvoiceID", {store::Value(invoice.ARInvoiceID)})) {
            failures.push_back("Invoice " + invoice.InvoiceNo +
                               " was not updated (to printed) because it has been deleted by "
                               "another user.");
            continue;
        }
        try {
            table.Edit();
            table.FieldByName("Printed").SetAsBoolean(true);
            table.Post();
        } catch (const store::EngineError&) {
            if (table.State() != store::DataSetState::Browse) table.Cancel();
            failures.push_back(
                "Invoice " + invoice.InvoiceNo +
                " was not updated (to printed).\nProbably because it was being updated by "
                "another user.\n\nPlease reprint this invoice if necessary or check the printed "
                "checkbox on the invoice.");
        }
    }
    return failures;
}

} // namespace corvane::receivables
