#pragma once

#include "core/Money.h"
#include "receivables/taxes/DocumentTaxes.h"

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace corvane::timebilling {

// One row of the billing selection: the unbilled hours of one task of one customer up to the
// cut-off, with what the invoice needs of the customer, the job, the task and its type.
struct BillingRow {
    std::int64_t CustomerID = 0;
    std::int64_t JobID = 0;
    std::int64_t TaskID = 0;
    std::string CustomerName, CustomerNo;
    std::optional<double> DiscPC;
    std::optional<std::int64_t> DiscDays, NetDays;
    bool COD = false, Prepayment = false;
    std::string TermsText;
    std::optional<std::int64_t> Tax1ID, Tax2ID;
    std::string Tax1ExemptionNo, Tax2ExemptionNo;
    std::optional<std::int64_t> CurrencyID;
    std::string JobName;
    std::int64_t LineNo = 0;
    std::optional<Money> RateOverride; // any value, 0 included, replaces the type's rate
    Money Rate;
    std::string TaxCodes;
    double TotalHours = 0;
};

// A tax as an invoice copies it: its code and its rate in per cent.
struct InvoiceTax {
    std::string Code;
    double Rate = 0;
};
using TaxRates = std::map<std::int64_t, InvoiceTax>;

// The invoice line of one task.
struct BilledLine {
    int Seq = 0;
    std::int64_t JobID = 0, TaskID = 0;
    Money UnitPrice;
    std::string TaxCodes;
    double Quantity = 0;
    Money Extended; // RoundHalfAway(Quantity x UnitPrice x 100) / 100
};

// The invoice of one customer, as the run will write it.
struct BilledInvoice {
    BillingRow Customer; // the customer's fields, from its first row
    std::optional<std::int64_t> Tax1ID, Tax2ID;
    InvoiceTax Tax1, Tax2;
    receivables::TaxBuckets Buckets;
    receivables::TaxAmounts Taxes;
    Money InvoiceAmount;
    std::vector<BilledLine> Lines;
    // An invoice that comes to nothing is not made, and its time stays unbilled.
    bool Vanishes() const { return InvoiceAmount.IsZero(); }
};

// Turns the selection, in its order (customers, then jobs, then tasks), into one invoice per
// customer and one line per task. Every invoice is returned, those that vanish too: each still
// draws its number, as the run always has. Raises "Too many taxes..." for a fourth code.
std::vector<BilledInvoice> BillTime(const std::vector<BillingRow>& rows, const TaxRates& taxes);

} // namespace corvane::timebilling
