#include "company/wizard/StarterChecks.h"

namespace corvane::company {

std::optional<StarterRefusal> CheckCompanyPage(const StarterAnswers& answers) {
    if (answers.CompanyName.empty())
        return StarterRefusal{StarterField::CompanyName, "Field 'Company Name' must have a value"};
    if (answers.FiscalYear < kFirstFiscalYear || answers.FiscalYear > kLastFiscalYear)
        return StarterRefusal{StarterField::FiscalYear,
                              "Fiscal Year must be between " + std::to_string(kFirstFiscalYear) +
                                  " and " + std::to_string(kLastFiscalYear)};
    return std::nullopt;
}

std::optional<StarterRefusal> CheckCurrencyPage(const StarterAnswers& answers) {
    if (answers.BankName.empty())
        return StarterRefusal{StarterField::BankName, "Field 'Bank Name' must have a value"};
    if (answers.CurrencyName.empty())
        return StarterRefusal{StarterField::CurrencyName,
                              "Field 'Currency Name' must have a value"};
    return std::nullopt;
}

std::optional<StarterRefusal> CheckTaxPage(const StarterAnswers& answers) {
    // A rate of 0 is no rate: a tax that charges nothing is not worth its row.
    if (answers.TaxRate != 0 && answers.TaxName.empty())
        return StarterRefusal{StarterField::TaxName,
                              "Field 'Tax Name' must have a value (if rate entered)"};
    if (!answers.TaxName.empty() && answers.TaxRate == 0)
        return StarterRefusal{StarterField::TaxRate,
                              "Field 'Rate' must have a value (if tax name entered)"};
    return std::nullopt;
}

std::optional<StarterRefusal> CheckStarterAnswers(const StarterAnswers& answers) {
    if (auto refusal = CheckCompanyPage(answers)) return refusal;
    if (auto refusal = CheckCurrencyPage(answers)) return refusal;
    return CheckTaxPage(answers);
}

} // namespace corvane::company
