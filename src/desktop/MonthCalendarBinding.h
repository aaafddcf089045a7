#pragma once

#include "desktop/ControlBinding.h"

class QCalendarWidget;

namespace corvane::ui {
class MonthCalendar;
}

namespace corvane::desktop {

// A month calendar as a QCalendarWidget showing the control's month and selected day. The
// keyboard belongs to the control, which walks the days by its own rules; a click on a day is
// the control's day click. The widget's own month bar stays hidden: the form has its title and
// month buttons.
class MonthCalendarBinding : public ControlBinding {
public:
    MonthCalendarBinding(FormWindow& window, ui::MonthCalendar& month);
    QWidget* Widget() const override;
    QWidget* FocusWidget() const override;
    bool RoutesKey(const QKeyEvent& event) const override;

protected:
    void PullState() override;

private:
    ui::MonthCalendar& month_;
    QCalendarWidget* calendar_;
};

} // namespace corvane::desktop
