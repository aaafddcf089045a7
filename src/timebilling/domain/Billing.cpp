#include "timebilling/domain/Billing.h"

#include "core/Exception.h"
#include "receivables/taxes/TaxLookUp.h"

namespace corvane::timebilling {

namespace {

InvoiceTax LookUpTax(const TaxRates& taxes, const std::optional<std::int64_t>& id) {
    if (!id) return {};
    auto found = taxes.find(*id);
    return found == taxes.end() ? InvoiceTax{} : found->second;
}

BilledInvoice StartInvoice(const BillingRow& row, const TaxRates& taxes) {
    BilledInvoice invoice;
    invoice.Customer = row;
    const receivables::CustomerTaxIds ids = receivables::ApplicableTaxIds(
        row.Tax1ID, row.Tax1ExemptionNo, row.Tax2ID, row.Tax2ExemptionNo);
    invoice.Tax1ID = ids.Tax1ID;
    invoice.Tax2ID = ids.Tax2ID;
    invoice.Tax1 = LookUpTax(taxes, invoice.Tax1ID);
    invoice.Tax2 = LookUpTax(taxes, invoice.Tax2ID);
    return invoice;
}

void AddLine(BilledInvoice& invoice, const BillingRow& row) {
    BilledLine line;
    line.Seq = static_cast<int>(invoice.Lines.size()) + 1;
    line.JobID = row.JobID;
    line.TaskID = row.TaskID;
    line.UnitPrice = row.RateOverride ? *row.RateOverride : row.Rate;
    line.TaxCodes = row.TaxCodes;
    line.Quantity = row.TotalHours;
    line.Extended = line.UnitPrice.TimesRounded(line.Quantity);
    // The invoice keeps its taxes as every document does: each rounded once on its bucket.
    receivables::DocumentTaxSet taxes;
    taxes.Tax1 = {invoice.Tax1ID, invoice.Tax1.Code, invoice.Tax1.Rate, {}, 0};
    taxes.Tax2 = {invoice.Tax2ID, invoice.Tax2.Code, invoice.Tax2.Rate, {}, 0};
    const receivables::TaxUpdate update =
        receivables::UpdateDocumentTaxes(invoice.Buckets, taxes, invoice.InvoiceAmount,
                                         invoice.Taxes, {}, {line.Extended, line.TaxCodes});
    if (!update.Verdict.Ok()) throw Exception(std::string(receivables::TooManyTaxesMessage));
    invoice.Taxes = update.Taxes;
    invoice.InvoiceAmount = update.DocumentAmount;
    invoice.Lines.push_back(std::move(line));
}

} // namespace

std::vector<BilledInvoice> BillTime(const std::vector<BillingRow>& rows, const TaxRates& taxes) {
    std::vector<BilledInvoice> invoices;
    for (const BillingRow& row : rows) {
        if (invoices.empty() || invoices.back().Customer.CustomerID != row.CustomerID)
            invoices.push_back(StartInvoice(row, taxes));
        AddLine(invoices.back(), row);
    }
    return invoices;
}

} // namespace corvane::timebilling
