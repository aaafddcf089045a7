#include "desktop/Look.h"

#include <QApplication>
#include <QFont>
#include <QStyleFactory>

namespace corvane::desktop {

void ApplyLook(QApplication& app) {
    if (QStyle* style = QStyleFactory::create(QStringLiteral("Fusion"))) app.setStyle(style);
    QFont font(QStringLiteral("DejaVu Sans"));
    font.setStyleHint(QFont::SansSerif);
    font.setPointSize(10);
    app.setFont(font);
}

} // namespace corvane::desktop
