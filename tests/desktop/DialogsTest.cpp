#include "desktop/DesktopTest.h"
#include "ui/Button.h"
#include "ui/Edit.h"
#include "ui/Form.h"
#include "ui/Layout.h"

#include <QLineEdit>
#include <QPushButton>

#include <map>

namespace corvane::testing {
namespace {

using DialogsTest = DesktopTest;

TEST_F(DialogsTest, AMessageBoxShowsTheTitleTextAndButtonsAndReturnsTheAnswer) {
    app.Title = "Corvane - Sample";
    QString title;
    QStringList buttons;
    dialogs.BeforeShow = [&](QMessageBox& box) {
        title = box.windowTitle();
        for (QAbstractButton* b : box.buttons())
            buttons << b->text();
        QTimer::singleShot(0, &box, [&box] {
            for (QAbstractButton* b : box.buttons())
                if (b->text() == "&No") b->click();
        });
    };
    ui::MsgButton answer = app.MessageDlg("Delete the vendor?", ui::MsgType::Confirmation,
                                          {ui::mbYes, ui::mbNo, ui::mbCancel});
    EXPECT_EQ(answer, ui::mbNo);
    EXPECT_EQ(title, "Corvane - Sample");
    buttons.sort();
    EXPECT_EQ(buttons, (QStringList{"&No", "&Yes", "Cancel"}));
}

// Alt and the underlined letter press a button of a box, as in every dialog of the system.
TEST_F(DialogsTest, TheButtonsOfABoxHaveMnemonics) {
    std::map<std::string, QKeySequence> keys;
    dialogs.BeforeShow = [&](QMessageBox& box) {
        for (QAbstractButton* b : box.buttons())
            keys[b->text().remove('&').toStdString()] = b->shortcut();
        QTimer::singleShot(0, &box, [&box] { box.close(); });
    };
    app.MessageDlg("Retry?", ui::MsgType::Confirmation, {ui::mbYes, ui::mbNo, ui::mbRetry});
    EXPECT_EQ(keys["Yes"], QKeySequence(Qt::ALT | Qt::Key_Y));
    EXPECT_EQ(keys["No"], QKeySequence(Qt::ALT | Qt::Key_N));
    EXPECT_EQ(keys["Retry"], QKeySequence(Qt::ALT | Qt::Key_R));
}

TEST_F(DialogsTest, ABoxClosedWithoutAButtonAnswersAsItsCautiousButton) {
    dialogs.BeforeShow = [](QMessageBox& box) {
        QTimer::singleShot(0, &box, [&box] { box.close(); });
    };
    EXPECT_EQ(app.MessageDlg("Save?", ui::MsgType::Confirmation, {ui::mbYes, ui::mbNo}), ui::mbNo);
    EXPECT_EQ(app.MessageDlg("Done.", ui::MsgType::Information, {ui::mbOK}), ui::mbOK);
}

// A small dialog, run modally.
class AskForm : public ui::Form {
public:
    explicit AskForm(ui::Application& app) : Form(app, "frmAsk") {
        Caption = "Ask";
        btnOK.ModalResult = ui::mrOK;
        btnCancel.Cancel = true;
        btnCancel.ModalResult = ui::mrCancel;
        SetLayout(ui::Column{ui::FormRow{"Answer", editAnswer}, ui::ButtonRow{btnOK, btnCancel}});
    }
    ui::Edit editAnswer{*this, "editAnswer"};
    ui::Button btnOK{*this, "btnOK", "OK"};
    ui::Button btnCancel{*this, "btnCancel", "Cancel"};
};

TEST_F(DialogsTest, AModalFormRunsUntilItsButtonClosesIt) {
    auto& ask = app.CreateForm<AskForm>();
    bool wasModal = false;
    QTimer::singleShot(0, [&] {
        desktop::FormWindow* w = host.WindowOf(ask);
        ASSERT_NE(w, nullptr);
        wasModal = w->isModal() && w->isVisible();
        Type(Widget<QLineEdit>(*w, "editAnswer"), "yes");
        Widget<QPushButton>(*w, "btnOK")->click();
    });
    EXPECT_EQ(ask.ShowModal(), ui::mrOK);
    EXPECT_TRUE(wasModal);
    EXPECT_EQ(ask.editAnswer.Text(), "yes");
    EXPECT_FALSE(host.WindowOf(ask)->isVisible());

    QTimer::singleShot(
        0, [&] { Key(Widget<QLineEdit>(*host.WindowOf(ask), "editAnswer"), Qt::Key_Escape); });
    EXPECT_EQ(ask.ShowModal(), ui::mrCancel);
}

} // namespace
} // namespace corvane::testing
