#pragma once

#include "reports/page/Page.h"

#include <string_view>

namespace corvane::reports {

// Widths and heights of the three report faces, read through FreeType from the Liberation fonts
// that every renderer draws with (FontFaces.h). Text is UTF-8; a character a face lacks, and a
// control character, measures and draws as a question mark.

double TextWidth(const Font& font, std::string_view text);
double Ascent(const Font& font);  // baseline below the top of the line, points
double Descent(const Font& font); // below the baseline, points (positive)
double LineHeight(const Font& font);

} // namespace corvane::reports
