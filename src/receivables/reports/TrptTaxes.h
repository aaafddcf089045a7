#pragma once

#include "banking/reports/MasterListReport.h"

namespace corvane::receivables {

// The sales taxes by name: code, rate, description and the account each is credited to.
class TrptTaxes : public banking::MasterListReport {
public:
    explicit TrptTaxes(store::Database& db);
};

} // namespace corvane::receivables
