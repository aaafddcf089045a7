#include "desktop/DesktopTest.h"
#include "ui/Button.h"
#include "ui/CheckBox.h"
#include "ui/ComboBox.h"
#include "ui/DateEdit.h"
#include "ui/Edit.h"
#include "ui/Form.h"
#include "ui/Layout.h"
#include "ui/Menu.h"
#include "ui/MenuItem.h"
#include "ui/PageControl.h"
#include "ui/ProgressBar.h"
#include "ui/RadioGroup.h"
#include "ui/SpinEdit.h"
#include "ui/StatusBar.h"
#include "ui/ToolBar.h"

#include <QAction>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>
#include <QProgressBar>
#include <QRadioButton>
#include <QSpinBox>
#include <QStatusBar>
#include <QTabBar>
#include <QTabWidget>
#include <QToolBar>
#include <QToolButton>

namespace corvane::testing {
namespace {

// One of each kind of control, laid out on two pages.
class SettingsForm : public ui::Form {
public:
    explicit SettingsForm(ui::Application& app) : Form(app, "frmSettings") {
        using namespace ui;
        Caption = "Settings";
        rgpPeriod.Columns = 2;
        spnCopies.MinValue = 1;
        spnCopies.MaxValue = 5;
        spnCopies.SetValue(2);
        cboSort.SetItemIndex(0);
        mnuDetail.RadioItem = mnuSummary.RadioItem = true;
        mnuSummary.SetChecked(true);
        tabGeneral.SetLayout(Column{rgpPeriod, FormRow{"Copies", spnCopies}});
        tabMore.SetLayout(Column{FormRow{"Sort", cboSort}, FormRow{"As of", dteAsOf}});
        SetLayout(Column{pgcMain, prgRun, ButtonRow{btnRun}});
        btnRun.OnClick = [this] {
            ++runs;
            prgRun.Position = 40;
            stbMain.SimpleText = "Run " + std::to_string(runs);
        };
        mnuRun.OnClick = [this] { btnRun.Click(); };
        mnuDetail.OnClick = [this] { mnuDetail.SetChecked(true); };
        dteAsOf.OnButtonClick = [this] { dteAsOf.SetText("01/31/2017"); };
        stbMain.SimplePanel = true;
    }

    int runs = 0;
    ui::MainMenu mnuMain{*this};
    ui::MenuItem mnuReport{mnuMain, "mnuReport", "&Report"};
    ui::MenuItem mnuRun{mnuReport, "mnuRun", "&Run", "Ctrl+R"};
    ui::MenuItem mnuSep{mnuReport, "mnuSep", "-"};
    ui::MenuItem mnuDetail{mnuReport, "mnuDetail", "&Detail"};
    ui::MenuItem mnuSummary{mnuReport, "mnuSummary", "&Summary"};
    ui::ToolBar tlbMain{*this, "tlbMain"};
    ui::ToolButton tbnRun{tlbMain, "tbnRun", mnuRun};
    ui::PageControl pgcMain{*this, "pgcMain"};
    ui::Page tabGeneral{pgcMain, "tabGeneral", "General"};
    ui::Page tabMore{pgcMain, "tabMore", "More"};
    ui::RadioGroup rgpPeriod{*this, "rgpPeriod", "Period", {"&Month", "&Quarter", "&Year"}};
    ui::SpinEdit spnCopies{*this, "spnCopies"};
    ui::ComboBox cboSort{*this, "cboSort", {"Number", "Name"}};
    ui::DateEdit dteAsOf{*this, "dteAsOf"};
    ui::ProgressBar prgRun{*this, "prgRun"};
    ui::Button btnRun{*this, "btnRun", "R&un"};
    ui::StatusBar stbMain{*this, "stbMain"};
};

class ControlWidgetsTest : public DesktopTest {
protected:
    void SetUp() override {
        DesktopTest::SetUp();
        form = &app.CreateForm<SettingsForm>();
        form->Show();
        window = host.WindowOf(*form);
        ASSERT_NE(window, nullptr);
    }
    QAction* Action(const char* name) { return window->findChild<QAction*>(name); }

    SettingsForm* form = nullptr;
    desktop::FormWindow* window = nullptr;
};

TEST_F(ControlWidgetsTest, MenusShowShortCutsChecksAndRunTheirItems) {
    QMenuBar* bar = window->MenuBar();
    ASSERT_NE(bar, nullptr);
    ASSERT_EQ(bar->actions().size(), 1);
    EXPECT_EQ(bar->actions()[0]->text(), "&Report");
    EXPECT_EQ(Action("mnuRun")->text(), "&Run\tCtrl+R");
    EXPECT_TRUE(Action("mnuSep")->isSeparator());
    EXPECT_TRUE(Action("mnuSummary")->isChecked());
    EXPECT_FALSE(Action("mnuDetail")->isChecked());

    Action("mnuDetail")->trigger();
    EXPECT_TRUE(form->mnuDetail.Checked());
    EXPECT_TRUE(Action("mnuDetail")->isChecked());
    EXPECT_FALSE(Action("mnuSummary")->isChecked());

    // The short cut is the form's: pressed in any control it runs the item once.
    Key(window->WidgetOf("spnCopies"), Qt::Key_R, {}, Qt::ControlModifier);
    EXPECT_EQ(form->runs, 1);
    form->mnuRun.Enabled = false;
    Action("mnuDetail")->trigger(); // any event refreshes the window
    EXPECT_FALSE(Action("mnuRun")->isEnabled());
}

TEST_F(ControlWidgetsTest, ToolButtonsButtonsProgressAndStatusFollowTheForm) {
    auto* tools = qobject_cast<QToolBar*>(window->WidgetOf("tlbMain"));
    ASSERT_NE(tools, nullptr);
    QAction* run = window->findChild<QAction*>("tbnRun");
    ASSERT_NE(run, nullptr);
    EXPECT_EQ(run->text(), "Run");
    run->trigger();
    EXPECT_EQ(form->runs, 1);
    EXPECT_EQ(qobject_cast<QProgressBar*>(window->WidgetOf("prgRun"))->value(), 40);
    auto* status = qobject_cast<QStatusBar*>(window->WidgetOf("stbMain"));
    ASSERT_NE(status, nullptr);
    QStringList texts;
    for (QLabel* l : status->findChildren<QLabel*>())
        texts << l->text();
    EXPECT_TRUE(texts.contains("Run 1")) << texts.join(",").toStdString();
}

TEST_F(ControlWidgetsTest, PagesRadiosSpinsCombosAndDatesWorkBothWays) {
    auto* tabs = qobject_cast<QTabWidget*>(window->WidgetOf("pgcMain"));
    ASSERT_NE(tabs, nullptr);
    EXPECT_EQ(tabs->count(), 2);
    EXPECT_EQ(tabs->tabText(1), "More");
    // Captions of tabs are never cut short: the row of tabs sets the least width.
    EXPECT_EQ(tabs->elideMode(), Qt::ElideNone);
    EXPECT_FALSE(tabs->usesScrollButtons());
    EXPECT_GE(tabs->width(), tabs->tabBar()->sizeHint().width());

    auto radios = window->WidgetOf("rgpPeriod")->findChildren<QRadioButton*>();
    ASSERT_EQ(radios.size(), 3);
    radios[1]->click();
    EXPECT_EQ(form->rgpPeriod.ItemIndex(), 1);
    form->rgpPeriod.SetItemIndex(2);
    Action("mnuDetail")->trigger();
    EXPECT_TRUE(radios[2]->isChecked());
    EXPECT_FALSE(radios[1]->isChecked());

    auto* copies = qobject_cast<QSpinBox*>(window->WidgetOf("spnCopies"));
    ASSERT_NE(copies, nullptr);
    EXPECT_EQ(copies->value(), 2);
    EXPECT_EQ(copies->maximum(), 5);
    // Up is the control's step.
    Key(copies, Qt::Key_Up);
    EXPECT_EQ(form->spnCopies.Value(), 3);
    EXPECT_EQ(copies->value(), 3);

    // A click on the other tab brings the page forward in the form.
    tabs->setCurrentIndex(1);
    EXPECT_EQ(form->pgcMain.ActivePage(), &form->tabMore);
    auto* sort = qobject_cast<QComboBox*>(window->WidgetOf("cboSort"));
    ASSERT_NE(sort, nullptr);
    EXPECT_EQ(sort->currentText(), "Number");
    emit sort->activated(1);
    EXPECT_EQ(form->cboSort.Text(), "Name");

    QWidget* date = window->WidgetOf("dteAsOf");
    auto* button = date->findChild<QToolButton*>();
    ASSERT_NE(button, nullptr);
    button->click();
    EXPECT_EQ(form->dteAsOf.Text(), "01/31/2017");
    EXPECT_EQ(date->findChild<QLineEdit*>()->text(), "01/31/2017");
    EXPECT_EQ(form->ActiveControl(), &form->dteAsOf);

    // The form moving to the first page shows it.
    form->pgcMain.SetActivePage(form->tabGeneral);
    Action("mnuDetail")->trigger();
    EXPECT_EQ(tabs->currentIndex(), 0);
}

TEST_F(ControlWidgetsTest, AFreedFormTakesItsWindowAlong) {
    QPointer<desktop::FormWindow> alive(window);
    form->mnuRun.OnClick = [this] { app.FreeForm(*form); };
    Action("mnuRun")->trigger();
    EXPECT_EQ(app.FindForm("frmSettings"), nullptr);
    EXPECT_EQ(host.WindowOf("frmSettings"), nullptr);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_TRUE(alive.isNull());
}

} // namespace
} // namespace corvane::testing
