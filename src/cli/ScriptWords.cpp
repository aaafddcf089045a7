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

int ParsePrintCount(std::string_view text) {
    int value = 0;
    auto [end, ec] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (ec != std::errc() || end != text.data() + text.size() || value < 1) return 0;
    return value;
}

std::optional<std::vector<int>> ParsePageList(std::string_view text) {
    std::vector<int> pages;
    if (text.empty()) return pages;
    std::size_t pos = 0;
    while (true) {
        const std::size_t comma = text.find(',', pos);
        const int page = ParsePrintCount(text.substr(pos, comma - pos));
        if (page == 0) return std::nullopt;
        pages.push_back(page);
        if (comma == std::string_view::npos) return pages;
        pos = comma + 1;
    }
}

std::string PageListText(const std::vector<int>& pages) {
    std::string text;
    for (int page : pages)
        text += (text.empty() ? "" : ",") + std::to_string(page);
    return text;
}

} // namespace corvane::cli
