#include "desktop/DesktopTest.h"
#include "desktop/FormWindow.h"
#include "ui/DateEdit.h"
#include "ui/Form.h"
#include "ui/TfrmCalendar.h"

#include <QCalendarWidget>
#include <QLabel>
#include <QLineEdit>
#include <QToolButton>

#include <functional>

namespace corvane::testing {
namespace {

class DueDateForm : public ui::Form {
public:
    explicit DueDateForm(ui::Application& app) : Form(app, "frmDueDate") {
        Caption = "Due date";
        SetLayout(ui::Column{ui::FormRow{"Due", dateDue}});
    }
    ui::DateEdit dateDue{*this, "dateDue"};
};

class CalendarWindowTest : public DesktopTest {
protected:
    void SetUp() override {
        DesktopTest::SetUp();
        form = &app.CreateForm<DueDateForm>();
        form->Show();
        window = host.WindowOf(*form);
        ASSERT_NE(window, nullptr);
        line = window->WidgetOf("dateDue")->findChild<QLineEdit*>();
        button = window->WidgetOf("dateDue")->findChild<QToolButton*>();
        ASSERT_NE(line, nullptr);
        ASSERT_NE(button, nullptr);
    }

    // Clicks the calendar button; inside the calendar's modal loop, act runs with its window.
    void OpenCalendar(const std::function<void(desktop::FormWindow&)>& act) {
        bool ran = false;
        QTimer::singleShot(0, [&] {
            desktop::FormWindow* cal = host.WindowOf("frmCalendar");
            ASSERT_NE(cal, nullptr);
            ran = true;
            act(*cal);
            // Whatever the act did, the modal loop must end for the test to go on.
            if (cal->isVisible()) cal->Form().Close();
        });
        button->click();
        EXPECT_TRUE(ran);
    }

    static QCalendarWidget* Days(desktop::FormWindow& cal) {
        return qobject_cast<QCalendarWidget*>(cal.WidgetOf("calMonth"));
    }
    static QString Title(desktop::FormWindow& cal) {
        auto* label = qobject_cast<QLabel*>(cal.WidgetOf("lblMonth"));
        return label ? label->text() : QString();
    }

    DueDateForm* form = nullptr;
    desktop::FormWindow* window = nullptr;
    QLineEdit* line = nullptr;
    QToolButton* button = nullptr;
};

TEST_F(CalendarWindowTest, TheCalendarFormIsAWindowWhoseKeysWalkTheDays) {
    form->dateDue.SetText("1/31/2017");
    QDate shown, afterRight, afterCtrlRight;
    QString title, titleAfter;
    bool modal = false;
    OpenCalendar([&](desktop::FormWindow& cal) {
        modal = cal.isModal();
        QCalendarWidget* days = Days(cal);
        ASSERT_NE(days, nullptr);
        shown = days->selectedDate();
        title = Title(cal);
        QWidget* keys = days->focusProxy() ? days->focusProxy() : days;
        Key(keys, Qt::Key_Right);
        afterRight = days->selectedDate();
        Key(keys, Qt::Key_Right, {}, Qt::ControlModifier);
        afterCtrlRight = days->selectedDate();
        titleAfter = Title(cal);
        EXPECT_EQ(days->monthShown(), 3);
        Key(keys, Qt::Key_Return);
    });
    EXPECT_TRUE(modal);
    EXPECT_EQ(shown, QDate(2017, 1, 31));
    EXPECT_EQ(title, "January, 2017");
    EXPECT_EQ(afterRight, QDate(2017, 2, 1));
    EXPECT_EQ(afterCtrlRight, QDate(2017, 3, 1));
    EXPECT_EQ(titleAfter, "March, 2017");
    EXPECT_EQ(form->dateDue.Text(), "3/1/2017");
    EXPECT_EQ(line->text(), "3/1/2017");
    EXPECT_FALSE(host.WindowOf("frmCalendar")->isVisible());
}

TEST_F(CalendarWindowTest, AClickedDayIsTakenAndEscapeTakesNothing) {
    form->dateDue.SetText("5/2/2017");
    OpenCalendar([&](desktop::FormWindow& cal) { emit Days(cal)->clicked(QDate(2017, 5, 19)); });
    EXPECT_EQ(form->dateDue.Text(), "5/19/2017");

    OpenCalendar([&](desktop::FormWindow& cal) {
        QCalendarWidget* days = Days(cal);
        // Opened again, the one calendar form shows the field's new date.
        EXPECT_EQ(days->selectedDate(), QDate(2017, 5, 19));
        QWidget* keys = days->focusProxy() ? days->focusProxy() : days;
        Key(keys, Qt::Key_Down);
        Key(keys, Qt::Key_Escape);
    });
    EXPECT_EQ(form->dateDue.Text(), "5/19/2017");
    EXPECT_EQ(app.FindForm("frmCalendar"), &app.SingleForm<ui::TfrmCalendar>());
}

} // namespace
} // namespace corvane::testing
