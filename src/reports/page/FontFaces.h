#pragma once

#include "reports/page/Page.h"

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

struct FT_FaceRec_;

namespace corvane::reports {

// One of the twelve report faces (Liberation Sans, Serif and Mono, each regular, bold, italic and
// bold italic), loaded once through FreeType. The engine measures with it, and the PDF writer,
// the screen and the printer draw its glyphs at the places it gives, so a line is as long on
// paper as it was when the engine fitted it.
class ReportFace {
public:
    // The glyph that draws a character. A character the face lacks, and a control character,
    // gets the question mark's glyph: the page shows and measures what it can draw.
    unsigned Glyph(char32_t codePoint) const {
        if (codePoint < latin_.size()) return latin_[codePoint];
        const auto found = others_.find(codePoint);
        return found == others_.end() ? question_ : found->second;
    }
    bool Covers(char32_t codePoint) const;
    // In font units, of unitsPerEm to the em.
    int Advance(unsigned glyph) const { return glyph < advances_.size() ? advances_[glyph] : 0; }
    int UnitsPerEm() const { return unitsPerEm_; }
    // The Windows ascent and descent (the height the screen gives a line) and the line gap a
    // viewer adds between lines, in font units.
    int AscentUnits() const { return ascent_; }
    int DescentUnits() const { return descent_; }
    int LineGapUnits() const { return lineGap_; }
    const std::string& File() const { return file_; }
    int FileIndex() const { return fileIndex_; }
    // For a renderer that hands the face on (cairo); never used to measure.
    FT_FaceRec_* FreeTypeFace() const { return face_; }

    // Loads the face of `family` with the style; a missing font is an exception naming it.
    ReportFace(const std::string& family, bool bold, bool italic);
    ReportFace(const ReportFace&) = delete;
    ReportFace& operator=(const ReportFace&) = delete;

private:
    FT_FaceRec_* face_ = nullptr;
    std::string file_;
    int fileIndex_ = 0;
    int unitsPerEm_ = 1000;
    int ascent_ = 0, descent_ = 0, lineGap_ = 0;
    unsigned question_ = 0;
    std::array<std::uint16_t, 256> latin_{};
    std::unordered_map<char32_t, std::uint16_t> others_;
    std::vector<std::uint16_t> advances_;
};

// The face a report font draws with. The faces are loaded at the first call and kept.
const ReportFace& FaceOf(const Font& font);

// A text as glyphs with their pen positions from the start of the text, in points; what every
// renderer draws.
struct GlyphRun {
    std::vector<unsigned> glyphs;
    std::vector<double> x;
    // The characters the glyphs draw, as UTF-8: a question mark where the face lacks one, so
    // that a copy of the text reads what the page shows.
    std::string text;
    std::vector<int> bytes; // of text, per glyph
    double width = 0;
};
GlyphRun LayOutGlyphs(const Font& font, std::string_view text);

} // namespace corvane::reports
