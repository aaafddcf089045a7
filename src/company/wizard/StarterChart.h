#pragma once

#include <span>

namespace corvane::company {

// One account of the chart a new company starts with. A null name stands for the bank's name.
struct StarterAccount {
    int Id;
    const char* Number;
    const char* Name;
    int Type;
    bool RetainedEarnings;
};

// The starter chart in the order its rows are made.
std::span<const StarterAccount> StarterChart();

// The accounts the first rows refer to, by id.
namespace starter_account {
inline constexpr int Bank = 1;
inline constexpr int Receivables = 2;
inline constexpr int Payables = 3;
inline constexpr int Sales = 4;
inline constexpr int CashDiscounts = 5;
inline constexpr int PurchaseDiscounts = 6;
inline constexpr int Inventory = 8;
inline constexpr int SalesTaxPayable = 12;
inline constexpr int CostOfGoodsSold = 16;
inline constexpr int Freight = 44;
} // namespace starter_account

} // namespace corvane::company
