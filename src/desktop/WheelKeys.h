#pragma once

#include <QObject>

namespace corvane::desktop {

// Turns the mouse wheel over any window of a form into keys: one Down for a turn towards the
// user, one Up for a turn away, whatever the size of the turn, typed where the form's focus
// is. So grids, lists and edits move by one row per turn, as the keyboard moves them. Wheel
// turns over other windows (menus, open drop-down lists) stay theirs.
class WheelKeys : public QObject {
public:
    // Watches every wheel event of the application.
    WheelKeys();
    ~WheelKeys() override;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
};

} // namespace corvane::desktop
