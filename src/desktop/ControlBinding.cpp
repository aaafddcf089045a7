#include "desktop/ControlBinding.h"

#include "desktop/FormWindow.h"
#include "desktop/KeyTranslation.h"
#include "ui/Control.h"

#include <QFont>
#include <QPalette>
#include <QSignalBlocker>
#include <QWidget>

namespace corvane::desktop {

void ControlBinding::Pull() {
    QSignalBlocker block(Widget());
    QSignalBlocker blockFocus(FocusWidget());
    if (Widget()->isHidden() == control_.Visible) Widget()->setHidden(!control_.Visible);
    if (Widget()->isEnabled() != control_.Enabled) Widget()->setEnabled(control_.Enabled);
    PullAlert();
    PullState();
}

void ControlBinding::PullAlert() {
    QWidget* w = Widget();
    if (w->property("corvaneAlert").toBool() == control_.Alert) return;
    w->setProperty("corvaneAlert", control_.Alert);
    QFont font = w->font();
    font.setBold(control_.Alert);
    w->setFont(font);
    QPalette palette = w->palette();
    if (control_.Alert) {
        palette.setColor(QPalette::Text, Qt::red);
        palette.setColor(QPalette::WindowText, Qt::red);
    } else {
        palette = w->parentWidget() ? w->parentWidget()->palette() : QPalette();
    }
    w->setPalette(palette);
}

bool ControlBinding::RoutesKey(const QKeyEvent& event) const {
    return IsFormKey(event, false);
}

void ControlBinding::UserEvent(const std::function<void()>& act) const {
    window_.UserEvent(act);
}

bool ControlBinding::ClickInto() const {
    if (control_.Focused()) return true;
    if (!control_.CanFocus()) return false;
    control_.SetFocus();
    return control_.Focused();
}

} // namespace corvane::desktop
