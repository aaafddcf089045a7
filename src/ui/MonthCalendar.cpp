#include "ui/MonthCalendar.h"

#include "core/DateEntry.h"

namespace corvane::ui {

MonthCalendar::MonthCalendar(Form& form, std::string name)
    : Control(form, std::move(name)), date_(corvane::Date::Today()) {}

void MonthCalendar::SetDate(corvane::Date date) {
    if (date == date_) return;
    date_ = date;
    if (OnChange) OnChange();
}

corvane::Date MonthCalendar::MonthStart() const {
    return date_.AddDays(1 - date_.Day());
}

void MonthCalendar::MoveMonths(int months) {
    SetDate(date_.AddMonths(months));
}

void MonthCalendar::ClickDay(corvane::Date date) {
    if (!Enabled || !Showing()) return;
    if (CanFocus() && !Focused()) SetFocus();
    SetDate(date);
    if (OnDayClick) OnDayClick();
}

std::string MonthCalendar::Text() const {
    return DateToStr(date_);
}

// Enter and Escape are left to the form, whose OK and Cancel buttons take them.
void MonthCalendar::KeyDown(Key& key, Modifiers mods) {
    if (mods.Alt) return;
    switch (key) {
    case Key::Left:
        mods.Ctrl ? MoveMonths(-1) : SetDate(date_.AddDays(-1));
        break;
    case Key::Right:
        mods.Ctrl ? MoveMonths(1) : SetDate(date_.AddDays(1));
        break;
    case Key::Up:
        SetDate(date_.AddDays(-7));
        break;
    case Key::Down:
        SetDate(date_.AddDays(7));
        break;
    case Key::PageUp:
        MoveMonths(-1);
        break;
    case Key::PageDown:
        MoveMonths(1);
        break;
    default:
        return;
    }
    key = Key::None;
}

} // namespace corvane::ui
