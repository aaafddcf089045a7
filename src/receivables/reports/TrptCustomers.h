#pragma once

#include "banking/reports/MasterListReport.h"

namespace corvane::receivables {

// The customers as their list shows them: number, name, address, telephone and contact.
class TrptCustomers : public banking::MasterListReport {
public:
    explicit TrptCustomers(store::Database& db);
};

// The customer types by name.
class TrptCusTypes : public banking::MasterListReport {
public:
    explicit TrptCusTypes(store::Database& db);
};

// The salesmen by name, with title and telephone.
class TrptSalesmen : public banking::MasterListReport {
public:
    explicit TrptSalesmen(store::Database& db);
};

} // namespace corvane::receivables
