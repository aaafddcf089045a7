#include "desktop/ControlBinding.h"

#include "desktop/FormWindow.h"
#include "desktop/KeyTranslation.h"
#include "ui/Control.h"

#include <QSignalBlocker>
#include <QWidget>

namespace corvane::desktop {

void ControlBinding::Pull() {
    QSignalBlocker block(Widget());
    QSignalBlocker blockFocus(FocusWidget());
    if (Widget()->isHidden() == control_.Visible) Widget()->setHidden(!control_.Visible);
    if (Widget()->isEnabled() != control_.Enabled) Widget()->setEnabled(control_.Enabled);
    PullState();
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
