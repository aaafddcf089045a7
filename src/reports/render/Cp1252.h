#pragma once

#include <string>
#include <string_view>

namespace corvane::reports {

// Report texts are UTF-8; the standard PDF fonts and the width tables speak Windows-1252, which
// holds every character of the languages the program is used in. What it lacks is drawn, and
// measured, as a question mark, so a line never measures other than it prints.

// The code point that starts at `at`, moving `at` past it. A malformed byte, an overlong form or
// a surrogate gives U+FFFD and moves one byte, so no text can stop the walk.
char32_t NextCodePoint(std::string_view text, std::size_t& at);

// The Windows-1252 byte for a code point; '?' for control characters and everything outside.
unsigned char Cp1252Byte(char32_t codePoint);

std::string Utf8ToCp1252(std::string_view text);

} // namespace corvane::reports
