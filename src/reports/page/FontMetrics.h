#pragma once

#include "reports/page/Page.h"

#include <string_view>

namespace corvane::reports {

// Widths and heights of the three report faces. Sans has the widths of Helvetica (and of the
// metric-compatible Liberation Sans that the screen and PDF viewers draw it with), Serif those of
// Times, Mono those of Courier; so a line measured here fits wherever the page is drawn.
// Text is UTF-8; characters outside the faces' Latin-1 set measure as a question mark.

double TextWidth(const Font& font, std::string_view text);
double Ascent(const Font& font);  // baseline below the top of the line, points
double Descent(const Font& font); // below the baseline, points (positive)
double LineHeight(const Font& font);

} // namespace corvane::reports
