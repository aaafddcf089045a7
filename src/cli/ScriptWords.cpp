#include "cli/ScriptWords.h"

#include <algorithm>
#include <cctype>
#include <charconv>
#include <string>

namespace corvane::cli {

bool SameWord(std::string_view a, std::string_view b) {
    return a.size() == b.size() && std::equal(a.begin(), a.end(), b.begin(), [](char x, char y) {
               return std::tolower(static_cast<unsigned char>(x)) ==
                      std::tolower(static_cast<unsigned char>(y));
           });
}

std::optional<ui::MsgButton> ParseButtonName(std::string_view name) {
    for (ui::MsgButton b : {ui::mbYes, ui::mbNo, ui::mbOK, ui::mbCancel, ui::mbAbort, ui::mbRetry,
                            ui::mbIgnore, ui::mbAll})
        if (SameWord(ui::ButtonCaption(b), name)) return b;
    return std::nullopt;
}

std::optional<std::int64_t> ParseRowIndex(std::string_view text) {
    std::int64_t value = 0;
    auto [end, ec] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (ec != std::errc() || end != text.data() + text.size() || value < 0) return std::nullopt;
    return value;
}

} // namespace corvane::cli
