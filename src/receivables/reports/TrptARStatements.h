#pragma once

#include "receivables/reports/ARReportOptions.h"
#include "receivables/reports/StatementHeader.h"
#include "reports/engine/TQRLabel.h"
#include "reports/run/TrptBase.h"
#include "store/Query.h"

#include <map>
#include <memory>
#include <set>

namespace corvane::store {
class Database;
}

namespace corvane::receivables {

// "AR Statements - Account History": for each customer a statement of its posted invoices and
// payments up to the as-of date with the running balance, from the balance carried forward at
// the date from.
class TrptARStatements : public reports::TrptBase {
public:
    TrptARStatements(store::Database& db, ARReportOptions options);

    store::Query qryStatement;

    void Open() override;
    static std::string Statement(const ARReportOptions& options);

private:
    void ReadCustomers();
    bool Prints(std::int64_t customer) const;
    void PrintRow(bool& print);

    store::Database& db_;
    ARReportOptions options_;
    std::unique_ptr<StatementHeader> header_;
    std::map<std::int64_t, Money> forward_;
    std::set<std::int64_t> active_;
    std::unique_ptr<CustomerOpenSums> sums_;
    Money balance_;
    reports::TQRLabel* lblBalance_ = nullptr;
    reports::TQRLabel* lblClosing_ = nullptr;
};

} // namespace corvane::receivables
