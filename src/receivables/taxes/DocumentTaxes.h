#pragma once

#include "receivables/taxes/TaxBuckets.h"

#include <cstdint>
#include <optional>
#include <span>
#include <string>

namespace corvane::receivables {

// A tax as a document carries it: code and rate are copies made when the tax was set on the
// document, so a later change to the tax row does not alter it; the description and account
// are looked up whenever they are needed. An unset tax has no id and no description.
struct DocumentTax {
    std::optional<std::int64_t> TaxID;
    std::string Code;
    double Rate = 0;
    std::optional<std::string> Description;
    std::int64_t GLAccountID = 0;
};

// The document's two taxes, Tax1 and Tax2.
struct DocumentTaxSet {
    DocumentTax Tax1;
    DocumentTax Tax2;
};

struct TaxAmounts {
    Money Tax1;
    Money Tax2;
    Money Total() const { return Tax1 + Tax2; }
    bool operator==(const TaxAmounts&) const = default;
};

// Both taxes on the buckets, each rounded once on its bucket's total.
TaxAmounts ComputeTaxAmounts(const TaxBuckets& buckets, const DocumentTaxSet& taxes);

// The document's tax line: "<description>: <amount>" and five blanks for each tax that has a
// description, or "Tax exempt customer" when neither has.
std::string TaxLineText(const DocumentTaxSet& taxes, const TaxAmounts& amounts);

// Where a document stands after one change, kept incrementally as entry forms keep it.
struct TaxUpdate {
    BucketVerdict Verdict;
    TaxAmounts Taxes;     // the taxes now; on a refused code, those before the change
    Money DocumentAmount; // lines plus taxes; unchanged on a refused code
    std::string TaxLine;
};

// The one routine by which every document keeps its taxes and total: the line moves from
// |before| to |after| in the buckets, both taxes are computed anew, and the document's amount
// becomes amount - old line + new line - old taxes + new taxes. A new line comes from {0, ""},
// a deleted one goes to {0, ""}, and a change of customer (new taxes, same buckets) passes two
// empty lines. On a fourth code the buckets keep what was added before it (the line itself is
// already stored), and the amount and taxes stay as they were, for the user to correct it.
TaxUpdate UpdateDocumentTaxes(TaxBuckets& buckets, const DocumentTaxSet& taxes,
                              Money documentAmount, const TaxAmounts& oldTaxes,
                              const TaxedLine& before, const TaxedLine& after);

// A whole document from its lines at once, as posting and batch writers see it: the same
// buckets, taxes and total the entry forms reach line by line.
struct DocumentTotals {
    BucketVerdict Verdict;
    TaxBuckets Buckets;
    Money LinesTotal;
    TaxAmounts Taxes;
    Money DocumentAmount;
    std::string TaxLine;
};
DocumentTotals ComputeDocumentTaxes(std::span<const TaxedLine> lines, const DocumentTaxSet& taxes);

} // namespace corvane::receivables
