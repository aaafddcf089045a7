#pragma once

#include "core/Date.h"

#include <array>
#include <cstdint>
#include <string>
#include <vector>

namespace corvane::store {
class Database;
class DataSet;
} // namespace corvane::store

namespace corvane::reports {
class TQuickRep;
class TQRLabel;
} // namespace corvane::reports

namespace corvane::receivables {

// The top of every page of a statement: the company at the left, the title and date at the
// right, the customer's name and address under them, and "Page <n>" from a customer's second page
// on. Each customer starts on a page of its own and counts its pages from 1.
class StatementHeader {
public:
    StatementHeader(store::Database& db, reports::TQuickRep& report, store::DataSet& data,
                    const std::string& title, Date asOf);

private:
    void Fill();

    store::DataSet& data_;
    std::array<reports::TQRLabel*, 6> customer_{};
    reports::TQRLabel* page_ = nullptr;
    std::int64_t lastCustomer_ = -1;
    int customerPage_ = 0;
};

// The company's name and address lines as the Company row holds them, empty lines left out.
std::vector<std::string> CompanyBlock(store::Database& db);

} // namespace corvane::receivables
