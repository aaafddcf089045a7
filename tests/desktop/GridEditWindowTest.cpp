#include "desktop/DemoForm.h"
#include "desktop/DesktopTest.h"
#include "desktop/GridTableModel.h"
#include "ui/FormDriver.h"

#include <QColor>
#include <QTableView>

namespace corvane::testing {
namespace {

// A grid typed into shows the typing in its cell, marks that cell alone, and counts a new row
// below the last while it is being typed.
class GridEditWindowTest : public DesktopTest {
protected:
    void SetUp() override {
        DesktopTest::SetUp();
        desktop::AddSampleVendors(db_, 3);
        form = &app.CreateForm<desktop::DemoForm>(db_);
        form->grdVendors.ReadOnly = false;
        form->Show();
        view = Widget<QTableView>(*host.WindowOf(*form), "grdVendors");
        ASSERT_NE(view, nullptr);
        model = dynamic_cast<desktop::GridTableModel*>(view->model());
        ASSERT_NE(model, nullptr);
    }
    desktop::DemoForm* form = nullptr;
    QTableView* view = nullptr;
    desktop::GridTableModel* model = nullptr;
};

TEST_F(GridEditWindowTest, TheCellShowsTheTypingAndANewRowCounts) {
    EXPECT_EQ(view->selectionBehavior(), QAbstractItemView::SelectItems);
    ui::FormDriver d(*form);
    d.Focus("grdVendors");
    d.PressKey(ui::Key::Right);
    d.Type("Acme");
    const QModelIndex cell = model->index(0, 1);
    EXPECT_EQ(model->data(cell).toString(), "Acme");
    EXPECT_EQ(model->data(cell, Qt::BackgroundRole).value<QColor>(), QColor(255, 250, 205));
    EXPECT_EQ(model->data(model->index(1, 1)).toString().toStdString(),
              form->grdVendors.Rows(0, 1).Rows.at(1).at(1));
    EXPECT_EQ(view->currentIndex(), cell);
    d.PressKey(ui::Key::Escape);
    d.PressKey(ui::Key::Escape);
    d.PressKey(ui::Key::End);
    d.PressKey(ui::Key::Down);
    EXPECT_EQ(model->rowCount(), 4);
    EXPECT_EQ(view->currentIndex().row(), 3);
}

// Each key typed into a cell shows at once, not only when the cell is left.
TEST_F(GridEditWindowTest, EveryKeyTypedRepaintsTheCell) {
    ui::FormDriver d(*form);
    d.Focus("grdVendors");
    d.PressKey(ui::Key::Right);
    const QModelIndex cell = model->index(0, 1);
    int repaints = 0;
    QObject::connect(model, &QAbstractItemModel::dataChanged,
                     [&](const QModelIndex& from, const QModelIndex& to) {
                         if (from.row() <= 0 && to.row() >= 0 && from.column() <= 1 &&
                             to.column() >= 1)
                             ++repaints;
                     });
    for (const char* key : {"1", "5", "0"}) {
        const int before = repaints;
        d.Type(key);
        EXPECT_GT(repaints, before) << "after " << key;
    }
    EXPECT_EQ(model->data(cell).toString(), "150");
}

} // namespace
} // namespace corvane::testing
