#include "desktop/QtDialogs.h"

#include <QApplication>
#include <QMessageBox>
#include <QPushButton>

#include <vector>

namespace corvane::desktop {

namespace {

QMessageBox::StandardButton StandardOf(ui::MsgButton button) {
    switch (button) {
    case ui::mbYes:
        return QMessageBox::Yes;
    case ui::mbNo:
        return QMessageBox::No;
    case ui::mbOK:
        return QMessageBox::Ok;
    case ui::mbCancel:
        return QMessageBox::Cancel;
    case ui::mbAbort:
        return QMessageBox::Abort;
    case ui::mbRetry:
        return QMessageBox::Retry;
    case ui::mbIgnore:
        return QMessageBox::Ignore;
    case ui::mbAll:
        return QMessageBox::YesToAll;
    }
    return QMessageBox::Ok;
}

QMessageBox::Icon IconOf(ui::MsgType type) {
    switch (type) {
    case ui::MsgType::Information:
        return QMessageBox::Information;
    case ui::MsgType::Warning:
        return QMessageBox::Warning;
    case ui::MsgType::Error:
        return QMessageBox::Critical;
    case ui::MsgType::Confirmation:
        return QMessageBox::Question;
    case ui::MsgType::Plain:
        break;
    }
    return QMessageBox::NoIcon;
}

// The caption with its mnemonic, so that Alt and the letter press the button (OK and Cancel are
// Enter and Escape).
QString MnemonicCaption(ui::MsgButton button) {
    switch (button) {
    case ui::mbYes:
        return "&Yes";
    case ui::mbNo:
        return "&No";
    case ui::mbAbort:
        return "&Abort";
    case ui::mbRetry:
        return "&Retry";
    case ui::mbIgnore:
        return "&Ignore";
    case ui::mbAll:
        return "A&ll";
    default:
        return QString::fromStdString(ui::ButtonCaption(button));
    }
}

// Closing the box by its close button or Escape answers as the most cautious button does.
ui::MsgButton EscapeAnswer(const ui::MsgButtons& buttons) {
    for (ui::MsgButton b : {ui::mbCancel, ui::mbNo, ui::mbAbort, ui::mbOK})
        if (buttons.Has(b)) return b;
    return buttons.List().front();
}

} // namespace

ui::MsgButton QtDialogs::Show(const ui::Message& message) {
    QMessageBox box(IconOf(message.Type), QString::fromStdString(message.Title),
                    QString::fromStdString(message.Text), QMessageBox::NoButton,
                    QApplication::activeWindow());
    std::vector<std::pair<QAbstractButton*, ui::MsgButton>> buttons;
    for (ui::MsgButton b : message.Buttons.List()) {
        QPushButton* button = box.addButton(StandardOf(b));
        button->setText(MnemonicCaption(b));
        buttons.emplace_back(button, b);
        if (b == message.DefaultButton) box.setDefaultButton(button);
    }
    ui::MsgButton escape = EscapeAnswer(message.Buttons);
    for (auto& [button, b] : buttons)
        if (b == escape) box.setEscapeButton(button);
    if (BeforeShow) BeforeShow(box);
    box.exec();
    for (auto& [button, b] : buttons)
        if (button == box.clickedButton()) return b;
    return escape;
}

} // namespace corvane::desktop
