#include "reports/page/FontFaces.h"

#include "core/Exception.h"
#include "reports/page/Utf8.h"

#include <fontconfig/fontconfig.h>
#include <ft2build.h>
#include FT_FREETYPE_H
#include FT_TRUETYPE_TABLES_H
#include FT_ADVANCES_H

#include <memory>
#include <mutex>

namespace corvane::reports {

namespace {

FT_Library Library() {
    // One library for the life of the program: the faces made from it are never let go, since
    // pages drawn late (a preview left open) still need them.
    static FT_Library library = [] {
        FT_Library made = nullptr;
        if (FT_Init_FreeType(&made) != 0)
            throw Exception("The font engine could not be started for reports.");
        return made;
    }();
    return library;
}

struct FontFile {
    std::string path;
    int index = 0;
};

// Where the system keeps the face, by the name every desktop knows it by. A face of another
// family would measure differently from what is drawn, so only the family asked for will do.
FontFile FindFont(const std::string& family, bool bold, bool italic) {
    const std::string missing = "The report font " + family + (bold ? " Bold" : "") +
                                (italic ? " Italic" : "") +
                                " is not installed (package fonts-liberation2).";
    FcPattern* pattern = FcPatternCreate();
    FcPatternAddString(pattern, FC_FAMILY, reinterpret_cast<const FcChar8*>(family.c_str()));
    FcPatternAddInteger(pattern, FC_WEIGHT, bold ? FC_WEIGHT_BOLD : FC_WEIGHT_REGULAR);
    FcPatternAddInteger(pattern, FC_SLANT, italic ? FC_SLANT_ITALIC : FC_SLANT_ROMAN);
    FcConfigSubstitute(nullptr, pattern, FcMatchPattern);
    FcDefaultSubstitute(pattern);
    FcResult result = FcResultNoMatch;
    FcPattern* match = FcFontMatch(nullptr, pattern, &result);
    FcPatternDestroy(pattern);
    if (!match) throw Exception(missing);
    FontFile found;
    FcChar8* matchedFamily = nullptr;
    FcChar8* file = nullptr;
    int weight = 0, slant = 0;
    const bool sameFace =
        FcPatternGetString(match, FC_FAMILY, 0, &matchedFamily) == FcResultMatch &&
        family == reinterpret_cast<const char*>(matchedFamily) &&
        FcPatternGetInteger(match, FC_WEIGHT, 0, &weight) == FcResultMatch &&
        (weight >= FC_WEIGHT_BOLD) == bold &&
        FcPatternGetInteger(match, FC_SLANT, 0, &slant) == FcResultMatch &&
        (slant != FC_SLANT_ROMAN) == italic &&
        FcPatternGetString(match, FC_FILE, 0, &file) == FcResultMatch;
    if (sameFace) {
        found.path = reinterpret_cast<const char*>(file);
        FcPatternGetInteger(match, FC_INDEX, 0, &found.index);
    }
    FcPatternDestroy(match);
    if (!sameFace) throw Exception(missing);
    return found;
}

bool IsControl(char32_t codePoint) {
    return codePoint < 0x20 || (codePoint >= 0x7F && codePoint < 0xA0);
}

constexpr const char* kFamilies[] = {"Liberation Sans", "Liberation Serif", "Liberation Mono"};

std::unique_ptr<ReportFace> gFaces[12];
std::once_flag gFacesLoaded;

} // namespace

ReportFace::ReportFace(const std::string& family, bool bold, bool italic) {
    const FontFile found = FindFont(family, bold, italic);
    file_ = found.path;
    fileIndex_ = found.index;
    if (FT_New_Face(Library(), file_.c_str(), fileIndex_, &face_) != 0 ||
        FT_Select_Charmap(face_, FT_ENCODING_UNICODE) != 0)
        throw Exception("The report font " + file_ + " could not be read.");
    unitsPerEm_ = face_->units_per_EM;
    const auto* os2 = static_cast<const TT_OS2*>(FT_Get_Sfnt_Table(face_, FT_SFNT_OS2));
    const auto* hhea = static_cast<const TT_HoriHeader*>(FT_Get_Sfnt_Table(face_, FT_SFNT_HHEA));
    if (!os2 || !hhea) throw Exception("The report font " + file_ + " has no line metrics.");
    ascent_ = os2->usWinAscent;
    descent_ = os2->usWinDescent;
    lineGap_ = hhea->Line_Gap;

    std::vector<FT_Fixed> advances(static_cast<std::size_t>(face_->num_glyphs));
    if (FT_Get_Advances(face_, 0, static_cast<FT_UInt>(face_->num_glyphs), FT_LOAD_NO_SCALE,
                        advances.data()) != 0)
        throw Exception("The report font " + file_ + " has no glyph widths.");
    advances_.assign(advances.begin(), advances.end());

    // Every character the face maps, read once: measuring then never calls into FreeType, and
    // the face is free for cairo, which locks it for itself.
    question_ = FT_Get_Char_Index(face_, '?');
    latin_.fill(static_cast<std::uint16_t>(question_));
    FT_UInt glyph = 0;
    for (FT_ULong code = FT_Get_First_Char(face_, &glyph); glyph != 0;
         code = FT_Get_Next_Char(face_, code, &glyph)) {
        if (IsControl(static_cast<char32_t>(code))) continue;
        if (code < latin_.size())
            latin_[code] = static_cast<std::uint16_t>(glyph);
        else
            others_.emplace(static_cast<char32_t>(code), static_cast<std::uint16_t>(glyph));
    }
}

bool ReportFace::Covers(char32_t codePoint) const {
    if (IsControl(codePoint)) return false;
    return codePoint < latin_.size() ? latin_[codePoint] != question_ || codePoint == '?'
                                     : others_.count(codePoint) > 0;
}

const ReportFace& FaceOf(const Font& font) {
    std::call_once(gFacesLoaded, [] {
        for (int family = 0; family < 3; ++family)
            for (int style = 0; style < 4; ++style)
                gFaces[family * 4 + style] =
                    std::make_unique<ReportFace>(kFamilies[family], style & 1, style & 2);
    });
    return *gFaces[static_cast<int>(font.family) * 4 + (font.bold ? 1 : 0) + (font.italic ? 2 : 0)];
}

GlyphRun LayOutGlyphs(const Font& font, std::string_view text) {
    const ReportFace& face = FaceOf(font);
    const double scale = font.size / face.UnitsPerEm();
    GlyphRun run;
    run.glyphs.reserve(text.size());
    run.x.reserve(text.size());
    run.bytes.reserve(text.size());
    long pen = 0;
    std::size_t at = 0;
    while (at < text.size()) {
        const char32_t code = NextCodePoint(text, at);
        const unsigned glyph = face.Glyph(code);
        run.glyphs.push_back(glyph);
        run.x.push_back(pen * scale);
        const std::size_t before = run.text.size();
        AppendUtf8(run.text, face.Covers(code) ? code : U'?');
        run.bytes.push_back(static_cast<int>(run.text.size() - before));
        pen += face.Advance(glyph);
    }
    run.width = pen * scale;
    return run;
}

} // namespace corvane::reports
