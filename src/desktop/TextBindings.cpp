#include "desktop/TextBindings.h"

#include "core/DateEntry.h"
#include "desktop/CalendarPicker.h"
#include "desktop/FormWindow.h"
#include "desktop/KeyTranslation.h"
#include "desktop/TypedText.h"
#include "ui/ComboBox.h"
#include "ui/DateEdit.h"
#include "ui/SpinEdit.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QSpinBox>
#include <QToolButton>

#include <climits>

namespace corvane::desktop {

namespace {

QString Q(const std::string& text) {
    return QString::fromStdString(text);
}

// Replaces the text of a line edit without moving the caret more than the change needs.
void ShowText(QLineEdit& line, const std::string& text) {
    QString shown = Q(text);
    if (line.text() == shown) return;
    int caret = line.cursorPosition();
    line.setText(shown);
    line.setCursorPosition(std::min<int>(caret, static_cast<int>(shown.size())));
}

} // namespace

// ----- edit

EditBinding::EditBinding(FormWindow& window, ui::CustomEdit& edit, QLineEdit* line, QWidget* outer)
    : ControlBinding(window, edit), edit_(edit), line_(line), outer_(outer ? outer : line) {
    QObject::connect(line_, &QLineEdit::textEdited, [this](const QString& text) {
        UserEvent([this, next = text.toStdString()] { FeedTypedText(edit_, next); });
    });
}

QWidget* EditBinding::FocusWidget() const {
    return line_;
}

void EditBinding::PullState() {
    ShowText(*line_, edit_.Text());
    line_->setReadOnly(edit_.IsReadOnly());
    line_->setMaxLength(edit_.MaxLength > 0 ? edit_.MaxLength : 32767);
}

// ----- date edit

DateEditBinding::Parts DateEditBinding::MakeParts() {
    Parts parts;
    parts.Box = new QWidget;
    auto* row = new QHBoxLayout(parts.Box);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(2);
    parts.Line = new QLineEdit(parts.Box);
    parts.Button = new QToolButton(parts.Box);
    parts.Button->setText(QStringLiteral("\u2026"));
    parts.Button->setToolTip(QObject::tr("Calendar"));
    parts.Button->setFocusPolicy(Qt::NoFocus);
    row->addWidget(parts.Line, 1);
    row->addWidget(parts.Button);
    return parts;
}

DateEditBinding::DateEditBinding(FormWindow& window, ui::DateEdit& date)
    : DateEditBinding(window, date, MakeParts()) {}

DateEditBinding::DateEditBinding(FormWindow& window, ui::DateEdit& date, Parts parts)
    : EditBinding(window, date, parts.Line, parts.Box), date_(date), button_(parts.Button) {
    QObject::connect(button_, &QToolButton::clicked,
                     [this] { UserEvent([this] { ButtonClicked(); }); });
}

bool DateEditBinding::RoutesKey(const QKeyEvent& event) const {
    // Alt+Down opens the calendar, as in the form's own key handling.
    if (event.key() == Qt::Key_Down && event.modifiers() == Qt::AltModifier) return true;
    return EditBinding::RoutesKey(event);
}

void DateEditBinding::ButtonClicked() {
    // A form with its own calendar handling keeps it; otherwise the calendar fills the box.
    if (date_.OnButtonClick) return date_.ClickButton();
    if (!date_.Enabled || !date_.Showing() || date_.IsReadOnly()) return;
    date_.SetFocus();
    std::optional<Date> start;
    try {
        if (!date_.Text().empty()) start = ParseEnteredDate(date_.Text());
    } catch (const std::exception&) {
        // Text that is not a date yet opens the calendar on today.
    }
    if (auto picked = PickDate(Widget(), start)) date_.SetText(DateToStr(*picked));
}

// ----- memo

MemoBinding::MemoBinding(FormWindow& window, ui::CustomEdit& memo)
    : ControlBinding(window, memo), memo_(memo), text_(new QPlainTextEdit) {
    text_->setTabChangesFocus(true);
    QObject::connect(text_, &QPlainTextEdit::textChanged, [this] {
        UserEvent([this, next = text_->toPlainText().toStdString()] {
            if (!memo_.Focused() && memo_.CanFocus()) memo_.SetFocus();
            if (next != memo_.Text()) memo_.SetText(next);
        });
    });
}

QWidget* MemoBinding::Widget() const {
    return text_;
}

bool MemoBinding::RoutesKey(const QKeyEvent& event) const {
    return IsFormKey(event, true);
}

void MemoBinding::PullState() {
    QString shown = Q(memo_.Text());
    if (text_->toPlainText() != shown) text_->setPlainText(shown);
    text_->setReadOnly(memo_.IsReadOnly());
}

// ----- spin edit

SpinBinding::SpinBinding(FormWindow& window, ui::SpinEdit& spin)
    : ControlBinding(window, spin), spin_(spin), box_(new QSpinBox) {
    QObject::connect(box_, &QSpinBox::valueChanged, [this](int value) {
        UserEvent([this, value] {
            if (!spin_.Focused() && spin_.CanFocus()) spin_.SetFocus();
            if (!spin_.IsReadOnly()) spin_.SetValue(value);
        });
    });
}

QWidget* SpinBinding::Widget() const {
    return box_;
}

bool SpinBinding::RoutesKey(const QKeyEvent& event) const {
    // The steps are the control's: it knows its increment and limits.
    if (event.key() == Qt::Key_Up || event.key() == Qt::Key_Down) return true;
    return ControlBinding::RoutesKey(event);
}

void SpinBinding::PullState() {
    bool limited = spin_.MinValue != 0 || spin_.MaxValue != 0;
    box_->setRange(limited ? spin_.MinValue : INT_MIN, limited ? spin_.MaxValue : INT_MAX);
    box_->setSingleStep(spin_.Increment);
    box_->setReadOnly(spin_.IsReadOnly());
    if (box_->value() != spin_.Value()) box_->setValue(spin_.Value());
}

// ----- combo box

ComboBinding::ComboBinding(FormWindow& window, ui::ComboBox& combo)
    : ControlBinding(window, combo), combo_(combo), box_(new QComboBox) {
    box_->setEditable(combo.Style == ui::ComboStyle::DropDown);
    box_->setInsertPolicy(QComboBox::NoInsert);
    QObject::connect(box_, &QComboBox::activated, [this](int index) {
        UserEvent([this, index] {
            if (!ClickInto()) return;
            if (index >= 0 && index < static_cast<int>(combo_.Items.size()))
                combo_.Choose(combo_.Items[static_cast<std::size_t>(index)]);
        });
    });
    if (QLineEdit* line = box_->lineEdit())
        QObject::connect(line, &QLineEdit::textEdited, [this](const QString& text) {
            UserEvent([this, next = text.toStdString()] { FeedTypedText(combo_, next); });
        });
}

QWidget* ComboBinding::Widget() const {
    return box_;
}

void ComboBinding::PullState() {
    QStringList items;
    for (const auto& item : combo_.Items)
        items << Q(item);
    QStringList shown;
    for (int i = 0; i < box_->count(); ++i)
        shown << box_->itemText(i);
    if (shown != items) {
        box_->clear();
        box_->addItems(items);
    }
    if (box_->isEditable()) {
        if (box_->currentText() != Q(combo_.Text())) box_->setEditText(Q(combo_.Text()));
    } else {
        box_->setCurrentIndex(combo_.ItemIndex());
    }
}

} // namespace corvane::desktop
