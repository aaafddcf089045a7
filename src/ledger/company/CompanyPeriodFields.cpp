#include "ledger/company/CompanyPeriodFields.h"

#include "core/Exception.h"
#include "ledger/periods/YearEntry.h"
#include "store/Table.h"

#include <array>

namespace corvane::ledger {

namespace {
constexpr std::array kFields{
    CompanyPeriodField{"DefaultPeriod", "Default Period"},
    CompanyPeriodField{"WPeriodFrom", "Warn Before Period"},
    CompanyPeriodField{"WPeriodTo", "Warn After Period"},
    CompanyPeriodField{"EPeriodFrom", "Error Before Period"},
    CompanyPeriodField{"EPeriodTo", "Error After Period"},
};
} // namespace

std::span<const CompanyPeriodField> CompanyPeriodFields() {
    return kFields;
}

void PrepareCompanyPeriodFields(store::Table& company) {
    store::Field& fiscalYear = company.FieldByName("FiscalYear");
    fiscalYear.DisplayLabel = "Fiscal Year";
    EnterYearAsTwoDigits(fiscalYear, BadYearMessage("Current Fiscal Year"));
    for (const CompanyPeriodField& period : kFields) {
        std::string prefix(period.Prefix);
        std::string label(period.Label);
        store::Field& year = company.FieldByName(prefix + "YYYY");
        year.DisplayLabel = label;
        EnterYearAsTwoDigits(year, BadYearMessage(label));
        store::Field& number = company.FieldByName(prefix + "PP");
        number.DisplayLabel = label;
        LimitPeriodNumber(number, label);
    }
}

} // namespace corvane::ledger
