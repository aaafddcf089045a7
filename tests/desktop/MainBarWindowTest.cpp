#include "desktop/DesktopTest.h"
#include "desktop/LinkLabel.h"
#include "ui/ComboBox.h"
#include "ui/Form.h"
#include "ui/Label.h"
#include "ui/Layout.h"
#include "ui/Menu.h"
#include "ui/MenuItem.h"
#include "ui/ToolBar.h"

#include <QAction>
#include <QComboBox>
#include <QMenu>
#include <QMenuBar>
#include <QMouseEvent>
#include <QToolBar>
#include <QToolButton>

#include <cmath>
#include <memory>
#include <stdexcept>

namespace corvane::testing {
namespace {

// A bar of the main window's shape: menus, a row of tool bar, a choice and a link, and a name
// panel below that opens a sub-menu of File when clicked.
class BarForm : public ui::Form {
public:
    explicit BarForm(ui::Application& app) : Form(app, "frmBar") {
        using namespace ui;
        Caption = "Bar";
        Left = 0;
        Top = 0;
        cboChoice.Items = {"AP", "AR", "Time Billing"};
        cboChoice.SetItemIndex(0);
        lblLink.OnClick = [this] {
            ++linkClicks;
            if (linkFails) throw std::runtime_error("The link failed.");
        };
        txtName.OnClick = [this] { App().GetHost().DropDownMenu(mnuCompanies); };
        SetLayout(Column{Row{tlbMain, cboChoice, lblLink}, txtName});
        app.SetMainForm(*this);
    }

    ui::MainMenu mnuMain{*this};
    ui::MenuItem mnuFile{mnuMain, "mnuFile", "&File"};
    ui::MenuItem mnuAP{mnuFile, "mnuAP", "&AP"};
    ui::MenuItem mnuVendors{mnuAP, "mnuVendors", "&Vendors"};
    ui::MenuItem mnuCompanies{mnuFile, "mnuCompanies", "&Companies"};
    ui::MenuItem mnuNewCompany{mnuCompanies, "mnuNewCompany", "&New Company..."};
    ui::MenuItem mnuExit{mnuFile, "mnuExit", "E&xit"};
    ui::ToolBar tlbMain{*this, "tlbMain"};
    ui::ToolButton btnVendors{tlbMain, "btnVendors", "Vendors"};
    ui::ToolButton btnInvoices{tlbMain, "btnInvoices", "AP Invoices"};
    ui::ToolButton btnReports{tlbMain, "btnReports", "Reports"};
    ui::ComboBox cboChoice{*this, "cboChoice"};
    ui::Label lblLink{*this, "lblLink", "Set up my own company"};
    ui::Label txtName{*this, "txtName", "Acme Consulting"};
    int linkClicks = 0;
    bool linkFails = false;
};

class MainBarWindowTest : public DesktopTest {
protected:
    void SetUp() override {
        DesktopTest::SetUp();
        app.ScaleFactor = 1.25;
        bar = &app.CreateForm<BarForm>();
        bar->Show();
        window = host.WindowOf(*bar);
        ASSERT_NE(window, nullptr);
        tools = Widget<QToolBar>(*window, "tlbMain");
        ASSERT_NE(tools, nullptr);
    }
    // What a handler of the form changes shows after the event, as after a person's act.
    void Event(const std::function<void()>& act) { app.Run(act); }

    QAction* Button(const char* name) { return tools->findChild<QAction*>(name); }

    static void Click(QWidget* widget, QPoint at = {4, 4}) {
        QMouseEvent press(QEvent::MouseButtonPress, at, widget->mapToGlobal(at), Qt::LeftButton,
                          Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(widget, &press);
        QMouseEvent release(QEvent::MouseButtonRelease, at, widget->mapToGlobal(at), Qt::LeftButton,
                            Qt::NoButton, Qt::NoModifier);
        QApplication::sendEvent(widget, &release);
    }

    BarForm* bar = nullptr;
    desktop::FormWindow* window = nullptr;
    QToolBar* tools = nullptr;
};

TEST_F(MainBarWindowTest, TheBarHasAFixedSizeAtTheTopLeftThatFollowsWhatItShows) {
    EXPECT_TRUE(window->IsBar());
    EXPECT_EQ(window->pos(), QPoint(0, 0));
    EXPECT_EQ(window->minimumSize(), window->maximumSize());
    EXPECT_EQ(window->size(), window->minimumSize());
    EXPECT_FALSE(window->windowFlags() & Qt::WindowMaximizeButtonHint);
    // The choice has its own width, scaled; the panel's long text does not widen the bar.
    EXPECT_EQ(Widget<QComboBox>(*window, "cboChoice")->width(), std::lround(150 * 1.25));
    const QSize start = window->size();
    Event([&] { bar->txtName.Caption = std::string(400, 'W'); });
    EXPECT_EQ(window->size(), start);

    // Hiding the panel takes its height off the bar at once, and showing it puts it back.
    Event([&] { bar->txtName.Visible = false; });
    const int panel = start.height() - window->height();
    EXPECT_GE(panel, std::lround(22 * 1.25));
    EXPECT_EQ(window->width(), start.width());
    EXPECT_EQ(window->maximumSize(), window->size());
    Event([&] { bar->txtName.Visible = true; });
    EXPECT_EQ(window->size(), start);

    // Fewer buttons make a narrower bar; the form sees the size it has.
    Event([&] { bar->btnInvoices.OwnVisible = false; });
    EXPECT_LT(window->width(), start.width());
    EXPECT_EQ(window->height(), start.height());
    EXPECT_EQ(bar->ClientWidth, window->width());
    EXPECT_EQ(bar->ClientHeight, window->height());
}

TEST_F(MainBarWindowTest, ToolButtonsShowCaptionsOrIconsWithHintsAndFollowTheirStates) {
    EXPECT_EQ(tools->toolButtonStyle(), Qt::ToolButtonTextOnly);
    EXPECT_EQ(Button("btnInvoices")->text(), "AP Invoices");
    Event([&] {
        bar->btnVendors.OwnEnabled = false;
        bar->btnInvoices.OwnVisible = false;
    });
    EXPECT_FALSE(Button("btnVendors")->isEnabled());
    EXPECT_FALSE(Button("btnInvoices")->isVisible());
    EXPECT_TRUE(Button("btnReports")->isEnabled());

    const int wide = window->width();
    Event([&] {
        bar->tlbMain.ShowCaptions = false;
        bar->btnInvoices.OwnVisible = true;
    });
    EXPECT_EQ(tools->toolButtonStyle(), Qt::ToolButtonIconOnly);
    for (const char* name : {"btnVendors", "btnInvoices", "btnReports"}) {
        EXPECT_FALSE(Button(name)->icon().isNull()) << name;
        EXPECT_EQ(Button(name)->toolTip(), Button(name)->text()) << name;
    }
    // Three icon-sized buttons take less room than two captions.
    EXPECT_LT(window->width(), wide);
    auto* shown = qobject_cast<QToolButton*>(tools->widgetForAction(Button("btnReports")));
    ASSERT_NE(shown, nullptr);
    EXPECT_LE(shown->width(), tools->iconSize().width() + 16);
}

TEST_F(MainBarWindowTest, ALabelWithAClickHandlerIsALinkWhoseClickIsAnEvent) {
    auto* link = Widget<desktop::LinkLabel>(*window, "lblLink");
    ASSERT_NE(link, nullptr);
    EXPECT_TRUE(link->IsLink());
    EXPECT_EQ(link->cursor().shape(), Qt::PointingHandCursor);
    EXPECT_EQ(link->palette().color(QPalette::WindowText), link->palette().color(QPalette::Link));
    Click(link, link->contentsRect().center());
    EXPECT_EQ(bar->linkClicks, 1);

    // What the handler raises is shown like any other message of the program.
    AnswerBoxes("OK");
    bar->linkFails = true;
    Click(link, link->contentsRect().center());
    EXPECT_EQ(bar->linkClicks, 2);
    ASSERT_EQ(messages.size(), 1u);
    EXPECT_EQ(messages[0], "The link failed.");

    // A label without a handler stays plain, and so does one whose handler is taken away.
    Event([&] { bar->lblLink.OnClick = nullptr; });
    EXPECT_FALSE(link->IsLink());
    EXPECT_NE(link->cursor().shape(), Qt::PointingHandCursor);
    Click(link, link->contentsRect().center());
    EXPECT_EQ(bar->linkClicks, 2);
}

TEST_F(MainBarWindowTest, AClickOnTheNamePanelOpensTheSubMenuOfTheBar) {
    auto* name = Widget<desktop::LinkLabel>(*window, "txtName");
    ASSERT_NE(name, nullptr);
    QMenuBar* menuBar = window->MenuBar();
    auto* file = menuBar->findChild<QMenu*>("mnuFile");
    auto* companies = menuBar->findChild<QMenu*>("mnuCompanies");
    ASSERT_NE(file, nullptr);
    ASSERT_NE(companies, nullptr);
    EXPECT_FALSE(companies->isVisible());
    Click(name);
    EXPECT_TRUE(file->isVisible());
    EXPECT_TRUE(companies->isVisible());
    EXPECT_EQ(file->activeAction(), companies->menuAction());
    companies->hide();
    file->hide();

    // An item that cannot be reached opens nothing.
    Event([&] { bar->mnuCompanies.Enabled = false; });
    Click(name);
    EXPECT_FALSE(companies->isVisible());
}

TEST_F(MainBarWindowTest, TheMenuBarFollowsItemsAddedAndRemovedAfterItWasBuilt) {
    QMenuBar* menuBar = window->MenuBar();
    auto company = std::make_unique<ui::MenuItem>(bar->mnuCompanies, "mnuCompany1", "Acme");
    int opened = 0;
    company->OnClick = [&] { ++opened; };
    Event([] {});
    auto* action = menuBar->findChild<QAction*>("mnuCompany1");
    ASSERT_NE(action, nullptr);
    EXPECT_EQ(action->text(), "Acme");
    action->trigger();
    EXPECT_EQ(opened, 1);

    company.reset();
    Event([] {});
    EXPECT_EQ(menuBar->findChild<QAction*>("mnuCompany1"), nullptr);
    auto* companies = menuBar->findChild<QMenu*>("mnuCompanies");
    ASSERT_NE(companies, nullptr);
    ASSERT_EQ(companies->actions().size(), 1);
    EXPECT_EQ(companies->actions()[0]->text(), "&New Company...");
}

// Choosing a company fills the Companies menu again from inside that menu's own command: the
// menu the person chose from is still in use by Qt when the command returns.
TEST_F(MainBarWindowTest, ACommandThatRebuildsItsOwnMenuLeavesItInOnePiece) {
    std::vector<std::unique_ptr<ui::MenuItem>> companies;
    auto refill = [&] {
        companies.clear();
        for (const char* name : {"Acme", "Bolt"})
            companies.push_back(
                std::make_unique<ui::MenuItem>(bar->mnuCompanies, std::string("mnu") + name, name));
    };
    refill();
    int chosen = 0;
    companies[0]->OnClick = [&] {
        ++chosen;
        refill();
    };
    Event([] {});
    QMenuBar* menuBar = window->MenuBar();
    window->DropDownMenu(bar->mnuCompanies);
    auto* open = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    ASSERT_NE(open, nullptr);
    open->setActiveAction(open->findChild<QAction*>("mnuAcme"));
    Key(open, Qt::Key_Return);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QCoreApplication::processEvents();
    EXPECT_EQ(chosen, 1);
    auto* again = menuBar->findChild<QMenu*>("mnuCompanies");
    ASSERT_NE(again, nullptr);
    EXPECT_EQ(again->actions().size(), 3);
}

// Alt and Alt with a letter are the menu bar's: a press of Alt opens no menu by itself, and the
// form lets the bar's mnemonics (Alt+F) through to Qt's shortcuts instead of taking them.
TEST_F(MainBarWindowTest, AltAndItsLettersAreLeftToTheMenuBar) {
    QWidget* choice = window->WidgetOf("cboChoice");
    ASSERT_NE(choice, nullptr);
    Key(choice, Qt::Key_Alt, {}, Qt::AltModifier);
    QCoreApplication::processEvents();
    EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
    QKeyEvent mnemonic(QEvent::ShortcutOverride, Qt::Key_F, Qt::AltModifier, "f");
    mnemonic.ignore();
    QApplication::sendEvent(choice, &mnemonic);
    EXPECT_FALSE(mnemonic.isAccepted());
    QKeyEvent plain(QEvent::ShortcutOverride, Qt::Key_F2, Qt::NoModifier);
    plain.ignore();
    QApplication::sendEvent(choice, &plain);
    EXPECT_TRUE(plain.isAccepted()) << "the form's own keys stay the form's";
}

} // namespace
} // namespace corvane::testing
