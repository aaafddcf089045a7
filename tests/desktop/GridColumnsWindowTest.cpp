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
            .AddColumn("TransDescription", "Description", 300);
        ClientWidth = 340;
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
                     {"JVAmount", Money::FromCents(1274780)}});
    auto& form = app.CreateForm<VoucherList>(db_);
    form.Show();
    desktop::FormWindow* window = host.WindowOf(form);
    auto* view = Widget<QTableView>(*window, "grdList");
    ASSERT_NE(view, nullptr);
    QAbstractItemModel* model = view->model();
    EXPECT_EQ(model->data(model->index(0, 1)).toString(), "12,747.80");
    EXPECT_TRUE(model->data(model->index(0, 1), Qt::TextAlignmentRole).toInt() & Qt::AlignRight);
    EXPECT_TRUE(model->data(model->index(0, 0), Qt::TextAlignmentRole).toInt() & Qt::AlignLeft);
    EXPECT_TRUE(model->headerData(1, Qt::Horizontal, Qt::TextAlignmentRole).toInt() &
                Qt::AlignRight);

    const QFontMetrics cells(view->font());
    EXPECT_GT(view->columnWidth(0), cells.horizontalAdvance("12/28/2000"));
    EXPECT_GT(view->columnWidth(1), cells.horizontalAdvance("(9,999,999.999)"));
    EXPECT_GE(view->columnWidth(2), 300) << "a text column keeps the width the form gave it";
    EXPECT_GT(window->width(), 340 + (view->columnWidth(0) - 20) + (view->columnWidth(1) - 20) - 1);
}

} // namespace
} // namespace corvane::testing
