#include "desktop/ReportPagePainter.h"

#include "reports/page/Page.h"
#include "reports/page/PageText.h"

#include <QFont>
#include <QImage>
#include <QPainter>
#include <QPen>

#include <algorithm>
#include <cmath>
#include <type_traits>

namespace corvane::desktop {

namespace {

using namespace corvane::reports;

QColor ToQColor(const Color& c) {
    return QColor(c.r, c.g, c.b);
}

// The faces whose widths the engine measured with, so lines fit on the screen as they do in PDF.
QString FamilyName(FontFamily family) {
    switch (family) {
    case FontFamily::Serif:
        return "Liberation Serif";
    case FontFamily::Mono:
        return "Liberation Mono";
    case FontFamily::Sans:
        break;
    }
    return "Liberation Sans";
}

QFont ToQFont(const Font& font, double scale) {
    QFont f(FamilyName(font.family));
    f.setPixelSize(std::max(1, static_cast<int>(std::lround(font.size * scale))));
    f.setBold(font.bold);
    f.setItalic(font.italic);
    // Glyphs at the widths the engine measured, not snapped to the screen's pixel grid.
    f.setHintingPreference(QFont::PreferNoHinting);
    f.setKerning(false);
    return f;
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
    p.setFont(ToQFont(text.font, scale));
    p.setPen(ToQColor(text.color));
    p.drawText(QPointF(text.x * scale, text.baseline * scale), QString::fromStdString(text.text));
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
