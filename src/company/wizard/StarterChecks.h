#pragma once

#include "company/wizard/StarterAnswers.h"

#include <optional>
#include <string>

namespace corvane::company {

// The answer a check refuses, and what the user is told.
enum class StarterField { CompanyName, FiscalYear, CurrencyName, BankName, TaxName, TaxRate };

struct StarterRefusal {
    StarterField Field;
    std::string Message;
};

inline constexpr int kFirstFiscalYear = 1990;
inline constexpr int kLastFiscalYear = 2050;

// The checks of the wizard's pages, each run as its Next is pressed; nothing means the page's
// answers may stand.
std::optional<StarterRefusal> CheckCompanyPage(const StarterAnswers& answers);
std::optional<StarterRefusal> CheckCurrencyPage(const StarterAnswers& answers);
std::optional<StarterRefusal> CheckTaxPage(const StarterAnswers& answers);
// All three pages in their order: the first refusal.
std::optional<StarterRefusal> CheckStarterAnswers(const StarterAnswers& answers);

} // namespace corvane::company
