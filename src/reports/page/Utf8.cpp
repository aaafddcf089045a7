#include "reports/page/Utf8.h"

namespace corvane::reports {

namespace {

constexpr char32_t kReplacement = 0xFFFD;

bool IsContinuation(unsigned char byte) {
    return (byte & 0xC0) == 0x80;
}

} // namespace

char32_t NextCodePoint(std::string_view text, std::size_t& at) {
    const auto lead = static_cast<unsigned char>(text[at]);
    if (lead < 0x80) {
        ++at;
        return lead;
    }
    int length = 0;
    char32_t value = 0;
    char32_t smallest = 0;
    if ((lead & 0xE0) == 0xC0) {
        length = 2, value = lead & 0x1F, smallest = 0x80;
    } else if ((lead & 0xF0) == 0xE0) {
        length = 3, value = lead & 0x0F, smallest = 0x800;
    } else if ((lead & 0xF8) == 0xF0) {
        length = 4, value = lead & 0x07, smallest = 0x10000;
    } else {
        ++at;
        return kReplacement;
    }
    if (at + length > text.size()) {
        ++at;
        return kReplacement;
    }
    for (int i = 1; i < length; ++i) {
        const auto byte = static_cast<unsigned char>(text[at + i]);
        if (!IsContinuation(byte)) {
            ++at;
            return kReplacement;
        }
        value = (value << 6) | (byte & 0x3F);
    }
    if (value < smallest || value > 0x10FFFF || (value >= 0xD800 && value <= 0xDFFF)) {
        ++at;
        return kReplacement;
    }
    at += length;
    return value;
}

void AppendUtf8(std::string& text, char32_t codePoint) {
    if (codePoint < 0x80) {
        text.push_back(static_cast<char>(codePoint));
    } else if (codePoint < 0x800) {
        text.push_back(static_cast<char>(0xC0 | (codePoint >> 6)));
        text.push_back(static_cast<char>(0x80 | (codePoint & 0x3F)));
    } else if (codePoint < 0x10000) {
        text.push_back(static_cast<char>(0xE0 | (codePoint >> 12)));
        text.push_back(static_cast<char>(0x80 | ((codePoint >> 6) & 0x3F)));
        text.push_back(static_cast<char>(0x80 | (codePoint & 0x3F)));
    } else {
        text.push_back(static_cast<char>(0xF0 | (codePoint >> 18)));
        text.push_back(static_cast<char>(0x80 | ((codePoint >> 12) & 0x3F)));
        text.push_back(static_cast<char>(0x80 | ((codePoint >> 6) & 0x3F)));
        text.push_back(static_cast<char>(0x80 | (codePoint & 0x3F)));
    }
}

} // namespace corvane::reports
