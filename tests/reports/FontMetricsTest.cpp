#include "reports/page/FontMetrics.h"
#include "reports/render/Cp1252.h"

#include <gtest/gtest.h>

#include <string>

using namespace corvane::reports;

namespace {

Font Face(FontFamily family, bool bold = false, bool italic = false, double size = 10) {
    return Font{family, size, bold, italic};
}

// UTF-8 for one code point below U+0800.
std::string Utf8(char32_t code) {
    if (code < 0x80) return std::string(1, static_cast<char>(code));
    return {static_cast<char>(0xC0 | (code >> 6)), static_cast<char>(0x80 | (code & 0x3F))};
}

} // namespace

// Widths published for the standard faces, in 1/1000 em: at 10 points a hundredth of a point.
TEST(FontMetricsTest, WidthsAreThoseOfTheStandardFaces) {
    EXPECT_DOUBLE_EQ(TextWidth(Face(FontFamily::Sans), "A"), 6.67);
    EXPECT_DOUBLE_EQ(TextWidth(Face(FontFamily::Sans), "W"), 9.44);
    EXPECT_DOUBLE_EQ(TextWidth(Face(FontFamily::Sans), "i"), 2.22);
    EXPECT_DOUBLE_EQ(TextWidth(Face(FontFamily::Sans, true), "A"), 7.22);
    EXPECT_DOUBLE_EQ(TextWidth(Face(FontFamily::Sans, true), "i"), 2.78);
    EXPECT_DOUBLE_EQ(TextWidth(Face(FontFamily::Serif), "a"), 4.44);
    EXPECT_DOUBLE_EQ(TextWidth(Face(FontFamily::Serif, false, true), "a"), 5.0);
    EXPECT_DOUBLE_EQ(TextWidth(Face(FontFamily::Serif, true), "a"), 5.0);
    EXPECT_DOUBLE_EQ(TextWidth(Face(FontFamily::Serif), "M"), 8.89);
    // A text is the sum of its characters and scales with the size.
    EXPECT_DOUBLE_EQ(TextWidth(Face(FontFamily::Sans), "Hello"), 7.22 + 5.56 + 2.22 + 2.22 + 5.56);
    EXPECT_DOUBLE_EQ(TextWidth(Face(FontFamily::Sans, false, false, 24), "Hello"),
                     2.4 * TextWidth(Face(FontFamily::Sans), "Hello"));
    EXPECT_DOUBLE_EQ(TextWidth(Face(FontFamily::Sans), ""), 0.0);
}

TEST(FontMetricsTest, EveryMonoCharacterIsSixHundredthsOfAnEm) {
    for (bool bold : {false, true}) {
        for (bool italic : {false, true}) {
            const Font font = Face(FontFamily::Mono, bold, italic);
            for (char32_t code = 32; code <= 255; ++code) {
                if (code >= 0x7F && code < 0xA0) continue;
                EXPECT_DOUBLE_EQ(TextWidth(font, Utf8(code)), 6.0)
                    << "U+" << std::hex << static_cast<unsigned>(code) << " bold " << bold
                    << " italic " << italic;
            }
            EXPECT_DOUBLE_EQ(TextWidth(font, "\xE2\x82\xAC 12,345.67"), 6.0 * 11);
        }
    }
}

TEST(FontMetricsTest, TextIsMeasuredAsUtf8) {
    const Font sans = Face(FontFamily::Sans);
    // e acute is one character as wide as e, not the two Latin-1 characters of its bytes.
    EXPECT_DOUBLE_EQ(TextWidth(sans, "\xC3\xA9"), TextWidth(sans, "e"));
    EXPECT_DOUBLE_EQ(TextWidth(sans, "Caf\xC3\xA9"), TextWidth(sans, "Cafe"));
    EXPECT_DOUBLE_EQ(TextWidth(sans, "\xC3\x89"), TextWidth(sans, "E"));
    // The typographic characters Windows-1252 holds keep their own widths.
    EXPECT_DOUBLE_EQ(TextWidth(sans, "\xE2\x82\xAC"), 5.56);                   // euro
    EXPECT_DOUBLE_EQ(TextWidth(sans, "\xE2\x80\x94"), 10.0);                   // em dash
    EXPECT_DOUBLE_EQ(TextWidth(sans, "\xE2\x80\x98"), 2.22);                   // left single quote
    EXPECT_DOUBLE_EQ(TextWidth(sans, "\xC5\x92"), 10.0);                       // OE ligature
    EXPECT_DOUBLE_EQ(TextWidth(Face(FontFamily::Serif), "\xE2\x84\xA2"), 9.8); // trade mark
}

TEST(FontMetricsTest, CharactersOutsideTheSetMeasureAsQuestionMarks) {
    for (FontFamily family : {FontFamily::Sans, FontFamily::Serif, FontFamily::Mono}) {
        const Font font = Face(family);
        const double question = TextWidth(font, "?");
        EXPECT_DOUBLE_EQ(TextWidth(font, "\xE4\xB8\xAD"), question);     // CJK
        EXPECT_DOUBLE_EQ(TextWidth(font, "\xF0\x9F\x98\x80"), question); // emoji
        EXPECT_DOUBLE_EQ(TextWidth(font, "\xC4\x80"), question);         // A macron
        EXPECT_DOUBLE_EQ(TextWidth(font, "\t"), question);               // control
        EXPECT_DOUBLE_EQ(TextWidth(font, "a\xFF"
                                         "b"),
                         TextWidth(font, "a?b")); // stray byte
    }
    EXPECT_NE(TextWidth(Face(FontFamily::Sans), "?"), TextWidth(Face(FontFamily::Serif), "?"));
}

TEST(FontMetricsTest, HeightsFitTheLineAndScale) {
    for (FontFamily family : {FontFamily::Sans, FontFamily::Serif, FontFamily::Mono}) {
        for (bool bold : {false, true}) {
            const Font font = Face(family, bold, false, 10);
            EXPECT_GT(Ascent(font), 6.0);
            EXPECT_LT(Ascent(font), 10.0);
            EXPECT_GT(Descent(font), 1.5);
            EXPECT_LT(Descent(font), 4.0);
            EXPECT_GE(LineHeight(font), Ascent(font) + Descent(font));
            EXPECT_LT(LineHeight(font), 13.0);
            const Font twice = Face(family, bold, false, 20);
            EXPECT_DOUBLE_EQ(Ascent(twice), 2 * Ascent(font));
            EXPECT_DOUBLE_EQ(Descent(twice), 2 * Descent(font));
            EXPECT_DOUBLE_EQ(LineHeight(twice), 2 * LineHeight(font));
        }
    }
    EXPECT_NE(Ascent(Face(FontFamily::Sans)), Ascent(Face(FontFamily::Mono)));
}

TEST(Cp1252Test, ConvertsWhatTheSetHoldsAndMarksTheRest) {
    EXPECT_EQ(Utf8ToCp1252("Plain (text) 1.00"), "Plain (text) 1.00");
    EXPECT_EQ(Utf8ToCp1252("Caf\xC3\xA9 \xC3\xBF \xC2\xA0"), "Caf\xE9 \xFF \xA0");
    EXPECT_EQ(Utf8ToCp1252("\xE2\x82\xAC\xC5\x92\xE2\x80\x99\xC5\xB8\xE2\x80\xA6"),
              "\x80\x8C\x92\x9F\x85");
    EXPECT_EQ(Utf8ToCp1252("\xE4\xB8\xAD\xF0\x9F\x98\x80"
                           "a"),
              "??a");
    // Latin-1's own control characters are not Windows-1252's typographic ones.
    EXPECT_EQ(Utf8ToCp1252("\xC2\x80\xC2\x9F"), "??");
    EXPECT_EQ(Utf8ToCp1252("a\nb\x7F"), "a?b?");
}

TEST(Cp1252Test, MalformedUtf8CostsOneMarkPerByte) {
    EXPECT_EQ(Utf8ToCp1252("\xC3"), "?"); // cut short at the end
    EXPECT_EQ(Utf8ToCp1252("\xE2\x82"
                           "A"),
              "??A");                                    // cut short before a letter
    EXPECT_EQ(Utf8ToCp1252("\xC0\xAF"), "??");           // overlong slash
    EXPECT_EQ(Utf8ToCp1252("\xED\xA0\x80"), "???");      // surrogate
    EXPECT_EQ(Utf8ToCp1252("\xF4\x90\x80\x80"), "????"); // beyond U+10FFFF
    EXPECT_EQ(Utf8ToCp1252("\x80\xBF"), "??");           // lone continuations
    std::size_t at = 0;
    EXPECT_EQ(NextCodePoint("\xF0\x9F\x98\x80x", at), U'\U0001F600');
    EXPECT_EQ(at, 4u);
}
