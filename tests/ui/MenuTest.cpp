#include "HeadlessApp.h"
#include "ui/Caption.h"
#include "ui/DBEdit.h"
#include "ui/Edit.h"
#include "ui/Form.h"
#include "ui/FormDriver.h"
#include "ui/MenuItem.h"
#include "ui/ScriptError.h"
#include "ui/ToolBar.h"

using namespace corvane;
using namespace corvane::ui;
using corvane::testing::UiTest;

namespace {

// The menu of a list form, as the list pattern lays it out.
class ListForm : public Form {
public:
    explicit ListForm(Application& app) : Form(app, "frmItems") {
        mnuSortByNo.RadioItem = mnuSortByName.RadioItem = true;
        mnuSortByNo.SetChecked(true);
        mnuFilter.OnClick = [this] {
            mnuFilter.SetChecked(!mnuFilter.Checked());
            Caption = mnuFilter.Checked() ? "Items (Filtered)" : "Items";
        };
        mnuNew.OnClick = [this] { ++NewClicks; };
        mnuSortByName.OnClick = [this] { mnuSortByName.SetChecked(true); };
        SetLayout(Column{toolBar, editSearch});
    }
    int NewClicks = 0;
    MainMenu menu{*this};
    MenuItem mnuRecords{menu, "mnuRecords", "&Records"};
    MenuItem mnuNew{mnuRecords, "mnuNew", "&New...", "Ins"};
    MenuItem mnuView{menu, "mnuView", "&View"};
    MenuItem mnuFilter{mnuView, "mnuFilter", "&Filter...", "Ctrl+F"};
    MenuItem mnuSortBy{mnuView, "mnuSortBy", "&Sort by"};
    MenuItem mnuSortByNo{mnuSortBy, "mnuSortByNo", "Item &No"};
    MenuItem mnuSortByName{mnuSortBy, "mnuSortByName", "Item N&ame"};
    ToolBar toolBar{*this, "tbrMain"};
    ToolButton tbnNew{toolBar, "tbnNew", mnuNew};
    ToolButton tbnFilter{toolBar, "tbnFilter", mnuFilter};
    Edit editSearch{*this, "editSearch"};
};

using Menus = UiTest;

TEST_F(Menus, ShortCutsRunTheirItemsOnlyWhileTheyCanBeReached) {
    ListForm form(app);
    form.Show();
    FormDriver d(form);
    d.PressKey(Ctrl(KeyOfChar('f')));
    EXPECT_TRUE(d.Checked("mnuFilter"));
    EXPECT_EQ(form.Caption, "Items (Filtered)");
    // The short cut comes before the focused edit, which does not get an 'f'.
    EXPECT_EQ(d.Text("editSearch"), "");

    form.mnuView.Enabled = false; // the whole menu: its items cannot be reached
    d.PressKey(Ctrl(KeyOfChar('F')));
    EXPECT_TRUE(d.Checked("mnuFilter"));
    EXPECT_THROW(d.Click("mnuFilter"), ScriptError);
    form.mnuView.Enabled = true;
    d.Click("mnuFilter");
    EXPECT_FALSE(d.Checked("mnuFilter"));

    d.PressKey(Key::Insert);
    form.mnuNew.Visible = false;
    d.PressKey(Key::Insert);
    EXPECT_EQ(form.NewClicks, 1);
}

TEST_F(Menus, RadioItemsOfAGroupCheckOneAtATime) {
    ListForm form(app);
    form.Show();
    FormDriver d(form);
    d.Click("mnuSortByName");
    EXPECT_TRUE(d.Checked("mnuSortByName"));
    EXPECT_FALSE(d.Checked("mnuSortByNo"));
    // A check item outside the group is left alone.
    form.mnuFilter.SetChecked(true);
    form.mnuSortByNo.SetChecked(true);
    EXPECT_FALSE(form.mnuSortByName.Checked());
    EXPECT_TRUE(form.mnuFilter.Checked());
}

TEST_F(Menus, ToolButtonsAreTwinsOfTheirMenuItems) {
    ListForm form(app);
    form.Show();
    FormDriver d(form);
    EXPECT_EQ(d.Text("tbnFilter"), "Filter");
    d.Click("tbnNew");
    EXPECT_EQ(form.NewClicks, 1);
    form.mnuNew.Enabled = false;
    EXPECT_FALSE(d.Enabled("tbnNew"));
    EXPECT_THROW(d.Click("tbnNew"), ScriptError);
    form.tbnNew.Click(); // even called directly, a disabled command does not run
    EXPECT_EQ(form.NewClicks, 1);
    form.mnuFilter.Visible = false;
    EXPECT_FALSE(d.Visible("tbnFilter"));
}

TEST_F(Menus, ShortCutsAndCaptionsReadAsWritten) {
    EXPECT_EQ(ParseShortCut("Ctrl+F"), Ctrl(KeyOfChar('F')));
    EXPECT_EQ(ParseShortCut("ctrl+shift+n"),
              KeyStroke(KeyOfChar('N'), {.Shift = true, .Ctrl = true}));
    EXPECT_EQ(ParseShortCut("F5"), KeyStroke(Key::F5));
    EXPECT_EQ(ParseShortCut("Shift+Del"), Shift(Key::Delete));
    EXPECT_EQ(ShortCutText(ParseShortCut("ctrl+shift+n")), "Ctrl+Shift+N");
    EXPECT_EQ(ShortCutText(ParseShortCut("Ctrl+Del")), "Ctrl+Del");
    EXPECT_THROW(ParseShortCut("Hyper+F"), ScriptError);
    EXPECT_THROW(ParseShortCut("Ctrl+Fish"), ScriptError);

    EXPECT_EQ(PlainCaption("&File"), "File");
    EXPECT_EQ(PlainCaption("R&&D &Costs"), "R&D Costs");
    EXPECT_EQ(AcceleratorOf("R&&D &Costs"), 'C');
    EXPECT_EQ(AcceleratorOf("Plain"), 0);
}

} // namespace

// Items made in code (the main form's menus from its table of entries) may go after the
// sub-menu they stand in; what is left neither reaches the gone parent nor can be clicked.
TEST_F(Menus, AnItemOutlivingItsSubMenuIsCutOffFromIt) {
    ListForm& form = app.CreateForm<ListForm>();
    auto other = std::make_unique<MenuItem>(form.menu, "mnuOther", "&Other");
    int clicks = 0;
    auto item = std::make_unique<MenuItem>(*other, "mnuThing", "&Thing");
    item->OnClick = [&] { ++clicks; };
    item->Click();
    EXPECT_EQ(clicks, 1);
    other.reset();
    EXPECT_FALSE(item->Usable());
    item->Click();
    EXPECT_EQ(clicks, 1);
    item.reset();
    EXPECT_EQ(form.menu.Items().size(), 2u);
}
