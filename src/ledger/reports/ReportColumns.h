#pragma once

#include "reports/engine/TQRBand.h"
#include "reports/engine/TQRLabel.h"

#include <string>

namespace corvane::ledger {

// Amounts as the ledger prints them: debits plain, credits with the letters CR.
inline constexpr const char* kSignedAmountMask = "#,###,##0.00;#,###,##0.00CR";
// A column that holds only one side, always positive.
inline constexpr const char* kPlainAmountMask = "#,###,##0.00";

// A bold column heading; right aligned over a column of amounts.
inline reports::TQRLabel& AddHeading(reports::TQRBand& band, std::string caption, double left,
                                     double width, bool right = false) {
    auto& heading = band.Add<reports::TQRLabel>(std::move(caption));
    heading.SetBounds(left, 0, width, 12);
    heading.Font.bold = true;
    if (right) heading.Alignment = reports::Align::Right;
    return heading;
}

} // namespace corvane::ledger
