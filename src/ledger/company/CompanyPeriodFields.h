#pragma once

#include <span>
#include <string_view>

namespace corvane::store {
class Table;
}

namespace corvane::ledger {

// A period of the Company row: the prefix of its two fields (prefix + "YYYY", prefix + "PP") and
// the name the user knows it by, in its messages.
struct CompanyPeriodField {
    std::string_view Prefix;
    std::string_view Label;
};

// The default period and the four bounds, in the order the form shows them.
std::span<const CompanyPeriodField> CompanyPeriodFields();

// Makes the year halves two-digit entries and limits the period halves to 1 to 12, each with
// its own label in the messages; the fiscal year is a two-digit entry as well.
void PrepareCompanyPeriodFields(store::Table& company);

} // namespace corvane::ledger
