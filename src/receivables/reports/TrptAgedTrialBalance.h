#pragma once

#include "receivables/reports/ARReportOptions.h"
#include "reports/run/TrptBase.h"
#include "store/Query.h"
#include "store/Table.h"

#include <map>
#include <memory>

namespace corvane::store {
class Database;
}

namespace corvane::receivables {

// "Aged Receivables": each customer's open invoices as of a date in four columns of age, with the
// customer's sums in its own currency and, where the currency has a rate, in domestic money; the
// report's totals are domestic. The report walks the customers by name and reads each one's
// invoices as it comes to them, so the first page is out long before the last customer is read.
class TrptAgedTrialBalance : public reports::TrptBase {
public:
    TrptAgedTrialBalance(store::Database& db, ARReportOptions options);

    store::Table tblCustomer;
    // The open invoices of the customer being printed.
    store::Query qryAging;

    void Open() override;
    // Whether some customer printed the domestic line, which names the report's totals.
    bool AnyDomestic() const { return anyDomestic_; }

protected:
    TrptAgedTrialBalance(store::Database& db, ARReportOptions options, bool summary);

private:
    void Build(store::Database& db, bool summary);
    bool Prints(store::DataSet& customer);
    void ReadInvoices(store::Query& query, std::int64_t customerId);
    double RateOf(store::DataSet& customer) const;

    store::Database& db_;
    ARReportOptions options_;
    std::unique_ptr<CustomerOpenSums> sums_;
    std::map<std::int64_t, double> rates_;
    bool anyDomestic_ = false;
    bool owes_ = false; // the customer being printed had open invoices on the date
};

// "Aged Receivables Summary": the customers' lines of the aged receivables, without invoices.
class TrptAgedReceivablesSummary : public TrptAgedTrialBalance {
public:
    TrptAgedReceivablesSummary(store::Database& db, ARReportOptions options);
};

} // namespace corvane::receivables
