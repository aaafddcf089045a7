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

void RefusePeriodNumber(long long value, std::string_view label) {
    throw Exception(std::to_string(value) + " is not a valid value for field '" +
                    std::string(label) + "'. The allowed range is 1 to 12");
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
        number.OnValidate = [label](store::Field& f) {
            if (!f.IsNull() && (f.AsInteger() < 1 || f.AsInteger() > 12))
                RefusePeriodNumber(f.AsInteger(), label);
        };
    }
}

} // namespace corvane::ledger
