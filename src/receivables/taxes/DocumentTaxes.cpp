#include "receivables/taxes/DocumentTaxes.h"

#include "core/DisplayFormat.h"

namespace corvane::receivables {

namespace {

constexpr std::string_view kAmountFormat = "#,###,##0.00#;(#,###,##0.00#)";

std::string TaxPart(const DocumentTax& tax, Money amount) {
    return *tax.Description + ": " + FormatMoney(kAmountFormat, amount) + "     ";
}

} // namespace

TaxAmounts ComputeTaxAmounts(const TaxBuckets& buckets, const DocumentTaxSet& taxes) {
    return {TaxAmount(buckets, taxes.Tax1.Code, taxes.Tax1.Rate),
            TaxAmount(buckets, taxes.Tax2.Code, taxes.Tax2.Rate)};
}

std::string TaxLineText(const DocumentTaxSet& taxes, const TaxAmounts& amounts) {
    if (!taxes.Tax1.Description && !taxes.Tax2.Description) return "Tax exempt customer";
    std::string text;
    if (taxes.Tax1.Description) text += TaxPart(taxes.Tax1, amounts.Tax1);
    if (taxes.Tax2.Description) text += TaxPart(taxes.Tax2, amounts.Tax2);
    return text;
}

TaxUpdate UpdateDocumentTaxes(TaxBuckets& buckets, const DocumentTaxSet& taxes,
                              Money documentAmount, const TaxAmounts& oldTaxes,
                              const TaxedLine& before, const TaxedLine& after) {
    TaxUpdate update;
    update.Verdict = ApplyLineChange(buckets, before, after);
    if (!update.Verdict.Ok()) {
        update.Taxes = oldTaxes;
        update.DocumentAmount = documentAmount;
        update.TaxLine = TaxLineText(taxes, oldTaxes);
        return update;
    }
    update.Taxes = ComputeTaxAmounts(buckets, taxes);
    update.DocumentAmount =
        documentAmount - before.Amount + after.Amount - oldTaxes.Total() + update.Taxes.Total();
    update.TaxLine = TaxLineText(taxes, update.Taxes);
    return update;
}

DocumentTotals ComputeDocumentTaxes(std::span<const TaxedLine> lines, const DocumentTaxSet& taxes) {
    DocumentTotals totals;
    TaxAmounts taxesSoFar;
    Money amount;
    for (const TaxedLine& line : lines) {
        const TaxUpdate update =
            UpdateDocumentTaxes(totals.Buckets, taxes, amount, taxesSoFar, TaxedLine{}, line);
        if (!update.Verdict.Ok()) {
            totals.Verdict = update.Verdict;
            break;
        }
        totals.LinesTotal += line.Amount;
        taxesSoFar = update.Taxes;
        amount = update.DocumentAmount;
    }
    totals.Taxes = taxesSoFar;
    totals.DocumentAmount = amount;
    totals.TaxLine = TaxLineText(taxes, taxesSoFar);
    return totals;
}

} // namespace corvane::receivables
