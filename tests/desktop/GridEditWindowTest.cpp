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

} // namespace
} // namespace corvane::testing
