#include "ledger/periods/YearEntry.h"

#include "core/Exception.h"
#include "ledger/periods/PeriodCheck.h"
#include "store/Field.h"

namespace corvane::ledger {

std::string BadYearMessage(std::string_view label) {
    return std::string(label) + " invalid...\nEnter year as 2 digits.\nExample: for 2017 enter 17";
}

void EnterYearAsTwoDigits(store::Field& field, std::string message) {
    field.OnSetText = [message = std::move(message)](store::Field& f, std::string_view text) {
        int year = TwoDigitYear(text, message);
        if (text.empty())
            f.Clear();
        else
            f.SetAsInteger(year);
    };
    field.OnGetText = [](const store::Field& f, bool displayText) {
        if (f.IsNull()) return std::string();
        std::string year = f.AsString();
        // The user edits what he types: the two digits that stand for the year.
        if (!displayText && year.size() >= 4) return year.substr(2, 2);
        return year;
    };
}

void LimitPeriodNumber(store::Field& field, std::string label) {
    field.OnValidate = [label = std::move(label)](store::Field& f) {
        if (!f.IsNull() && (f.AsInteger() < 1 || f.AsInteger() > 12))
            throw Exception(std::to_string(f.AsInteger()) + " is not a valid value for field '" +
                            label + "'. The allowed range is 1 to 12");
    };
}

} // namespace corvane::ledger
