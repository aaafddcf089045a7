#pragma once

#include <string>

namespace corvane::store {
class Database;
}

namespace corvane::reports {

class TQuickRep;

// The width every report lays its bands out in: a Letter page inside its margins, in points.
inline constexpr double kPortraitWidth = 540;

// The company's name as its Company row holds it; empty for a company without one.
std::string CompanyNameOf(store::Database& db);

// The title band every report opens with: the company's name over the report's title, both
// centred across width.
void AddStandardTitle(TQuickRep& report, const std::string& companyName,
                      double width = kPortraitWidth);

// The footer of every page: a rule, "Page n of N" at the left and the date and time of the run at
// the right.
void AddStandardPageFooter(TQuickRep& report, double width = kPortraitWidth);

} // namespace corvane::reports
