#include "reports/page/FontMetrics.h"

#include "reports/page/FontFaces.h"
#include "reports/page/Utf8.h"

namespace corvane::reports {

double TextWidth(const Font& font, std::string_view text) {
    const ReportFace& face = FaceOf(font);
    long units = 0;
    std::size_t at = 0;
    while (at < text.size()) {
        const auto byte = static_cast<unsigned char>(text[at]);
        char32_t code = byte;
        if (byte < 0x80)
            ++at;
        else
            code = NextCodePoint(text, at);
        units += face.Advance(face.Glyph(code));
    }
    return units * font.size / face.UnitsPerEm();
}

double Ascent(const Font& font) {
    const ReportFace& face = FaceOf(font);
    return face.AscentUnits() * font.size / face.UnitsPerEm();
}

double Descent(const Font& font) {
    const ReportFace& face = FaceOf(font);
    return face.DescentUnits() * font.size / face.UnitsPerEm();
}

double LineHeight(const Font& font) {
    const ReportFace& face = FaceOf(font);
    return (face.AscentUnits() + face.DescentUnits() + face.LineGapUnits()) * font.size /
           face.UnitsPerEm();
}

} // namespace corvane::reports
