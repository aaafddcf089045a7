#pragma once

#include "receivables/reports/ARReportOptions.h"
#include "reports/engine/TQRLabel.h"
#include "reports/run/TrptBase.h"
#include "store/Query.h"

namespace corvane::store {
class Database;
}

namespace corvane::receivables {

// "AR History": the posted invoices and the payments of each customer in date order, narrowed
// by period and year or by dates, currency and customer, with counts and sums at the end.
class TrptARHistory : public reports::TrptBase {
public:
    TrptARHistory(store::Database& db, ARReportOptions options);

    store::Query qryHistory;

    void Open() override;
    // The union in the store's dialect for these options.
    static std::string Statement(const ARReportOptions& options);
    // "Period: 03/2018", "Period: 11/2018" or "Period: All 2018"; empty without a year.
    static std::string PeriodHeading(const ARReportOptions& options);

private:
    struct Counts {
        int Invoices = 0, Payments = 0;
        Money InvoiceSum, PaymentSum, Discount, WriteOff;
    };

    ARReportOptions options_;
    Counts counts_;
    reports::TQRLabel* lblInvoices_ = nullptr;
    reports::TQRLabel* lblPayments_ = nullptr;
    reports::TQRLabel* lblDiscount_ = nullptr;
    reports::TQRLabel* lblWriteOff_ = nullptr;
};

} // namespace corvane::receivables
