#pragma once

#include "reports/page/Page.h"

#include <string_view>

namespace corvane::reports {

// "Page n of N" is laid out before N is known: the engine writes this token where the total
// goes, and every renderer draws the text through ResolvePageTotal once the count is final.
inline constexpr std::string_view kPageTotalToken = "\x1f#pages\x1f";

// The op with the token replaced by `pageCount` and, for centred and right-aligned text, `x`
// moved so the longer or shorter text keeps its alignment in its box.
TextOp ResolvePageTotal(const TextOp& op, int pageCount);

} // namespace corvane::reports
