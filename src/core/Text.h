#pragma once

#include <string_view>

namespace corvane {

// The text without the blanks and tabs around it.
std::string_view TrimBlanks(std::string_view text);

} // namespace corvane
