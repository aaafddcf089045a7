#pragma once

#include "ui/Dialogs.h"

#include <cstdint>
#include <optional>
#include <string_view>

namespace corvane::cli {

// "Yes", "ok", "Cancel": a message box button by its caption, in any case.
std::optional<ui::MsgButton> ParseButtonName(std::string_view name);
// A row number counted from 0; nothing for anything else.
std::optional<std::int64_t> ParseRowIndex(std::string_view text);
// Equal ignoring the case of ASCII letters.
bool SameWord(std::string_view a, std::string_view b);

} // namespace corvane::cli
