#include "desktop/RichEditBinding.h"

#include "desktop/KeyTranslation.h"
#include "ui/RichEdit.h"

#include <QFontDialog>
#include <QTextCharFormat>
#include <QTextEdit>

namespace corvane::desktop {

RichEditBinding::RichEditBinding(FormWindow& window, ui::RichEdit& edit)
    : ControlBinding(window, edit), edit_(&edit), text_(new QTextEdit) {
    text_->setAcceptRichText(true);
    text_->setTabChangesFocus(true);
    QObject::connect(text_, &QTextEdit::textChanged, [this] {
        shown_ = text_->toHtml();
        UserEvent([this, next = shown_.toStdString()] {
            if (!edit_) return;
            if (!edit_->Focused() && edit_->CanFocus()) edit_->SetFocus();
            if (next != edit_->Text()) edit_->SetText(next);
        });
    });
    edit.Formatter = [this](ui::RichEdit::Format format) {
        QTextCharFormat change;
        const QTextCharFormat now = text_->currentCharFormat();
        switch (format) {
        case ui::RichEdit::Format::Bold:
            change.setFontWeight(now.fontWeight() > QFont::Normal ? QFont::Normal : QFont::Bold);
            break;
        case ui::RichEdit::Format::Underline:
            change.setFontUnderline(!now.fontUnderline());
            break;
        case ui::RichEdit::Format::Font: {
            bool chosen = false;
            const QFont font = QFontDialog::getFont(&chosen, now.font(), text_);
            if (!chosen) return;
            change.setFont(font);
            break;
        }
        }
        text_->mergeCurrentCharFormat(change);
    };
    edit.Finder = [this](std::string_view wanted) {
        const QString text =
            QString::fromUtf8(wanted.data(), static_cast<qsizetype>(wanted.size()));
        if (text_->find(text)) return true;
        // Once more from the top.
        QTextCursor cursor = text_->textCursor();
        cursor.movePosition(QTextCursor::Start);
        text_->setTextCursor(cursor);
        return text_->find(text);
    };
}

RichEditBinding::~RichEditBinding() {
    Detach();
}

QWidget* RichEditBinding::Widget() const {
    return text_;
}

bool RichEditBinding::RoutesKey(const QKeyEvent& event) const {
    return IsFormKey(event, true);
}

void RichEditBinding::Detach() {
    if (edit_) {
        edit_->Formatter = nullptr;
        edit_->Finder = nullptr;
    }
    edit_ = nullptr;
}

void RichEditBinding::PullState() {
    if (!edit_) return;
    const QString held = QString::fromStdString(edit_->Text());
    if (held != shown_) {
        // Notes written where no rich text box was (headless, or before) are plain text.
        if (Qt::mightBeRichText(held))
            text_->setHtml(held);
        else
            text_->setPlainText(held);
        shown_ = held;
    }
    text_->setReadOnly(edit_->IsReadOnly());
    text_->setLineWrapMode(edit_->WordWrap ? QTextEdit::WidgetWidth : QTextEdit::NoWrap);
}

} // namespace corvane::desktop
