#pragma once

#include <string>
#include <string_view>

namespace corvane::ui {

// A caption without its accelerator marks: "&File" reads "File", "R&&D" reads "R&D".
std::string PlainCaption(std::string_view caption);
// The accelerator letter of a caption, upper case ('F' for "&File"); 0 when it has none.
char AcceleratorOf(std::string_view caption);

} // namespace corvane::ui
