#pragma once

#include "receivables/reports/ARReportOptions.h"
#include "reports/run/TrptBase.h"
#include "store/Query.h"

namespace corvane::store {
class Database;
}

namespace corvane::receivables {

// "Aged Receivables": each customer's open invoices as of a date in four columns of age, with the
// customer's sums in its own currency and, where the currency has a rate, in domestic money; the
// report's totals are domestic.
class TrptAgedTrialBalance : public reports::TrptBase {
public:
    TrptAgedTrialBalance(store::Database& db, ARReportOptions options);

    store::Query qryAging;

    void Open() override;
    // Whether some customer printed the domestic line, which names the report's totals.
    bool AnyDomestic() const { return anyDomestic_; }

protected:
    TrptAgedTrialBalance(store::Database& db, ARReportOptions options, bool summary);

private:
    void Build(store::Database& db, bool summary);

    store::Database& db_;
    ARReportOptions options_;
    bool anyDomestic_ = false;
};

// "Aged Receivables Summary": the customers' lines of the aged receivables, without invoices.
class TrptAgedReceivablesSummary : public TrptAgedTrialBalance {
public:
    TrptAgedReceivablesSummary(store::Database& db, ARReportOptions options);
};

} // namespace corvane::receivables
