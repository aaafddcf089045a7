#pragma once

#include "desktop/FormWindow.h"
#include "desktop/QtDesktopServices.h"
#include "desktop/QtDialogs.h"
#include "desktop/QtHost.h"
#include "support/CompanyFixture.h"
#include "ui/Application.h"

#include <QAbstractButton>
#include <QApplication>
#include <QKeyEvent>
#include <QMessageBox>
#include <QTimer>

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace corvane::testing {

// A company and the program with the Qt host, its windows offscreen.
class DesktopTest : public CompanyTest {
protected:
    desktop::QtHost host;
    desktop::QtDialogs dialogs;
    desktop::QtDesktopServices services;
    ui::Application app{host, dialogs, services};
    // What each message box said, answered by clicking the button captioned answer.
    std::vector<std::string> messages;

    void AnswerBoxes(const std::string& answer) {
        dialogs.BeforeShow = [this, answer](QMessageBox& box) {
            messages.push_back(box.text().toStdString());
            QTimer::singleShot(0, &box, [&box, answer] {
                for (QAbstractButton* b : box.buttons())
                    if (QString(b->text()).remove('&').toStdString() == answer) return b->click();
                box.reject();
            });
        };
    }

    template <class W> W* Widget(desktop::FormWindow& window, const char* name) {
        return qobject_cast<W*>(window.WidgetOf(name));
    }

    static void Key(QWidget* target, int key, const QString& text = {},
                    Qt::KeyboardModifiers mods = Qt::NoModifier) {
        QKeyEvent press(QEvent::KeyPress, key, mods, text);
        QApplication::sendEvent(target, &press);
    }
    static void Type(QWidget* target, const std::string& text) {
        for (char ch : text) {
            int key = ch >= 'a' && ch <= 'z'   ? Qt::Key_A + (ch - 'a')
                      : ch >= 'A' && ch <= 'Z' ? Qt::Key_A + (ch - 'A')
                                               : static_cast<int>(ch);
            Key(target, key, QString(QChar(ch)));
        }
    }
};

} // namespace corvane::testing
