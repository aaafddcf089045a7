#include "reports/page/FontMetrics.h"
#include "reports/page/FontFaces.h"
#include "reports/page/Utf8.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

using namespace corvane::reports;

namespace {

Font Face(FontFamily family, bool bold = false, bool italic = false, double size = 10) {
    return Font{family, size, bold, italic};
}

std::string Utf8(char32_t code) {
    std::string text;
    AppendUtf8(text, code);
    return text;
}

// The faces' widths are given in 2048ths of an em; the standard faces' published ones in
// thousandths, so at 10 points they agree to within half a thousandth of a point per glyph.
constexpr double kPublished = 0.006;

} // namespace

TEST(FontMetricsTest, WidthsAreThoseOfTheStandardFaces) {
    EXPECT_NEAR(TextWidth(Face(FontFamily::Sans), "A"), 6.67, kPublished);
    EXPECT_NEAR(TextWidth(Face(FontFamily::Sans), "W"), 9.44, kPublished);
    EXPECT_NEAR(TextWidth(Face(FontFamily::Sans), "i"), 2.22, kPublished);
    EXPECT_NEAR(TextWidth(Face(FontFamily::Sans, true), "A"), 7.22, kPublished);
    EXPECT_NEAR(TextWidth(Face(FontFamily::Sans, true), "i"), 2.78, kPublished);
    EXPECT_NEAR(TextWidth(Face(FontFamily::Serif), "a"), 4.44, kPublished);
    EXPECT_NEAR(TextWidth(Face(FontFamily::Serif, false, true), "a"), 5.0, kPublished);
    EXPECT_NEAR(TextWidth(Face(FontFamily::Serif, true), "a"), 5.0, kPublished);
    EXPECT_NEAR(TextWidth(Face(FontFamily::Serif), "M"), 8.89, kPublished);
    EXPECT_NEAR(TextWidth(Face(FontFamily::Sans), "Hello"), 7.22 + 5.56 + 2.22 + 2.22 + 5.56,
                5 * kPublished);
    EXPECT_DOUBLE_EQ(TextWidth(Face(FontFamily::Sans, false, false, 24), "Hello"),
                     2.4 * TextWidth(Face(FontFamily::Sans), "Hello"));
    EXPECT_DOUBLE_EQ(TextWidth(Face(FontFamily::Sans), ""), 0.0);
    // The typographic characters keep their own widths.
    const Font sans = Face(FontFamily::Sans);
    EXPECT_NEAR(TextWidth(sans, "\xE2\x82\xAC"), 5.56, kPublished);                   // euro
    EXPECT_NEAR(TextWidth(sans, "\xE2\x80\x94"), 10.0, kPublished);                   // em dash
    EXPECT_NEAR(TextWidth(sans, "\xE2\x80\x98"), 2.22, kPublished);                   // quote
    EXPECT_NEAR(TextWidth(Face(FontFamily::Serif), "\xE2\x84\xA2"), 9.8, kPublished); // trade mark
}

TEST(FontMetricsTest, EveryMonoCharacterIsSixTenthsOfAnEm) {
    for (bool bold : {false, true}) {
        for (bool italic : {false, true}) {
            const Font font = Face(FontFamily::Mono, bold, italic);
            const double one = TextWidth(font, "x");
            EXPECT_NEAR(one, 6.0, 0.01);
            // Latin with its extensions, the Greek and the Cyrillic letters.
            std::vector<char32_t> codes;
            for (char32_t code = 32; code < 0x250; ++code)
                codes.push_back(code);
            for (char32_t code = 0x391; code <= 0x3C9; ++code)
                codes.push_back(code);
            for (char32_t code = 0x400; code <= 0x45F; ++code)
                codes.push_back(code);
            for (char32_t code : codes) {
                if (!FaceOf(font).Covers(code)) continue;
                EXPECT_DOUBLE_EQ(TextWidth(font, Utf8(code)), one)
                    << "U+" << std::hex << static_cast<unsigned>(code) << " bold " << bold
                    << " italic " << italic;
            }
            EXPECT_DOUBLE_EQ(TextWidth(font, "\xE2\x82\xAC 12.345,67 \xD0\x9C\xC5\x81"), one * 14);
        }
    }
}

// Each letter has its own glyph's width, not that of a stand-in: the Polish, Danish, Greek and
// Cyrillic capitals measure as the Latin letters they look like.
TEST(FontMetricsTest, LettersOfEveryScriptTheFacesHoldHaveTheirOwnWidths) {
    for (FontFamily family : {FontFamily::Sans, FontFamily::Serif}) {
        for (bool bold : {false, true}) {
            const Font font = Face(family, bold);
            EXPECT_DOUBLE_EQ(TextWidth(font, "\xC5\x81"), TextWidth(font, "L")); // L stroke
            EXPECT_DOUBLE_EQ(TextWidth(font, "\xC3\xB3"), TextWidth(font, "o")); // o acute
            EXPECT_DOUBLE_EQ(TextWidth(font, "\xC5\xBA"), TextWidth(font, "z")); // z acute
            EXPECT_DOUBLE_EQ(TextWidth(font, "\xC3\xBC"), TextWidth(font, "u")); // u umlaut
            EXPECT_DOUBLE_EQ(TextWidth(font, "\xC3\x98"), TextWidth(font, "O")); // O slash
            EXPECT_DOUBLE_EQ(TextWidth(font, "\xCE\x91"), TextWidth(font, "A")); // Alpha
            EXPECT_DOUBLE_EQ(TextWidth(font, "\xD0\x9C"), TextWidth(font, "M")); // Em
            EXPECT_DOUBLE_EQ(TextWidth(font, "\xD0\xBE"), TextWidth(font, "o")); // o
            EXPECT_DOUBLE_EQ(TextWidth(font, "Caf\xC3\xA9"), TextWidth(font, "Cafe"));
            EXPECT_NE(TextWidth(font, "\xD0\x96"), TextWidth(font, "?")); // Zhe, no stand-in
        }
    }
}

TEST(FontMetricsTest, CharactersOutsideTheFacesMeasureAsQuestionMarks) {
    for (FontFamily family : {FontFamily::Sans, FontFamily::Serif, FontFamily::Mono}) {
        const Font font = Face(family);
        const double question = TextWidth(font, "?");
        EXPECT_DOUBLE_EQ(TextWidth(font, "\xE4\xB8\xAD"), question);     // CJK
        EXPECT_DOUBLE_EQ(TextWidth(font, "\xF0\x9F\x98\x80"), question); // emoji
        EXPECT_DOUBLE_EQ(TextWidth(font, "\t"), question);               // control
        EXPECT_DOUBLE_EQ(TextWidth(font, "\xC2\x85"), question);         // C1 control
        EXPECT_DOUBLE_EQ(TextWidth(font, "a\xFF"
                                         "b"),
                         TextWidth(font, "a?b")); // stray byte
        EXPECT_FALSE(FaceOf(font).Covers(U'\t'));
        EXPECT_FALSE(FaceOf(font).Covers(U'\x4E2D'));
        EXPECT_TRUE(FaceOf(font).Covers(U'?'));
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

// What a renderer draws: each glyph where the one before it ends, and for the copy of the text
// the characters drawn, a question mark for each the face lacks.
TEST(FontMetricsTest, GlyphRunsPlaceEachGlyphAfterTheLast) {
    const Font font = Face(FontFamily::Sans, true, false, 12);
    const GlyphRun run = LayOutGlyphs(font, "\xC5\x81\xC3\xB3" // L stroke, o acute
                                            "d\xE4\xB8\xAD\t\xFF");
    ASSERT_EQ(run.glyphs.size(), 6u);
    EXPECT_EQ(run.text, "\xC5\x81\xC3\xB3"
                        "d???");
    EXPECT_EQ(run.bytes, (std::vector<int>{2, 2, 1, 1, 1, 1}));
    EXPECT_DOUBLE_EQ(run.x[0], 0.0);
    EXPECT_DOUBLE_EQ(run.x[1], TextWidth(font, "L"));
    EXPECT_DOUBLE_EQ(run.x[2], TextWidth(font, "Lo"));
    EXPECT_DOUBLE_EQ(run.width, TextWidth(font, "Lod???"));
    const unsigned question = FaceOf(font).Glyph(U'?');
    EXPECT_EQ(run.glyphs[3], question);
    EXPECT_EQ(run.glyphs[5], question);
    EXPECT_NE(run.glyphs[0], FaceOf(font).Glyph(U'L'));
}

TEST(Utf8Test, MalformedBytesGiveOneReplacementEach) {
    auto count = [](std::string_view text) {
        int replaced = 0;
        for (std::size_t at = 0; at < text.size();)
            replaced += NextCodePoint(text, at) == 0xFFFD;
        return replaced;
    };
    EXPECT_EQ(count("\xC3"), 1); // cut short at the end
    EXPECT_EQ(count("\xE2\x82"
                    "A"),
              2);                            // cut short before a letter
    EXPECT_EQ(count("\xC0\xAF"), 2);         // overlong slash
    EXPECT_EQ(count("\xED\xA0\x80"), 3);     // surrogate
    EXPECT_EQ(count("\xF4\x90\x80\x80"), 4); // beyond U+10FFFF
    EXPECT_EQ(count("\x80\xBF"), 2);         // lone continuations
    std::size_t at = 0;
    EXPECT_EQ(NextCodePoint("\xF0\x9F\x98\x80x", at), U'\U0001F600');
    EXPECT_EQ(at, 4u);
    for (char32_t code : {U'a', U'\xE9', U'\x20AC', U'\U0001F600'}) {
        const std::string text = Utf8(code);
        std::size_t back = 0;
        EXPECT_EQ(NextCodePoint(text, back), code);
        EXPECT_EQ(back, text.size());
    }
}
