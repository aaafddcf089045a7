#include "desktop/CalendarPicker.h"

#include <QCalendarWidget>
#include <QDate>
#include <QDialog>
#include <QDialogButtonBox>
#include <QVBoxLayout>

namespace corvane::desktop {

std::optional<Date> PickDate(QWidget* parent, std::optional<Date> start) {
    QDialog dialog(parent);
    dialog.setWindowTitle(QObject::tr("Choose a date"));
    auto* layout = new QVBoxLayout(&dialog);
    auto* calendar = new QCalendarWidget(&dialog);
    calendar->setGridVisible(true);
    if (start) calendar->setSelectedDate(QDate(start->Year(), start->Month(), start->Day()));
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, &dialog);
    layout->addWidget(calendar);
    layout->addWidget(buttons);
    QObject::connect(buttons, &QDialogButtonBox::accepted, &dialog, &QDialog::accept);
    QObject::connect(buttons, &QDialogButtonBox::rejected, &dialog, &QDialog::reject);
    QObject::connect(calendar, &QCalendarWidget::activated, &dialog, &QDialog::accept);
    if (dialog.exec() != QDialog::Accepted) return std::nullopt;
    QDate picked = calendar->selectedDate();
    return Date::FromYmd(picked.year(), picked.month(), picked.day());
}

} // namespace corvane::desktop
