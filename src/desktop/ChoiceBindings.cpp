#include "desktop/ChoiceBindings.h"

#include "desktop/FormWindow.h"
#include "desktop/LinkLabel.h"
#include "ui/Button.h"
#include "ui/Caption.h"
#include "ui/CheckBox.h"
#include "ui/Label.h"
#include "ui/RadioGroup.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QSignalBlocker>

namespace corvane::desktop {

namespace {
QString Q(const std::string& text) {
    return QString::fromStdString(text);
}
} // namespace

// ----- label

LabelBinding::LabelBinding(FormWindow& window, ui::Label& label)
    : ControlBinding(window, label), label_(label), text_(new LinkLabel) {
    // A click on a link label is an event of the form like any other.
    text_->Clicked = [this] { UserEvent([this] { label_.Click(); }); };
}

QWidget* LabelBinding::Widget() const {
    return text_;
}

void LabelBinding::PullState() {
    text_->SetLink(static_cast<bool>(label_.OnClick));
    if (label_.FocusControl) {
        if (ControlBinding* target = Window().BindingOf(*label_.FocusControl))
            text_->setBuddy(target->FocusWidget());
        if (text_->text() != Q(label_.Caption)) text_->setText(Q(label_.Caption));
    } else if (text_->text() != Q(label_.Text())) {
        text_->setText(Q(label_.Text()));
    }
}

// ----- button

ButtonBinding::ButtonBinding(FormWindow& window, ui::Button& button)
    : ControlBinding(window, button), button_(button), push_(new QPushButton) {
    // Enter and Escape are the form's to give to its Default and Cancel buttons.
    push_->setAutoDefault(false);
    push_->setMinimumWidth(88);
    // "..." beside a box opens a look-up: a small button, the box keeps the width.
    if (button.Caption == "...") push_->setFixedWidth(32);
    QObject::connect(push_, &QPushButton::clicked, [this] {
        UserEvent([this] {
            // A field that refuses to be left keeps the focus, and the click does not happen.
            if (button_.CanFocus() && !ClickInto()) return;
            button_.Click();
        });
    });
}

QWidget* ButtonBinding::Widget() const {
    return push_;
}

bool ButtonBinding::RoutesKey(const QKeyEvent& event) const {
    if (event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter) return true;
    return ControlBinding::RoutesKey(event);
}

void ButtonBinding::PullState() {
    if (push_->text() != Q(button_.Caption)) push_->setText(Q(button_.Caption));
    push_->setDefault(button_.Default);
}

// ----- check box

CheckBinding::CheckBinding(FormWindow& window, ui::CheckBox& check)
    : ControlBinding(window, check), check_(check), box_(new QCheckBox) {
    QObject::connect(box_, &QCheckBox::clicked, [this] {
        UserEvent([this] {
            if (!ClickInto()) return;
            check_.Toggle();
        });
    });
}

QWidget* CheckBinding::Widget() const {
    return box_;
}

void CheckBinding::PullState() {
    if (box_->text() != Q(check_.Caption)) box_->setText(Q(check_.Caption));
    box_->setChecked(check_.Checked());
}

// ----- radio group

RadioBinding::RadioBinding(FormWindow& window, ui::RadioGroup& group)
    : ControlBinding(window, group), group_(group), frame_(new QGroupBox(Q(group.Caption))),
      buttons_(new QButtonGroup(frame_)) {
    auto* grid = new QGridLayout(frame_);
    int columns = std::max(group.Columns, 1);
    int rows = (static_cast<int>(group.Items.size()) + columns - 1) / columns;
    for (std::size_t i = 0; i < group.Items.size(); ++i) {
        auto* radio = new QRadioButton(Q(group.Items[i]), frame_);
        radio->setObjectName(Q(group.Name() + "_" + std::to_string(i)));
        int at = static_cast<int>(i);
        grid->addWidget(radio, at % rows, at / rows);
        buttons_->addButton(radio, at);
        radios_.push_back(radio);
        window.Watch(radio, *this);
        QObject::connect(radio, &QRadioButton::clicked, [this, at] {
            UserEvent([this, at] {
                if (!ClickInto()) return;
                group_.Choose(ui::PlainCaption(group_.Items[static_cast<std::size_t>(at)]));
            });
        });
    }
}

QWidget* RadioBinding::Widget() const {
    return frame_;
}

QWidget* RadioBinding::FocusWidget() const {
    for (QRadioButton* r : radios_)
        if (r->isChecked()) return r;
    if (radios_.empty()) return frame_;
    return radios_.front();
}

bool RadioBinding::RoutesKey(const QKeyEvent& event) const {
    switch (event.key()) {
    case Qt::Key_Up:
    case Qt::Key_Down:
    case Qt::Key_Left:
    case Qt::Key_Right:
        return true;
    default:
        return ControlBinding::RoutesKey(event);
    }
}

void RadioBinding::PullState() {
    frame_->setTitle(Q(group_.Caption));
    buttons_->setExclusive(false);
    for (std::size_t i = 0; i < radios_.size(); ++i) {
        QSignalBlocker block(radios_[i]);
        radios_[i]->setChecked(static_cast<int>(i) == group_.ItemIndex());
    }
    buttons_->setExclusive(true);
}

} // namespace corvane::desktop
