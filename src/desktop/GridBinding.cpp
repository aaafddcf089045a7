#include "desktop/GridBinding.h"

#include "core/Exception.h"
#include "desktop/FormWindow.h"
#include "desktop/GridTableModel.h"
#include "ui/Grid.h"

#include <QFontMetrics>
#include <QHeaderView>
#include <QStyle>
#include <QTableView>
#include <QTimer>

#include <algorithm>

namespace corvane::desktop {

namespace {

// A table view that asks for the width of all its columns, so that a window opens wide enough to
// show them; the layout may still give it less.
class ColumnsView : public QTableView {
public:
    QSize sizeHint() const override {
        QSize hint = QTableView::sizeHint();
        int columns = 0;
        for (int c = 0; c < horizontalHeader()->count(); ++c)
            if (!isColumnHidden(c)) columns += columnWidth(c);
        const int frame = 2 * frameWidth();
        const int bar = style()->pixelMetric(QStyle::PM_ScrollBarExtent, nullptr, this);
        hint.setWidth(std::max(hint.width(), columns + frame + bar));
        return hint;
    }
};

} // namespace

GridBinding::GridBinding(FormWindow& window, ui::Grid& grid)
    : ControlBinding(window, grid), grid_(grid), view_(new ColumnsView),
      model_(new GridTableModel(grid, view_)) {
    view_->setModel(model_);
    // A grid typed into marks its cell; a list marks the whole row.
    view_->setSelectionBehavior(grid.ReadOnly ? QAbstractItemView::SelectRows
                                              : QAbstractItemView::SelectItems);
    view_->setSelectionMode(QAbstractItemView::SingleSelection);
    view_->setEditTriggers(QAbstractItemView::NoEditTriggers);
    // The view follows the cursor; it scrolls only where the user or the form moves it.
    view_->setAutoScroll(false);
    view_->setAlternatingRowColors(true);
    view_->setWordWrap(false);
    view_->setCornerButtonEnabled(false);
    QHeaderView* rows = view_->verticalHeader();
    rows->setVisible(false);
    rows->setSectionResizeMode(QHeaderView::Fixed);
    rows->setDefaultSectionSize(view_->fontMetrics().height() + 6);
    view_->horizontalHeader()->setHighlightSections(false);
    view_->horizontalHeader()->setStretchLastSection(true);
    // A column is at least as wide as its title and the widest value of its format need in the
    // fonts really used, whatever width the form gave it.
    QFont titleFont = view_->horizontalHeader()->font();
    titleFont.setBold(true);
    const QFontMetrics titles(titleFont);
    const QFontMetrics cells(view_->font());
    const int padding = 2 * view_->style()->pixelMetric(QStyle::PM_HeaderMargin) + 8;
    int section = 0;
    for (const auto& column : grid.Columns) {
        if (!column.Visible) continue;
        const QString widest = QString::fromStdString(grid.WidestText(column));
        int needed = titles.horizontalAdvance(QString::fromStdString(column.Title)) + padding;
        if (!widest.isEmpty()) needed = std::max(needed, cells.horizontalAdvance(widest) + padding);
        const int width = std::max(column.Width, needed);
        extraWidth_ += width - column.Width;
        view_->setColumnWidth(section++, width);
    }

    grid.OnRowsChanged = [this, alive = std::weak_ptr<bool>(alive_)] {
        if (alive.expired()) return; // the window went before the form
        if (!model_->Moving()) changed_ = true;
    };
    QObject::connect(view_, &QTableView::pressed, [this](const QModelIndex& index) {
        UserEvent([this, row = index.row(), column = index.column()] {
            if (grid_.RowIndex() != row) grid_.SelectRow(row);
            if (!grid_.ReadOnly) grid_.SelectColumn(column);
        });
    });
    QObject::connect(view_, &QTableView::doubleClicked,
                     [this] { UserEvent([this] { grid_.DblClick(); }); });
    QObject::connect(view_->horizontalHeader(), &QHeaderView::sectionClicked, [this](int column) {
        UserEvent([this, field = model_->FieldOfColumn(column)] { grid_.ClickTitle(field); });
    });
    // Scrolling far moved the cursor. Once the view has painted, the mark follows and the form
    // shows its new row, as after any other move.
    QObject::connect(model_, &GridTableModel::CursorMoved, view_, [this] {
        QTimer::singleShot(0, view_, [this] {
            UserEvent([error = model_->TakeMoveError()] {
                if (!error.empty()) throw Exception(error);
            });
            ShowCursorRow(false);
        });
    });
}

GridBinding::~GridBinding() = default;

void GridBinding::Detach() {
    model_->Detach();
}

QWidget* GridBinding::Widget() const {
    return view_;
}

bool GridBinding::RoutesKey(const QKeyEvent&) const {
    return true;
}

void GridBinding::PullState() {
    int rowHeight = view_->verticalHeader()->defaultSectionSize();
    if (rowHeight > 0 && view_->viewport()->height() > rowHeight)
        grid_.VisibleRows = view_->viewport()->height() / rowHeight;
    if (!changed_) return;
    changed_ = false;
    model_->Reload();
    ShowCursorRow(true);
}

void GridBinding::ShowCursorRow(bool reveal) {
    auto row = model_->CursorRow();
    if (!row || *row >= model_->rowCount()) return;
    const int column = grid_.ReadOnly ? 0 : grid_.SelectedIndex();
    QModelIndex index = model_->index(static_cast<int>(*row), column);
    view_->selectionModel()->setCurrentIndex(
        index, grid_.ReadOnly ? QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows
                              : QItemSelectionModel::ClearAndSelect);
    view_->viewport()->update();
    if (reveal) view_->scrollTo(index, QAbstractItemView::EnsureVisible);
}

} // namespace corvane::desktop
