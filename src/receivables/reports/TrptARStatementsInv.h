#pragma once

#include "receivables/reports/ARReportOptions.h"
#include "receivables/reports/StatementHeader.h"
#include "reports/run/TrptBase.h"
#include "store/Query.h"

#include <memory>

namespace corvane::store {
class Database;
}

namespace corvane::receivables {

// "AR Statements - Unpaid Invoices": for each customer its invoices still open at the as-of date,
// each with its due date and what is owing, and under it the payments it had received by then.
class TrptARStatementsInv : public reports::TrptBase {
public:
    TrptARStatementsInv(store::Database& db, ARReportOptions options);

    store::Query qryInvoices;
    store::Query qryPayments;

    void Open() override;

private:
    store::Database& db_;
    ARReportOptions options_;
    std::unique_ptr<StatementHeader> header_;
};

// One payment line under an invoice: "<date> paid <amount> discount <amount> write-off <amount>",
// the parts that are 0 left out.
std::string PaymentLineText(Date date, Money paid, Money discount, Money writeOff);

} // namespace corvane::receivables
