#pragma once

#include "core/Date.h"
#include "ui/Control.h"

#include <functional>

namespace corvane::ui {

// One month of days with one of them selected, as a date picker shows it. The arrow keys walk the
// days (Left and Right a day, Up and Down a week, Ctrl with Left and Right a month); the month
// shown is always the selected date's.
class MonthCalendar : public Control {
public:
    MonthCalendar(Form& form, std::string name);

    corvane::Date SelectedDate() const { return date_; }
    // Selects the date as code does: OnChange runs when it differs.
    void SetDate(corvane::Date date);
    // The first day of the month shown.
    corvane::Date MonthStart() const;
    // Moves the selection by whole months; a day the month lacks becomes its last.
    void MoveMonths(int months);

    // A click on a day: it becomes the selection, then OnDayClick runs.
    void ClickDay(corvane::Date date);

    std::function<void()> OnChange;
    std::function<void()> OnDayClick;

    const char* TypeName() const override { return "MonthCalendar"; }
    // The selected date as the user types dates.
    std::string Text() const override;

protected:
    void KeyDown(Key& key, Modifiers mods) override;

private:
    corvane::Date date_;
};

} // namespace corvane::ui
