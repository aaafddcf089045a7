#pragma once

#include <string>

namespace corvane::company {

// What a new company's owner tells the wizard: the least the system needs before entry.
struct StarterAnswers {
    std::string CompanyName;
    int FiscalYear = 0;
    // Up to three lines, separated by "\n": the company's three address lines.
    std::string Address;
    std::string CurrencyName;
    // Also the name of the bank's ledger account.
    std::string BankName;
    // Empty for a company that collects no sales tax: no tax row is made then.
    std::string TaxName;
    // In per cent.
    double TaxRate = 0;
};

} // namespace corvane::company
