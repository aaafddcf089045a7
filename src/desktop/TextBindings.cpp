#include "desktop/TextBindings.h"

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
#include <QStyle>
#include <QStyleOptionFrame>
#include <QTextCursor>
#include <QToolButton>

#include <climits>

namespace corvane::desktop {

namespace {

QString Q(const std::string& text) {
    return QString::fromStdString(text);
}

// Positions in the control count bytes of UTF-8; those of a Qt box count UTF-16 units.
int QtPosition(const std::string& text, int bytes) {
    return static_cast<int>(QString::fromUtf8(text.data(), bytes).size());
}

int BytePosition(const QString& text, int position) {
    return static_cast<int>(text.left(position).toUtf8().size());
}

// Shows the control's text, caret and selection in the line edit.
void ShowText(QLineEdit& line, const ui::CustomEdit& edit) {
    std::string text = edit.Text();
    QString shown = Q(text);
    if (line.text() != shown) line.setText(shown);
    int start = edit.SelStart(), end = edit.SelStart() + edit.SelLength();
    int caretBytes = edit.CaretPos();
    int anchorBytes = caretBytes == start ? end : start;
    int caret = QtPosition(text, caretBytes), anchor = QtPosition(text, anchorBytes);
    if (anchor == caret) {
        if (line.hasSelectedText() || line.cursorPosition() != caret) line.setCursorPosition(caret);
        return;
    }
    int lineStart = line.selectionStart();
    int lineEnd = lineStart + static_cast<int>(line.selectedText().size());
    if (lineStart != std::min(anchor, caret) || lineEnd != std::max(anchor, caret) ||
        line.cursorPosition() != caret)
        line.setSelection(anchor, caret - anchor);
}

} // namespace

// ----- edit

EditBinding::EditBinding(FormWindow& window, ui::CustomEdit& edit, QLineEdit* line, QWidget* outer)
    : ControlBinding(window, edit), edit_(edit), line_(line), outer_(outer ? outer : line) {
    QObject::connect(line_, &QLineEdit::textEdited, [this](const QString& text) {
        UserEvent([this, next = text.toStdString()] { FeedTypedText(edit_, next); });
    });
    // A click or a key the box handles itself moves the caret: the control follows. No handler
    // of the form runs on that, so it is no event.
    auto follow = [this] {
        if (Window().Opening()) return;
        QString text = line_->text();
        if (text.toStdString() != edit_.Text()) return; // a typed change arrives on its own
        int caret = line_->cursorPosition();
        int anchor = caret;
        if (line_->hasSelectedText()) {
            int start = line_->selectionStart();
            int end = start + static_cast<int>(line_->selectedText().size());
            anchor = caret == start ? end : start;
        }
        edit_.Select(BytePosition(text, anchor), BytePosition(text, caret));
    };
    QObject::connect(line_, &QLineEdit::cursorPositionChanged, follow);
    QObject::connect(line_, &QLineEdit::selectionChanged, follow);
}

QWidget* EditBinding::FocusWidget() const {
    return line_;
}

void EditBinding::PullState() {
    line_->setReadOnly(edit_.IsReadOnly());
    auto echo = edit_.PasswordChar ? QLineEdit::Password : QLineEdit::Normal;
    if (line_->echoMode() != echo) line_->setEchoMode(echo);
    // A new limit makes the box set its text again, which moves its caret: set it first, and only
    // when it changed.
    int maxLength = edit_.MaxLength > 0 ? edit_.MaxLength : 32767;
    if (line_->maxLength() != maxLength) line_->setMaxLength(maxLength);
    const Qt::Alignment alignment =
        (edit_.RightAligned() ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter;
    if (line_->alignment() != alignment) line_->setAlignment(alignment);
    if (edit_.ShownChars > 0 && shownChars_ != edit_.ShownChars) {
        // Sized in the box's own font, so that a name of the longest length the field holds
        // shows whole: the advance of a lower-case 'n' stands for an average letter.
        shownChars_ = edit_.ShownChars;
        QStyleOptionFrame frame;
        frame.initFrom(line_);
        const QSize text(line_->fontMetrics().horizontalAdvance(QString(shownChars_, u'n')),
                         line_->fontMetrics().height());
        const QSize box =
            line_->style()->sizeFromContents(QStyle::CT_LineEdit, &frame, text, line_);
        line_->setMinimumWidth(box.width() + 2 * 2);
    }
    ShowText(*line_, edit_);
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
    // The form's own handler, or the shared calendar form shown as a window of its own.
    date_.ClickButton();
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
    const std::string text = memo_.Text();
    QString shown = Q(text);
    if (text_->toPlainText() != shown) {
        // Text the program puts in (a pop-up seeded with the key that opened it) keeps the
        // caret where the program left it, so the person's typing goes on from there.
        text_->setPlainText(shown);
        QTextCursor cursor = text_->textCursor();
        cursor.setPosition(QtPosition(text, memo_.CaretPos()));
        text_->setTextCursor(cursor);
    }
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
    // A word in place of a number ("<All>") shows as Qt's special text, one below the range.
    const bool word = limited && !spin_.ShowsNumber();
    box_->setSpecialValueText(word ? Q(spin_.Text()) : QString());
    box_->setRange(limited ? spin_.MinValue - (word ? 1 : 0) : INT_MIN,
                   limited ? spin_.MaxValue : INT_MAX);
    box_->setSingleStep(spin_.Increment);
    box_->setReadOnly(spin_.IsReadOnly());
    const int shown = word ? box_->minimum() : spin_.Value();
    if (box_->value() != shown) box_->setValue(shown);
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
