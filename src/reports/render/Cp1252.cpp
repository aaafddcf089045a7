#include "reports/render/Cp1252.h"

#include <array>
#include <utility>

namespace corvane::reports {

namespace {

constexpr char32_t kReplacement = 0xFFFD;

// Windows-1252 puts typographic characters where Latin-1 has its C1 controls.
constexpr std::array<std::pair<char32_t, unsigned char>, 27> kHighCharacters{{
    {0x20AC, 0x80}, {0x201A, 0x82}, {0x0192, 0x83}, {0x201E, 0x84}, {0x2026, 0x85}, {0x2020, 0x86},
    {0x2021, 0x87}, {0x02C6, 0x88}, {0x2030, 0x89}, {0x0160, 0x8A}, {0x2039, 0x8B}, {0x0152, 0x8C},
    {0x017D, 0x8E}, {0x2018, 0x91}, {0x2019, 0x92}, {0x201C, 0x93}, {0x201D, 0x94}, {0x2022, 0x95},
    {0x2013, 0x96}, {0x2014, 0x97}, {0x02DC, 0x98}, {0x2122, 0x99}, {0x0161, 0x9A}, {0x203A, 0x9B},
    {0x0153, 0x9C}, {0x017E, 0x9E}, {0x0178, 0x9F},
}};

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

unsigned char Cp1252Byte(char32_t codePoint) {
    if ((codePoint >= 0x20 && codePoint < 0x7F) || (codePoint >= 0xA0 && codePoint <= 0xFF))
        return static_cast<unsigned char>(codePoint);
    for (const auto& [unicode, byte] : kHighCharacters)
        if (unicode == codePoint) return byte;
    return '?';
}

std::string Utf8ToCp1252(std::string_view text) {
    std::string bytes;
    bytes.reserve(text.size());
    std::size_t at = 0;
    while (at < text.size())
        bytes.push_back(static_cast<char>(Cp1252Byte(NextCodePoint(text, at))));
    return bytes;
}

} // namespace corvane::reports
