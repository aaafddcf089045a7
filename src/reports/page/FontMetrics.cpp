#include "reports/page/FontMetrics.h"

#include "reports/render/Cp1252.h"

#include <array>

namespace corvane::reports {

namespace {

// One face in 1/1000 em. Ascent and descent are the fonts' Windows values, the height the
// screen gives a line; the gap is the leading a viewer adds between lines.
struct FaceMetrics {
    int ascent;
    int descent;
    int lineGap;
    std::array<short, 224> widths; // Windows-1252 32..255
};

// Sans, Serif, Mono; each regular, bold, italic, bold italic.
constexpr FaceMetrics kFaces[12] = {
#include "reports/page/FontWidths.inc"
};

const FaceMetrics& Face(const Font& font) {
    const int family = static_cast<int>(font.family);
    return kFaces[family * 4 + (font.bold ? 1 : 0) + (font.italic ? 2 : 0)];
}

} // namespace

double TextWidth(const Font& font, std::string_view text) {
    const FaceMetrics& face = Face(font);
    long units = 0;
    std::size_t at = 0;
    while (at < text.size())
        units += face.widths[Cp1252Byte(NextCodePoint(text, at)) - 32];
    return units * font.size / 1000.0;
}

double Ascent(const Font& font) {
    return Face(font).ascent * font.size / 1000.0;
}

double Descent(const Font& font) {
    return Face(font).descent * font.size / 1000.0;
}

double LineHeight(const Font& font) {
    const FaceMetrics& face = Face(font);
    return (face.ascent + face.descent + face.lineGap) * font.size / 1000.0;
}

} // namespace corvane::reports
