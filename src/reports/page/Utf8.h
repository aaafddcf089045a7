#pragma once

#include <string>
#include <string_view>

namespace corvane::reports {

// The code point that starts at `at`, moving `at` past it. A malformed byte, an overlong form or
// a surrogate gives U+FFFD and moves one byte, so no text can stop the walk.
char32_t NextCodePoint(std::string_view text, std::size_t& at);

// Appends the UTF-8 form of a code point.
void AppendUtf8(std::string& text, char32_t codePoint);

} // namespace corvane::reports
