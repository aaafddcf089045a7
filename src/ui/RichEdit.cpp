#include "ui/RichEdit.h"

#include <algorithm>
#include <cctype>

namespace corvane::ui {

namespace {

std::size_t FindCaseless(const std::string& text, std::string_view wanted, std::size_t from) {
    auto lower = [](unsigned char c) { return std::tolower(c); };
    auto at =
        std::search(text.begin() + static_cast<std::ptrdiff_t>(from), text.end(), wanted.begin(),
                    wanted.end(), [&](char a, char b) { return lower(a) == lower(b); });
    return at == text.end() ? std::string::npos : static_cast<std::size_t>(at - text.begin());
}

} // namespace

bool RichEdit::FindText(std::string_view wanted) {
    if (wanted.empty()) return false;
    if (Finder) return Finder(wanted);
    const std::string text = Text();
    const std::size_t from =
        std::min(text.size(), static_cast<std::size_t>(SelStart() + SelLength()));
    std::size_t at = FindCaseless(text, wanted, from);
    if (at == std::string::npos) at = FindCaseless(text, wanted, 0);
    if (at == std::string::npos) return false;
    Select(static_cast<int>(at), static_cast<int>(at + wanted.size()));
    return true;
}

} // namespace corvane::ui
