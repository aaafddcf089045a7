#pragma once

#include "banking/reports/MasterListReport.h"

namespace corvane::inventory {

// The items as their list shows them: number, description, price, tax codes and costs.
class TrptItems : public banking::MasterListReport {
public:
    explicit TrptItems(store::Database& db);
};

// The item types, the subtypes and the warehouses by name.
class TrptItemTypes : public banking::MasterListReport {
public:
    explicit TrptItemTypes(store::Database& db);
};
class TrptItemSubtypes : public banking::MasterListReport {
public:
    explicit TrptItemSubtypes(store::Database& db);
};
class TrptWarehouses : public banking::MasterListReport {
public:
    explicit TrptWarehouses(store::Database& db);
};

} // namespace corvane::inventory
