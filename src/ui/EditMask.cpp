#include "ui/EditMask.h"

#include <cctype>

namespace corvane::ui {

EditMask::EditMask(std::string_view mask) {
    Case convert = Case::Keep;
    for (std::size_t i = 0; i < mask.size(); ++i) {
        char m = mask[i];
        if (m == ';') break;
        switch (m) {
        case '!':
            continue;
        case '>':
            if (i + 1 < mask.size() && mask[i + 1] == '<') {
                convert = Case::Keep;
                ++i;
            } else {
                convert = Case::Upper;
            }
            continue;
        case '<':
            convert = Case::Lower;
            continue;
        case '\\':
            if (++i < mask.size()) slots_.push_back({Accept::Literal, true, Case::Keep, mask[i]});
            continue;
        case '0':
            slots_.push_back({Accept::Digit, true, convert, 0});
            continue;
        case '9':
            slots_.push_back({Accept::Digit, false, convert, 0});
            continue;
        case 'L':
            slots_.push_back({Accept::Letter, true, convert, 0});
            continue;
        case 'l':
            slots_.push_back({Accept::Letter, false, convert, 0});
            continue;
        case 'A':
            slots_.push_back({Accept::AlphaNum, true, convert, 0});
            continue;
        case 'a':
            slots_.push_back({Accept::AlphaNum, false, convert, 0});
            continue;
        case 'C':
            slots_.push_back({Accept::Any, true, convert, 0});
            continue;
        case 'c':
            slots_.push_back({Accept::Any, false, convert, 0});
            continue;
        default:
            slots_.push_back({Accept::Literal, true, Case::Keep, m});
        }
    }
}

bool EditMask::Fits(const Slot& slot, char ch) {
    auto c = static_cast<unsigned char>(ch);
    switch (slot.What) {
    case Accept::Digit:
        return std::isdigit(c);
    case Accept::Letter:
        return std::isalpha(c);
    case Accept::AlphaNum:
        return std::isalnum(c);
    case Accept::Any:
        return std::isprint(c);
    case Accept::Literal:
        return ch == slot.Literal;
    }
    return false;
}

std::optional<std::string> EditMask::Type(const std::string& text, char ch) const {
    std::string result = text;
    // The literals up to the next open position come by themselves, unless ch is that literal.
    while (result.size() < slots_.size() && slots_[result.size()].What == Accept::Literal) {
        const Slot& slot = slots_[result.size()];
        result += slot.Literal;
        if (ch == slot.Literal) return result;
    }
    if (result.size() >= slots_.size()) return std::nullopt;
    const Slot& slot = slots_[result.size()];
    if (!Fits(slot, ch)) return std::nullopt;
    auto c = static_cast<unsigned char>(ch);
    if (slot.Convert == Case::Upper) ch = static_cast<char>(std::toupper(c));
    if (slot.Convert == Case::Lower) ch = static_cast<char>(std::tolower(c));
    return result + ch;
}

std::optional<std::string> EditMask::Apply(std::string_view text) const {
    std::string result;
    for (char ch : text) {
        auto next = Type(result, ch);
        if (!next) return std::nullopt;
        result = *next;
    }
    return result;
}

bool EditMask::Complete(const std::string& text) const {
    if (text.empty()) return true;
    for (std::size_t i = text.size(); i < slots_.size(); ++i)
        if (slots_[i].Required && slots_[i].What != Accept::Literal) return false;
    return true;
}

} // namespace corvane::ui
