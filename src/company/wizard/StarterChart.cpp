#include "company/wizard/StarterChart.h"

#include <array>

namespace corvane::company {

namespace {

constexpr int kAsset = 1, kLiability = 2, kRevenue = 3, kExpense = 4, kEquity = 5;

// Freight came to the chart after the rest and took the next free id, but it stands among the
// expenses of its number so that the rows read in account order.
constexpr std::array<StarterAccount, 44> kChart{{
    {1, "1006", nullptr, kAsset, false},
    {2, "1112", "Accounts Receivable", kAsset, false},
    {3, "2032", "Accounts Payable", kLiability, false},
    {4, "4000", "Sales", kRevenue, false},
    {5, "4999", "Cash Discounts", kRevenue, false},
    {6, "9030", "Purchase Discounts", kExpense, false},
    {7, "1113", "Exchange on Foreign Receivables", kAsset, false},
    {8, "1200", "Inventory", kAsset, false},
    {9, "1721", "Equipment", kAsset, false},
    {10, "1821", "Accumulated Depreciation Equipment", kAsset, false},
    {11, "2034", "Exchange on Foreign Payables", kLiability, false},
    {12, "2040", "Sales Tax Payable", kLiability, false},
    {13, "2050", "Accrued Income Tax Payable", kLiability, false},
    {14, "3110", "Retained Earnings", kEquity, true},
    {15, "3111", "Salary", kExpense, false},
    {16, "5000", "Cost of Goods Sold", kExpense, false},
    {17, "5110", "Auto Supplies", kExpense, false},
    {18, "5111", "Office Supplies", kExpense, false},
    {19, "5112", "Courier", kExpense, false},
    {20, "5113", "Telephone", kExpense, false},
    {21, "5114", "Postage", kExpense, false},
    {22, "5115", "Banking Charges", kExpense, false},
    {23, "5116", "Meals and Entertainment", kExpense, false},
    {24, "5117", "Travelling", kExpense, false},
    {25, "5118", "Professional Fees", kExpense, false},
    {26, "5119", "Business Taxes and Licenses", kExpense, false},
    {27, "5120", "Charitable Donations", kExpense, false},
    {28, "5121", "Courses and Training", kExpense, false},
    {29, "5122", "Dues and Memberships", kExpense, false},
    {30, "5123", "Magazines and Books", kExpense, false},
    {31, "5124", "Promo and Gifts", kExpense, false},
    {44, "5128", "Freight", kExpense, false},
    {32, "6000", "Rent on Building", kExpense, false},
    {33, "6001", "Business Use of Home", kExpense, false},
    {34, "6002", "Electricity", kExpense, false},
    {35, "6003", "Insurance", kExpense, false},
    {36, "6004", "Water", kExpense, false},
    {37, "6005", "Property Taxes", kExpense, false},
    {38, "7121", "Depreciation Equipment", kExpense, false},
    {39, "7130", "Gain/Loss Disposal of Assets", kExpense, false},
    {40, "7820", "Misc Income and Expense", kExpense, false},
    {41, "9020", "Gain/Loss Foreign Exchange", kExpense, false},
    {42, "9025", "Bad Debts", kExpense, false},
    {43, "9075", "Income Tax", kExpense, false},
}};

} // namespace

std::span<const StarterAccount> StarterChart() {
    return kChart;
}

} // namespace corvane::company
