#pragma once

#include "core/Date.h"
#include "store/TableHold.h"
#include "timebilling/domain/Billing.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace corvane::store {
class Database;
}

namespace corvane::timebilling {

// What AutoCreate is asked: bill unbilled time up to the cut-off, on invoices of this date and
// period, optionally of one customer and one job only.
struct AutoCreateRequest {
    Date CutOff;
    Date InvoiceDate;
    int GLYear = 0;
    int GLPeriod = 0;
    std::optional<std::int64_t> CustomerID;
    std::optional<std::int64_t> JobID;
};

// The unbilled hours of each task up to the cut-off, customers by name and number, jobs by name,
// tasks by their place on the job. Time on a task without a type is left out.
std::vector<BillingRow> SelectUnbilledTime(store::Database& db, const AutoCreateRequest& request);

// Every tax's code and rate, as an invoice copies them.
TaxRates ReadTaxRates(store::Database& db);

using store::RetryQuestion;

struct AutoCreateResult {
    bool NoTime = false; // nothing to bill: the form closes as cancelled
    int InvoicesMade = 0;
};

// Makes the invoices of unbilled time and stamps the time with their numbers, all in one
// transaction: a failure anywhere leaves no invoice made and no time stamped. ARInvCtl is held
// exclusively and TimeSht locked for the whole run.
class AutoCreateRun {
public:
    explicit AutoCreateRun(store::Database& db) : db_(db) {}

    // After each invoice is written, with how many so far; a test fails the run through it.
    std::function<void(int invoicesWritten)> OnInvoiceWritten;

    AutoCreateResult Run(const AutoCreateRequest& request, const RetryQuestion& askRetry);

private:
    store::Database& db_;
};

} // namespace corvane::timebilling
