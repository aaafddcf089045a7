#include "desktop/MonthCalendarBinding.h"

#include "ui/MonthCalendar.h"

#include <QCalendarWidget>
#include <QDate>

namespace corvane::desktop {

MonthCalendarBinding::MonthCalendarBinding(FormWindow& window, ui::MonthCalendar& month)
    : ControlBinding(window, month), month_(month), calendar_(new QCalendarWidget) {
    calendar_->setGridVisible(true);
    calendar_->setNavigationBarVisible(false);
    calendar_->setVerticalHeaderFormat(QCalendarWidget::NoVerticalHeader);
    calendar_->setFirstDayOfWeek(Qt::Sunday);
    QObject::connect(calendar_, &QCalendarWidget::clicked, [this](QDate day) {
        UserEvent([this, day] {
            if (auto date = Date::TryFromYmd(day.year(), day.month(), day.day()))
                month_.ClickDay(*date);
        });
    });
}

QWidget* MonthCalendarBinding::Widget() const {
    return calendar_;
}

QWidget* MonthCalendarBinding::FocusWidget() const {
    // The days are a view inside the calendar, which hands it the focus.
    QWidget* days = calendar_->focusProxy();
    return days ? days : calendar_;
}

bool MonthCalendarBinding::RoutesKey(const QKeyEvent&) const {
    return true;
}

void MonthCalendarBinding::PullState() {
    Date date = month_.SelectedDate();
    QDate day(date.Year(), date.Month(), date.Day());
    if (calendar_->selectedDate() != day) calendar_->setSelectedDate(day);
    if (calendar_->yearShown() != day.year() || calendar_->monthShown() != day.month())
        calendar_->setCurrentPage(day.year(), day.month());
}

} // namespace corvane::desktop
