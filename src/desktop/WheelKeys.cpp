#include "desktop/WheelKeys.h"

#include "desktop/FormWindow.h"

#include <QApplication>
#include <QWheelEvent>

namespace corvane::desktop {

WheelKeys::WheelKeys() {
    if (QCoreApplication* app = QCoreApplication::instance()) app->installEventFilter(this);
}

WheelKeys::~WheelKeys() {
    if (QCoreApplication* app = QCoreApplication::instance()) app->removeEventFilter(this);
}

bool WheelKeys::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() != QEvent::Wheel || !watched->isWidgetType())
        return QObject::eventFilter(watched, event);
    auto* window = dynamic_cast<FormWindow*>(static_cast<QWidget*>(watched)->window());
    if (!window) return QObject::eventFilter(watched, event);
    auto* wheel = static_cast<QWheelEvent*>(event);
    // Pixel deltas come from touch pads, angle deltas from wheels; either tells the direction.
    int turn = wheel->angleDelta().y();
    if (turn == 0) turn = wheel->pixelDelta().y();
    // A sideways turn has no row to move to; it is taken all the same, so no view scrolls by
    // pixels behind the form's back.
    if (turn != 0) window->WheelTurned(turn < 0);
    return true;
}

} // namespace corvane::desktop
