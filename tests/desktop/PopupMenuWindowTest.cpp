#include "desktop/DemoForm.h"
#include "desktop/DesktopTest.h"
#include "desktop/PopupMenuBinding.h"
#include "ui/Grid.h"
#include "ui/Menu.h"
#include "ui/MenuItem.h"

#include <QAction>
#include <QMenu>
#include <QTableView>

namespace corvane::testing {
namespace {

class PopupListForm : public ui::Form {
public:
    PopupListForm(ui::Application& app, store::Database& db)
        : Form(app, "frmPopupList"), tblVendor(db, "Vendor") {
        tblVendor.Open();
        grdList.AddColumn("VendorNo", "Vendor No", 90).AddColumn("VendorName", "Name", 200);
        grdList.Popup = &popList;
        popDelete.ShortCut = ui::Ctrl(ui::Key::Delete);
        popHidden.Visible = false;
        SetLayout(ui::Column{grdList});
        // As a list does: what the commands can do depends on the row under them.
        popList.OnPopup = [this] {
            ++popups;
            bool first = tblVendor.FieldByName("VendorNo").AsString() == "V00001";
            popDelete.Enabled = !first;
            popFirst.SetChecked(first);
        };
        popEdit.OnClick = [this] {
            edited.push_back(tblVendor.FieldByName("VendorNo").AsString());
        };
        popFirst.OnClick = [this] { tblVendor.First(); };
    }
    store::Table tblVendor;
    ui::Grid grdList{*this, "grdList", tblVendor};
    ui::PopupMenu popList{*this, "popList"};
    ui::MenuItem popEdit{popList, "popEdit", "&Edit"};
    ui::MenuItem popDelete{popList, "popDelete", "&Delete"};
    ui::MenuItem popSep{popList, "popSep", "-"};
    ui::MenuItem popFirst{popList, "popFirst", "&First"};
    ui::MenuItem popHidden{popList, "popHidden", "&Hidden"};
    int popups = 0;
    std::vector<std::string> edited;
};

class PopupMenuWindowTest : public DesktopTest {
protected:
    void SetUp() override {
        DesktopTest::SetUp();
        desktop::AddSampleVendors(db_, 40);
        form = &app.CreateForm<PopupListForm>(db_);
        form->Show();
        window = host.WindowOf(*form);
        ASSERT_NE(window, nullptr);
        view = Widget<QTableView>(*window, "grdList");
        ASSERT_NE(view, nullptr);
    }
    void RightClick(int row) {
        QRect cell = view->visualRect(view->model()->index(row, 0));
        emit view->pressed(view->model()->index(row, 0));
        emit view->customContextMenuRequested(cell.center());
    }
    QMenu* Menu() { return window->findChild<QMenu*>("popList"); }
    QAction* Action(const char* name) { return Menu()->findChild<QAction*>(name); }

    PopupListForm* form = nullptr;
    desktop::FormWindow* window = nullptr;
    QTableView* view = nullptr;
};

TEST_F(PopupMenuWindowTest, ARightClickOverTheGridShowsItsItemsAsTheyStand) {
    EXPECT_EQ(view->contextMenuPolicy(), Qt::CustomContextMenu);
    EXPECT_EQ(Menu(), nullptr) << "made when first asked for";
    RightClick(0);
    ASSERT_NE(Menu(), nullptr);
    EXPECT_EQ(form->popups, 1);
    EXPECT_TRUE(Menu()->isVisible());
    EXPECT_EQ(Action("popEdit")->text(), "&Edit");
    EXPECT_EQ(Action("popDelete")->text(), "&Delete\tCtrl+Del");
    EXPECT_FALSE(Action("popDelete")->isEnabled());
    EXPECT_TRUE(Action("popFirst")->isChecked());
    EXPECT_TRUE(Action("popSep")->isSeparator());
    EXPECT_FALSE(Action("popHidden")->isVisible());
    Menu()->hide();

    // Over another row the menu is set up again before it opens.
    RightClick(5);
    EXPECT_EQ(form->popups, 2);
    EXPECT_TRUE(Action("popDelete")->isEnabled());
    EXPECT_FALSE(Action("popFirst")->isChecked());
    EXPECT_EQ(form->ActiveControl(), &form->grdList);
    Menu()->hide();
}

TEST_F(PopupMenuWindowTest, AChosenItemRunsAsAUserEventAndTheMenuKeyOpensItToo) {
    RightClick(6);
    Action("popEdit")->trigger();
    EXPECT_EQ(form->edited, std::vector<std::string>{"V00007"});
    // An item the form disabled since the menu opened does nothing.
    form->popEdit.Enabled = false;
    Action("popEdit")->trigger();
    EXPECT_EQ(form->edited.size(), 1u);
    Action("popFirst")->trigger();
    EXPECT_EQ(view->currentIndex().row(), 0);
    Menu()->hide();

    view->setFocus();
    Key(view, Qt::Key_Menu);
    EXPECT_TRUE(Menu()->isVisible());
    EXPECT_EQ(form->popups, 2);
    Menu()->hide();
    Key(view, Qt::Key_F10, {}, Qt::ShiftModifier);
    EXPECT_EQ(form->popups, 3);
    Menu()->hide();
    // A disabled grid offers nothing.
    form->grdList.Enabled = false;
    emit view->customContextMenuRequested(QPoint(5, 5));
    EXPECT_EQ(form->popups, 3);
}

} // namespace
} // namespace corvane::testing
