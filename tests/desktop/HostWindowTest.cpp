#include "desktop/DemoForm.h"
#include "desktop/DesktopTest.h"
#include "ui/Edit.h"
#include "ui/Form.h"
#include "ui/Layout.h"

#include <QGuiApplication>
#include <QLineEdit>
#include <QMenuBar>
#include <QScreen>
#include <QTableView>
#include <QWheelEvent>

namespace corvane::testing {
namespace {

class LoginForm : public ui::Form {
public:
    explicit LoginForm(ui::Application& app) : Form(app, "frmLogin") {
        Caption = "Login";
        editPassword.PasswordChar = '*';
        SetLayout(ui::Column{ui::FormRow{"User", editUser}, ui::FormRow{"Password", editPassword}});
    }
    ui::Edit editUser{*this, "editUser"};
    ui::Edit editPassword{*this, "editPassword"};
};

class HostWindowTest : public DesktopTest {
protected:
    static void Wheel(QWidget* over, int delta) {
        QPointF at(5, 5);
        QWheelEvent turn(at, over->mapToGlobal(at), QPoint(), QPoint(0, delta), Qt::NoButton,
                         Qt::NoModifier, Qt::NoScrollPhase, false);
        QApplication::sendEvent(over, &turn);
    }
};

TEST_F(HostWindowTest, EachWheelTurnOverAControlMovesTheFocusedGridByOneRow) {
    desktop::AddSampleVendors(db_, 40);
    auto& form = app.CreateForm<desktop::DemoForm>(db_);
    form.Show();
    desktop::FormWindow* window = host.WindowOf(form);
    auto* view = Widget<QTableView>(*window, "grdVendors");
    ASSERT_NE(view, nullptr);
    view->setFocus();
    auto vendor = [&] { return form.tblVendor.FieldByName("VendorNo").AsString(); };
    ASSERT_EQ(vendor(), "V00001");

    // Towards the user is Down, whatever the size of the turn; away is Up.
    Wheel(view->viewport(), -120);
    EXPECT_EQ(vendor(), "V00002");
    Wheel(view->viewport(), -480);
    EXPECT_EQ(vendor(), "V00003");
    Wheel(view->viewport(), 720);
    EXPECT_EQ(vendor(), "V00002");
    EXPECT_EQ(view->currentIndex().row(), 1);
    // A turn over another control of the form moves where the focus is, as a key would.
    Wheel(window->MenuBar(), -120);
    EXPECT_EQ(vendor(), "V00003");
    // A sideways turn moves nothing.
    Wheel(view->viewport(), 0);
    EXPECT_EQ(vendor(), "V00003");
}

TEST_F(HostWindowTest, APasswordBoxHidesWhatIsTyped) {
    auto& form = app.CreateForm<LoginForm>();
    form.Show();
    desktop::FormWindow* window = host.WindowOf(form);
    EXPECT_EQ(Widget<QLineEdit>(*window, "editPassword")->echoMode(), QLineEdit::Password);
    EXPECT_EQ(Widget<QLineEdit>(*window, "editUser")->echoMode(), QLineEdit::Normal);
    app.Run([&] { form.editPassword.PasswordChar = 0; });
    EXPECT_EQ(Widget<QLineEdit>(*window, "editPassword")->echoMode(), QLineEdit::Normal);
}

TEST_F(HostWindowTest, TheScreenAndTheControlsArePlacedAsTheWindowsShowThem) {
    auto& form = app.CreateForm<LoginForm>();
    EXPECT_FALSE(host.ControlRect(form.editUser).has_value());
    form.Show();
    desktop::FormWindow* window = host.WindowOf(form);
    QRect area = QGuiApplication::primaryScreen()->availableGeometry();
    ui::ScreenRect work = host.WorkArea();
    EXPECT_EQ(QRect(work.Left, work.Top, work.Width, work.Height), area);

    QWidget* user = window->WidgetOf("editUser");
    auto rect = host.ControlRect(form.editUser);
    ASSERT_TRUE(rect.has_value());
    EXPECT_EQ(QPoint(rect->Left, rect->Top), user->mapToGlobal(QPoint(0, 0)));
    EXPECT_EQ(QSize(rect->Width, rect->Height), user->size());
    app.Run([&] { form.editUser.Visible = false; });
    EXPECT_FALSE(host.ControlRect(form.editUser).has_value());
}

TEST_F(HostWindowTest, AFormThatChangesItsGeometryAfterItsFirstShowIsFollowed) {
    auto& form = app.CreateForm<LoginForm>();
    form.Left = 20;
    form.Top = 30;
    form.ClientWidth = 500;
    form.ClientHeight = 300;
    form.Show();
    desktop::FormWindow* window = host.WindowOf(form);
    EXPECT_EQ(window->pos(), QPoint(20, 30));
    EXPECT_EQ(window->size(), QSize(500, 300));

    // What the person does to the window is what the form then has.
    window->resize(640, 420);
    window->move(50, 60);
    EXPECT_EQ(form.ClientWidth, 640);
    EXPECT_EQ(form.ClientHeight, 420);
    EXPECT_EQ(form.Left, 50);
    EXPECT_EQ(form.Top, 60);

    // The form going back to its start geometry takes the window with it.
    app.Run([&] {
        form.ClientWidth = 500;
        form.ClientHeight = 300;
        form.Left = 20;
        form.Top = 30;
    });
    EXPECT_EQ(window->size(), QSize(500, 300));
    EXPECT_EQ(window->pos(), QPoint(20, 30));
    // Never smaller than what the content needs.
    app.Run([&] { form.ClientWidth = form.ClientHeight = 10; });
    EXPECT_EQ(window->size(), window->sizeHint().expandedTo(QSize(10, 10)));
    EXPECT_FALSE(window->IsBar());
}

} // namespace
} // namespace corvane::testing
