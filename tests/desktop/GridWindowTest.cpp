#include "desktop/DemoForm.h"
#include "desktop/DesktopTest.h"
#include "desktop/GridBinding.h"
#include "desktop/GridTableModel.h"

#include <QLineEdit>
#include <QTableView>

namespace corvane::testing {
namespace {

class GridWindowTest : public DesktopTest {
protected:
    static constexpr int VendorCount = 3000;

    void SetUp() override {
        DesktopTest::SetUp();
        desktop::AddSampleVendors(db_, VendorCount);
        form = &app.CreateForm<desktop::DemoForm>(db_);
        form->Show();
        window = host.WindowOf(*form);
        ASSERT_NE(window, nullptr);
        view = Widget<QTableView>(*window, "grdVendors");
        ASSERT_NE(view, nullptr);
        model = dynamic_cast<desktop::GridTableModel*>(view->model());
        ASSERT_NE(model, nullptr);
    }

    QString Cell(int row, int column) { return model->data(model->index(row, column)).toString(); }

    desktop::DemoForm* form = nullptr;
    desktop::FormWindow* window = nullptr;
    QTableView* view = nullptr;
    desktop::GridTableModel* model = nullptr;
};

TEST_F(GridWindowTest, TheModelCountsAllRowsButReadsOnlyWindowsOfThem) {
    EXPECT_EQ(model->rowCount(), VendorCount);
    EXPECT_EQ(model->columnCount(), 4);
    EXPECT_EQ(model->headerData(1, Qt::Horizontal).toString(), "Name");
    EXPECT_EQ(Cell(0, 0), "V00001");
    EXPECT_EQ(Cell(1, 2), "Montreal");
    EXPECT_EQ(Cell(40, 0), "V00041");
    // A row far down is reached by moving the cursor there, not by reading what lies between.
    EXPECT_EQ(Cell(2500, 0), "V02501");
    EXPECT_EQ(Cell(VendorCount - 1, 0), "V03000");
    EXPECT_EQ(Cell(2499, 1).toStdString(), "Northwind Supply 2500");
    EXPECT_LT(model->RowsRead(), 800);
}

TEST_F(GridWindowTest, ScrollingFarMovesTheCursorIntoViewAndTheFormFollows) {
    view->resize(600, 300);
    view->scrollTo(model->index(2499, 0), QAbstractItemView::PositionAtTop);
    view->grab(); // paints the rows in view
    QCoreApplication::processEvents();
    EXPECT_EQ(Cell(2499, 0), "V02500");
    EXPECT_LT(model->RowsRead(), 800);
    EXPECT_EQ(form->tblVendor.FieldByName("VendorNo").AsString(), "V02500");
    EXPECT_EQ(view->currentIndex().row(), 2499);
    ASSERT_EQ(form->stbMain.Panels.size(), 2u);
    EXPECT_EQ(form->stbMain.Panels[1].Text, "Northwind Supply 2500");
}

TEST_F(GridWindowTest, KeysAndClicksInTheViewMoveTheCursor) {
    ASSERT_EQ(form->ActiveControl(), &form->editSearch);
    view->setFocus();
    Key(view, Qt::Key_Down);
    EXPECT_EQ(form->ActiveControl(), &form->grdVendors);
    EXPECT_EQ(form->tblVendor.FieldByName("VendorNo").AsString(), "V00002");
    EXPECT_EQ(view->currentIndex().row(), 1);

    Key(view, Qt::Key_End);
    EXPECT_EQ(form->tblVendor.FieldByName("VendorNo").AsString(), "V03000");
    EXPECT_EQ(view->currentIndex().row(), VendorCount - 1);

    emit view->pressed(model->index(7, 0));
    EXPECT_EQ(form->tblVendor.FieldByName("VendorNo").AsString(), "V00008");
    EXPECT_EQ(view->currentIndex().row(), 7);
}

TEST_F(GridWindowTest, AFoundRowBecomesTheViewsCurrentRow) {
    form->editSearch.SetFocus();
    auto* search = Widget<QLineEdit>(*window, "editSearch");
    Type(search, "V02990");
    Key(search, Qt::Key_Return); // the Default button, Find
    EXPECT_EQ(form->tblVendor.FieldByName("VendorNo").AsString(), "V02990");
    EXPECT_EQ(view->currentIndex().row(), 2989);
    EXPECT_EQ(Cell(2989, 0), "V02990");
    EXPECT_LT(model->RowsRead(), 800);
}

TEST_F(GridWindowTest, ARowInTheMiddleMovedToByCodeIsSelectedAndScrolledTo) {
    view->resize(600, 300);
    window->UserEvent(
        [this] { ASSERT_TRUE(form->tblVendor.Locate("VendorNo", {std::string("V01500")})); });
    EXPECT_EQ(view->currentIndex().row(), 1499);
    EXPECT_TRUE(view->selectionModel()->isRowSelected(1499, {}));
    // In sight: the row's cell lies within the viewport.
    QRect cell = view->visualRect(model->index(1499, 0));
    EXPECT_TRUE(view->viewport()->rect().intersects(cell));
    EXPECT_EQ(Cell(1499, 0), "V01500");

    // First and Last by a command, as a menu would run them.
    window->UserEvent([this] { form->tblVendor.Last(); });
    EXPECT_EQ(view->currentIndex().row(), VendorCount - 1);
    window->UserEvent([this] {
        form->tblVendor.First();
        form->tblVendor.MoveBy(1200);
    });
    EXPECT_EQ(view->currentIndex().row(), 1200);
    EXPECT_TRUE(view->viewport()->rect().intersects(view->visualRect(model->index(1200, 0))));
    EXPECT_LT(model->RowsRead(), 800);
}

} // namespace
} // namespace corvane::testing
