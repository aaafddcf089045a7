#include "desktop/Look.h"

#include <QApplication>
#include <QFont>
#include <QProxyStyle>
#include <QStyleFactory>

namespace corvane::desktop {

namespace {

// Fusion, with the keyboard of a desktop program: Alt alone marks the first menu of the bar (a
// letter or an arrow then opens one), and the focus mark shows on whatever control has the focus.
class DesktopStyle : public QProxyStyle {
public:
    using QProxyStyle::QProxyStyle;
    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* returnData) const override {
        if (hint == SH_MenuBar_AltKeyNavigation) return 1;
        return QProxyStyle::styleHint(hint, option, widget, returnData);
    }
};

} // namespace

void ApplyLook(QApplication& app) {
    if (QStyle* fusion = QStyleFactory::create(QStringLiteral("Fusion")))
        app.setStyle(new DesktopStyle(fusion));
    QFont font(QStringLiteral("DejaVu Sans"));
    font.setStyleHint(QFont::SansSerif);
    font.setPointSize(10);
    app.setFont(font);
}

} // namespace corvane::desktop
