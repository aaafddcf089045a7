#include "desktop/ToolIcon.h"

#include <QApplication>
#include <QPainter>
#include <QPalette>
#include <QPixmap>

#include <algorithm>

namespace corvane::desktop {

namespace {

// The first letter of each of the first two words, or the first two letters of a single word.
QString ToolIconLetters(const QString& caption) {
    const QStringList words = caption.split(' ', Qt::SkipEmptyParts);
    if (words.isEmpty()) return {};
    if (words.size() == 1) return words[0].left(2);
    return QString(words[0][0]) + words[1][0];
}

} // namespace

QIcon ToolIcon(const QString& caption, int size) {
    QPixmap tile(size, size);
    tile.fill(Qt::transparent);
    QPainter paint(&tile);
    paint.setRenderHint(QPainter::Antialiasing);
    const QPalette colours = QApplication::palette();
    paint.setPen(Qt::NoPen);
    paint.setBrush(colours.color(QPalette::Highlight));
    paint.drawRoundedRect(QRectF(0.5, 0.5, size - 1, size - 1), size / 5.0, size / 5.0);
    QFont letters = QApplication::font();
    letters.setBold(true);
    letters.setPixelSize(std::max(6, size * 2 / 5));
    paint.setFont(letters);
    paint.setPen(colours.color(QPalette::HighlightedText));
    paint.drawText(tile.rect(), Qt::AlignCenter, ToolIconLetters(caption));
    paint.end();
    return QIcon(tile);
}

} // namespace corvane::desktop
