#include "desktop/DesktopTest.h"
#include "desktop/KeyTranslation.h"
#include "desktop/QtReportPrinter.h"
#include "reports/preview/PrinterCheck.h"
#include "ui/WaitCursor.h"

#include "core/Exception.h"
#include "support/CompanyFixture.h"

#include <QClipboard>
#include <QElapsedTimer>
#include <QGuiApplication>
#include <QPrinterInfo>
#include <QThread>

#include <filesystem>
#include <fstream>
#include <sstream>

namespace corvane::testing {
namespace {

using DesktopServicesTest = DesktopTest;

TEST_F(DesktopServicesTest, TheClipboardIsTheSystemsOne) {
    services.SetClipboardText("V00042");
    EXPECT_EQ(QGuiApplication::clipboard()->text(), "V00042");
    QGuiApplication::clipboard()->setText("from elsewhere");
    EXPECT_EQ(services.ClipboardText(), "from elsewhere");
}

TEST_F(DesktopServicesTest, TimersFireAsEventsUntilStopped) {
    int ticks = 0, once = 0;
    ui::TimerId repeating = app.StartTimer(5, true, [&] { ++ticks; });
    app.StartTimer(5, false, [&] { ++once; });
    QElapsedTimer clock;
    clock.start();
    while (ticks < 3 && clock.elapsed() < 2000)
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, 20);
    EXPECT_GE(ticks, 3);
    EXPECT_EQ(once, 1);
    app.StopTimer(repeating);
    int stoppedAt = ticks;
    clock.restart();
    while (clock.elapsed() < 60)
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, 20);
    EXPECT_EQ(ticks, stoppedAt);
}

TEST_F(DesktopServicesTest, TheWaitCursorIsOnWhileAnyUserHoldsIt) {
    {
        ui::WaitCursor outer(app);
        {
            ui::WaitCursor inner(app);
            ASSERT_NE(QGuiApplication::overrideCursor(), nullptr);
            EXPECT_EQ(QGuiApplication::overrideCursor()->shape(), Qt::WaitCursor);
        }
        EXPECT_NE(QGuiApplication::overrideCursor(), nullptr);
    }
    EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
}

// The desktop's mail program is reached through xdg-email: a stand-in on the PATH writes down
// what it was given, one argument a line.
TEST_F(DesktopServicesTest, AFileIsMailedThroughXdgEmail) {
    TempFolder folder;
    const std::string log = folder.Path() + "/arguments";
    const std::string fake = folder.Path() + "/xdg-email";
    {
        std::ofstream script(fake);
        // Written aside and moved in whole, so the test never reads half of it.
        script << "#!/bin/sh\nfor a in \"$@\"; do echo \"$a\"; done > '" << log << ".part' && mv '"
               << log << ".part' '" << log << "'\n";
    }
    std::filesystem::permissions(fake, std::filesystem::perms::owner_all);
    const std::string attachment = folder.Path() + "/Invoice 1042.pdf";
    std::ofstream(attachment) << "%PDF-";
    const QByteArray path = qgetenv("PATH");
    qputenv("PATH", QByteArray::fromStdString(folder.Path()) + ":" + path);
    services.MailFile("ap@example.com", "Invoice 1042 \xE2\x80\x93 \xC5\x81\xC3\xB3\x64\xC5\xBA",
                      "Please see attachment.", attachment);
    EXPECT_THROW(services.MailFile("", "Missing", "", folder.Path() + "/nothing.pdf"),
                 corvane::Exception);
    qputenv("PATH", path);

    std::string arguments;
    for (int wait = 0; wait < 200 && arguments.empty(); ++wait) {
        QThread::msleep(10);
        std::ifstream in(log);
        std::stringstream text;
        text << in.rdbuf();
        arguments = text.str();
    }
    EXPECT_EQ(arguments,
              "--utf8\n--subject\nInvoice 1042 \xE2\x80\x93 \xC5\x81\xC3\xB3\x64\xC5\xBA\n"
              "--body\nPlease see attachment.\n--attach\n" +
                  attachment + "\nap@example.com\n");
}

TEST(KeyTranslationTest, QtKeysBecomeTheFormsKeysAndCharacters) {
    using desktop::TranslateKey;
    QKeyEvent a(QEvent::KeyPress, Qt::Key_A, Qt::NoModifier, "a");
    EXPECT_EQ(TranslateKey(a).Stroke, ui::KeyStroke(ui::Key('A')));
    EXPECT_EQ(TranslateKey(a).Char, 'a');
    QKeyEvent bang(QEvent::KeyPress, Qt::Key_Exclam, Qt::ShiftModifier, "!");
    EXPECT_EQ(TranslateKey(bang).Char, '!');
    QKeyEvent backtab(QEvent::KeyPress, Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_EQ(TranslateKey(backtab).Stroke, ui::Shift(ui::Key::Tab));
    QKeyEvent ctrlDel(QEvent::KeyPress, Qt::Key_Delete, Qt::ControlModifier);
    EXPECT_EQ(TranslateKey(ctrlDel).Stroke, ui::Ctrl(ui::Key::Delete));
    EXPECT_EQ(TranslateKey(ctrlDel).Char, 0);
    QKeyEvent f5(QEvent::KeyPress, Qt::Key_F5, Qt::NoModifier);
    EXPECT_EQ(TranslateKey(f5).Stroke, ui::KeyStroke(ui::Key::F5));
    QKeyEvent enter(QEvent::KeyPress, Qt::Key_Enter, Qt::KeypadModifier, "\r");
    EXPECT_EQ(TranslateKey(enter).Stroke.Code, ui::Key::Enter);
    EXPECT_EQ(TranslateKey(enter).Char, '\r');
}

TEST(KeyTranslationTest, TextBoxesKeepEditingKeysAndLeaveTheRestToTheForm) {
    using desktop::IsFormKey;
    auto key = [](int k, Qt::KeyboardModifiers mods = Qt::NoModifier) {
        return QKeyEvent(QEvent::KeyPress, k, mods);
    };
    EXPECT_TRUE(IsFormKey(key(Qt::Key_Tab), false));
    EXPECT_TRUE(IsFormKey(key(Qt::Key_Escape), true));
    EXPECT_TRUE(IsFormKey(key(Qt::Key_F2), false));
    EXPECT_TRUE(IsFormKey(key(Qt::Key_Return), false));
    EXPECT_FALSE(IsFormKey(key(Qt::Key_Return), true)); // a memo's line break
    EXPECT_TRUE(IsFormKey(key(Qt::Key_F, Qt::ControlModifier), false));
    EXPECT_FALSE(IsFormKey(key(Qt::Key_C, Qt::ControlModifier), false));
    EXPECT_FALSE(IsFormKey(key(Qt::Key_V, Qt::ControlModifier), false));
    EXPECT_FALSE(IsFormKey(key(Qt::Key_F, Qt::AltModifier), false)); // the menu's accelerator
    EXPECT_FALSE(IsFormKey(key(Qt::Key_Left), false));
    EXPECT_FALSE(IsFormKey(key(Qt::Key_Backspace), false));
}

// Printing to a PDF file is always there in the print dialog: a machine without a printer of
// its own still previews at once, without the question whether a printer is installed.
TEST_F(DesktopServicesTest, APdfFileCountsAsAPrinter) {
    if (QPrinterInfo::defaultPrinterName().isEmpty())
        EXPECT_EQ(services.DefaultPrinter(), desktop::QtReportPrinter::FilePrinterName);
    else
        EXPECT_EQ(services.DefaultPrinter(), QPrinterInfo::defaultPrinterName().toStdString());
    AnswerBoxes("No");
    EXPECT_TRUE(reports::PrinterCheck(app));
    EXPECT_TRUE(messages.empty());
}

} // namespace
} // namespace corvane::testing
