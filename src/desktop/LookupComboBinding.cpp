#include "desktop/LookupComboBinding.h"

#include "desktop/FormWindow.h"
#include "ui/DBLookupComboBox.h"

#include <QComboBox>
#include <QKeyEvent>
#include <QSignalBlocker>

#include <functional>

namespace corvane::desktop {

// A combo that says when its list is about to open.
class LookupComboBox : public QComboBox {
public:
    std::function<void()> BeforePopup;
    void showPopup() override {
        if (BeforePopup) BeforePopup();
        QComboBox::showPopup();
    }
};

LookupComboBinding::LookupComboBinding(FormWindow& window, ui::DBLookupComboBox& combo)
    : ControlBinding(window, combo), combo_(combo), box_(new LookupComboBox) {
    box_->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    box_->setMinimumContentsLength(16);
    box_->BeforePopup = [this] { FillList(); };
    QObject::connect(box_, &QComboBox::activated, [this](int index) {
        UserEvent([this, text = box_->itemText(index).toStdString()] {
            if (!ClickInto()) return;
            if (text != combo_.Text()) combo_.Choose(text);
        });
    });
}

QWidget* LookupComboBinding::Widget() const {
    return box_;
}

bool LookupComboBinding::RoutesKey(const QKeyEvent& event) const {
    // Delete clears the choice, as the control decides.
    if (event.key() == Qt::Key_Delete) return true;
    return ControlBinding::RoutesKey(event);
}

void LookupComboBinding::FillList() {
    QSignalBlocker block(box_);
    ui::RowWindow rows;
    try {
        rows = combo_.ListRows(ListReach, ListReach);
    } catch (const std::exception&) {
        // A list that cannot be read shows the choice alone.
    }
    box_->clear();
    int current = -1;
    for (std::size_t i = 0; i < rows.Rows.size(); ++i) {
        QString text =
            QString::fromStdString(rows.Rows[i].empty() ? std::string() : rows.Rows[i][0]);
        box_->addItem(text);
        if (text.toStdString() == combo_.Text()) current = static_cast<int>(i);
    }
    box_->setCurrentIndex(current);
}

void LookupComboBinding::PullState() {
    QString chosen = QString::fromStdString(combo_.Text());
    if (box_->currentText() == chosen) return;
    int at = box_->findText(chosen);
    if (at < 0) {
        box_->clear();
        if (!chosen.isEmpty()) box_->addItem(chosen);
        at = chosen.isEmpty() ? -1 : 0;
    }
    box_->setCurrentIndex(at);
}

} // namespace corvane::desktop
