#include "desktop/DesktopTest.h"
#include "desktop/FormWindow.h"
#include "store/Table.h"
#include "ui/Form.h"
#include "ui/Grid.h"
#include "ui/Layout.h"

#include <QFontMetrics>
#include <QHeaderView>
#include <QTableView>

namespace corvane::testing {
namespace {

// A list of vouchers whose form gave its date and amount columns too little room.
class VoucherList : public ui::Form {
public:
    VoucherList(ui::Application& app, store::Database& db)
        : Form(app, "frmVoucherList"), jv(db, "JV") {
        jv.Open();
        grdList.AddColumn("TransDate", "Date", 20)
            .AddColumn("JVAmount", "Amount", 20)
            .AddColumn("TransDescription", "Description", 300)
            .AddColumn("Posted", "Posted", 40);
        ClientWidth = 380;
        ClientHeight = 300;
        SetLayout(ui::Column{grdList});
    }
    store::Table jv;
    ui::Grid grdList{*this, "grdList", jv};
};

class GridColumnsWindowTest : public DesktopTest {};

// Amounts show through the table's format at the right of their cells; every column is as wide
// as its widest value and its title need in the fonts the view uses, and the window grows with
// them.
TEST_F(GridColumnsWindowTest, ColumnsFitTheirWidestValueAndAmountsStandRight) {
    InsertRow("JV", {{"JVID", 1},
                     {"GLYear", 2017},
                     {"GLPeriod", 3},
                     {"JVNumber", 1001},
                     {"Source", "GL"},
                     {"TransDate", Date::FromYmd(2017, 1, 18)},
                     {"TransDescription", "Payroll"},
                     {"JVAmount", Money::FromCents(1274780)},
                     {"Posted", true}});
    InsertRow("JV", {{"JVID", 2},
                     {"GLYear", 2017},
                     {"GLPeriod", 3},
                     {"JVNumber", 1002},
                     {"Source", "GL"},
                     {"TransDate", Date::FromYmd(2017, 2, 1)},
                     {"TransDescription", "Rent"},
                     {"JVAmount", Money::FromCents(100)},
                     {"Posted", false}});
    auto& form = app.CreateForm<VoucherList>(db_);
    form.Show();
    desktop::FormWindow* window = host.WindowOf(form);
    auto* view = Widget<QTableView>(*window, "grdList");
    ASSERT_NE(view, nullptr);
    QAbstractItemModel* model = view->model();
    EXPECT_EQ(model->data(model->index(0, 1)).toString(), "12,747.80");
    // The table's own date format, not the regional short date.
    EXPECT_EQ(model->data(model->index(0, 0)).toString(), "18 Jan 17");
    // A flag is a check box, without the words.
    EXPECT_EQ(model->data(model->index(0, 3), Qt::CheckStateRole).toInt(), Qt::Checked);
    EXPECT_EQ(model->data(model->index(1, 3), Qt::CheckStateRole).toInt(), Qt::Unchecked);
    EXPECT_TRUE(model->data(model->index(0, 3)).toString().isEmpty());
    EXPECT_TRUE(model->data(model->index(0, 1), Qt::TextAlignmentRole).toInt() & Qt::AlignRight);
    EXPECT_TRUE(model->data(model->index(0, 0), Qt::TextAlignmentRole).toInt() & Qt::AlignLeft);
    EXPECT_TRUE(model->headerData(1, Qt::Horizontal, Qt::TextAlignmentRole).toInt() &
                Qt::AlignRight);

    const QFontMetrics cells(view->font());
    EXPECT_GT(view->columnWidth(0), cells.horizontalAdvance("28 Dec 00"));
    EXPECT_GT(view->columnWidth(1), cells.horizontalAdvance("(9,999,999.999)"));
    EXPECT_GE(view->columnWidth(2), 300) << "a text column keeps the width the form gave it";
    EXPECT_GT(window->width(), 380 + (view->columnWidth(0) - 20) + (view->columnWidth(1) - 20) - 1);
}

// A list whose form asked for less room than its columns take opens wide enough to show them
// all, as far as the screen allows.
TEST_F(GridColumnsWindowTest, AListOpensWideEnoughForItsColumns) {
    auto& form = app.CreateForm<VoucherList>(db_);
    // The offscreen screen is 800 pixels wide: the columns fit on it, the form's width does not.
    form.grdList.Column("TransDescription").Width = 450;
    form.ClientWidth = 300;
    form.Show();
    desktop::FormWindow* window = host.WindowOf(form);
    auto* view = Widget<QTableView>(*window, "grdList");
    ASSERT_NE(view, nullptr);
    int columns = 0;
    for (int c = 0; c < view->model()->columnCount(); ++c)
        columns += view->columnWidth(c);
    EXPECT_GE(view->viewport()->width(), columns);
    EXPECT_LE(window->width(), window->screen()->availableSize().width());
}

} // namespace
} // namespace corvane::testing
