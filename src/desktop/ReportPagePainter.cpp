#include "desktop/ReportPagePainter.h"

#include "reports/page/FontFaces.h"
#include "reports/page/Page.h"
#include "reports/page/PageText.h"

#include <QFont>
#include <QGlyphRun>
#include <QImage>
#include <QPainter>
#include <QPen>
#include <QRawFont>

#include <algorithm>
#include <cmath>
#include <map>
#include <string>
#include <type_traits>

namespace corvane::desktop {

namespace {

using namespace corvane::reports;

QColor ToQColor(const Color& c) {
    return QColor(c.r, c.g, c.b);
}

// The report face at a size in device pixels, from the very file the engine measured: the glyphs
// land where the engine put them, at any zoom and on any printer, without hinting or kerning to
// move them. Faces are few and sizes repeat page after page, so each is made once.
const QRawFont& RawFont(const Font& font, double pixelSize) {
    static std::map<std::pair<std::string, double>, QRawFont> fonts;
    const ReportFace& face = FaceOf(font);
    const auto key = std::make_pair(face.File() + '#' + std::to_string(face.FileIndex()),
                                    std::round(pixelSize * 100) / 100);
    auto found = fonts.find(key);
    if (found != fonts.end()) return found->second;
    if (fonts.size() > 256) fonts.clear();
    QRawFont raw(QString::fromStdString(face.File()), key.second, QFont::PreferNoHinting);
    return fonts.emplace(key, raw).first->second;
}

QRectF Scaled(const Rect& r, double scale) {
    return QRectF(r.left * scale, r.top * scale, r.width * scale, r.height * scale);
}

QPen LinePen(const Color& color, double width, double scale) {
    QPen pen(ToQColor(color));
    // A hairline stays one device pixel wide at any zoom.
    pen.setWidthF(std::max(width * scale, 1.0));
    pen.setCapStyle(Qt::FlatCap);
    return pen;
}

void Draw(QPainter& p, const TextOp& op, int pageCount, double scale) {
    const TextOp text = ResolvePageTotal(op, pageCount);
    if (text.text.empty()) return;
    const GlyphRun run = LayOutGlyphs(text.font, text.text);
    QGlyphRun glyphs;
    glyphs.setRawFont(RawFont(text.font, text.font.size * scale));
    QList<quint32> indexes;
    QList<QPointF> positions;
    indexes.reserve(static_cast<qsizetype>(run.glyphs.size()));
    positions.reserve(static_cast<qsizetype>(run.glyphs.size()));
    for (std::size_t i = 0; i < run.glyphs.size(); ++i) {
        indexes.push_back(run.glyphs[i]);
        positions.push_back(QPointF(run.x[i] * scale, 0));
    }
    glyphs.setGlyphIndexes(indexes);
    glyphs.setPositions(positions);
    p.setPen(ToQColor(text.color));
    p.drawGlyphRun(QPointF(text.x * scale, text.baseline * scale), glyphs);
}

void Draw(QPainter& p, const LineOp& op, int, double scale) {
    p.setPen(LinePen(op.color, op.width, scale));
    p.drawLine(QPointF(op.x1 * scale, op.y1 * scale), QPointF(op.x2 * scale, op.y2 * scale));
}

void Draw(QPainter& p, const RectOp& op, int, double scale) {
    const QRectF rect = Scaled(op.rect, scale);
    if (op.filled) p.fillRect(rect, ToQColor(op.fill));
    if (op.lineWidth > 0) {
        p.setPen(LinePen(op.color, op.lineWidth, scale));
        p.setBrush(Qt::NoBrush);
        p.drawRect(rect);
    }
}

void Draw(QPainter& p, const ImageOp& op, int, double scale) {
    if (op.pixelWidth <= 0 || op.pixelHeight <= 0 ||
        op.rgb.size() < static_cast<std::size_t>(op.pixelWidth) * op.pixelHeight * 3)
        return;
    const QImage image(op.rgb.data(), op.pixelWidth, op.pixelHeight, op.pixelWidth * 3,
                       QImage::Format_RGB888);
    p.drawImage(Scaled(op.rect, scale), image);
}

} // namespace

void PaintReportPage(QPainter& painter, const reports::Page& page, int pageCount, double scale) {
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setRenderHint(QPainter::TextAntialiasing);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    for (const DrawOp& op : page.ops)
        std::visit([&](const auto& o) { Draw(painter, o, pageCount, scale); }, op);
    painter.restore();
}

} // namespace corvane::desktop
