#include "timebilling/domain/Billing.h"

namespace corvane::timebilling {

namespace {

// The customer's tax applies unless an exemption number is entered for it.
std::optional<std::int64_t> ApplicableTax(const std::optional<std::int64_t>& id,
                                          const std::string& exemptionNo) {
    if (!exemptionNo.empty()) return std::nullopt;
    return id;
}

InvoiceTax LookUpTax(const TaxRates& taxes, const std::optional<std::int64_t>& id) {
    if (!id) return {};
    auto found = taxes.find(*id);
    return found == taxes.end() ? InvoiceTax{} : found->second;
}

BilledInvoice StartInvoice(const BillingRow& row, const TaxRates& taxes) {
    BilledInvoice invoice;
    invoice.Customer = row;
    invoice.Tax1ID = ApplicableTax(row.Tax1ID, row.Tax1ExemptionNo);
    invoice.Tax2ID = ApplicableTax(row.Tax2ID, row.Tax2ExemptionNo);
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
    invoice.Buckets.AddLine(line.TaxCodes, line.Extended);
    // Each tax is rounded once on its bucket's total, never line by line.
    const Money oldTaxes = invoice.Tax1Amount + invoice.Tax2Amount;
    invoice.Tax1Amount = invoice.Buckets.TaxAmount(invoice.Tax1.Code, invoice.Tax1.Rate);
    invoice.Tax2Amount = invoice.Buckets.TaxAmount(invoice.Tax2.Code, invoice.Tax2.Rate);
    invoice.InvoiceAmount += line.Extended - oldTaxes + invoice.Tax1Amount + invoice.Tax2Amount;
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
