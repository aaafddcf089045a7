#include "desktop/GridTableModel.h"

#include "ui/Grid.h"

#include <QColor>

#include <algorithm>
#include <climits>

namespace corvane::desktop {

GridTableModel::GridTableModel(ui::Grid& grid, QObject* parent)
    : QAbstractTableModel(parent), grid_(&grid) {
    count_ = Count();
}

std::int64_t GridTableModel::Count() const {
    return grid_ ? grid_->RowCount() : 0;
}

void GridTableModel::Detach() {
    beginResetModel();
    grid_ = nullptr;
    count_ = 0;
    rows_.clear();
    start_ = 0;
    endResetModel();
}

std::vector<int> GridTableModel::VisibleColumns() const {
    std::vector<int> visible;
    if (!grid_) return visible;
    for (std::size_t i = 0; i < grid_->Columns.size(); ++i)
        if (grid_->Columns[i].Visible) visible.push_back(static_cast<int>(i));
    return visible;
}

int GridTableModel::rowCount(const QModelIndex& parent) const {
    if (parent.isValid()) return 0;
    return static_cast<int>(std::min<std::int64_t>(count_, INT_MAX));
}

int GridTableModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(VisibleColumns().size());
}

std::string GridTableModel::FieldOfColumn(int column) const {
    auto visible = VisibleColumns();
    if (column < 0 || column >= static_cast<int>(visible.size())) return {};
    return grid_->Columns[static_cast<std::size_t>(visible[static_cast<std::size_t>(column)])]
        .FieldName;
}

QVariant GridTableModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal) return {};
    auto visible = VisibleColumns();
    if (section < 0 || section >= static_cast<int>(visible.size())) return {};
    const ui::GridColumn& column =
        grid_->Columns[static_cast<std::size_t>(visible[static_cast<std::size_t>(section)])];
    if (role == Qt::DisplayRole) return QString::fromStdString(column.Title);
    if (role == Qt::TextAlignmentRole) return Alignment(column);
    return {};
}

int GridTableModel::Alignment(const ui::GridColumn& column) const {
    return int((grid_->RightAligned(column) ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter);
}

QVariant GridTableModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid() || !grid_) return {};
    // The cell being typed into shows the typing, on a light ground of its own.
    const bool typing = grid_->EditorMode() && index.column() == grid_->SelectedIndex() &&
                        CursorRow() == index.row();
    if (role == Qt::BackgroundRole && typing) return QColor(255, 250, 205);
    if (role == Qt::TextAlignmentRole) {
        const ui::GridColumn* column = ColumnAt(index.column());
        return column ? QVariant(Alignment(*column)) : QVariant();
    }
    if (role != Qt::DisplayRole && role != Qt::CheckStateRole) return {};
    if (typing)
        return role == Qt::DisplayRole ? QString::fromStdString(grid_->EditorText()) : QVariant();
    const ui::GridColumn* column = ColumnAt(index.column());
    const bool flag = column && grid_->ShowsCheckBox(*column);
    if (flag != (role == Qt::CheckStateRole)) return {};
    const std::vector<std::string>* row = Row(index.row());
    if (!row || index.column() >= static_cast<int>(row->size())) return {};
    const std::string& text = (*row)[static_cast<std::size_t>(index.column())];
    // A flag's cell is its box alone: ticked for yes, empty for no, nothing for a null.
    if (flag)
        return text.empty() ? QVariant() : QVariant(text == "True" ? Qt::Checked : Qt::Unchecked);
    return QString::fromStdString(text);
}

const ui::GridColumn* GridTableModel::ColumnAt(int column) const {
    auto visible = VisibleColumns();
    if (column < 0 || column >= static_cast<int>(visible.size())) return nullptr;
    return &grid_->Columns[static_cast<std::size_t>(visible[static_cast<std::size_t>(column)])];
}

void GridTableModel::Reload() {
    std::int64_t count = Count();
    if (count != count_) {
        // A new count: the view starts afresh.
        beginResetModel();
        rows_.clear();
        start_ = 0;
        count_ = count;
        endResetModel();
        return;
    }
    rows_.clear();
    start_ = 0;
    if (count_ > 0) emit dataChanged(index(0, 0), index(rowCount() - 1, columnCount() - 1));
}

std::optional<std::int64_t> GridTableModel::CursorRow() const {
    if (count_ == 0 || !grid_) return std::nullopt;
    auto& dataSet = grid_->DataSet();
    if (auto at = grid_->RowIndex()) return std::min(*at, count_ - 1);
    if (dataSet.Eof()) return count_ - 1;
    // Moved by a search or the like: near either end the rows beyond tell where it stands.
    ui::RowWindow after = grid_->Rows(0, Reach);
    auto behind = static_cast<std::int64_t>(after.Rows.size()) - 1 - after.Current;
    if (behind < Reach) return count_ - 1 - behind;
    ui::RowWindow before = grid_->Rows(Reach, 0);
    if (before.Current < Reach) return before.Current;
    return std::nullopt;
}

const std::vector<std::string>* GridTableModel::Row(int row) const {
    if (row < 0 || row >= count_) return nullptr;
    if (row < start_ || row >= start_ + static_cast<std::int64_t>(rows_.size())) Fetch(row);
    std::int64_t at = row - start_;
    if (at < 0 || at >= static_cast<std::int64_t>(rows_.size())) return nullptr;
    return &rows_[static_cast<std::size_t>(at)];
}

void GridTableModel::Fetch(int row) const {
    struct Moving {
        bool& flag;
        explicit Moving(bool& f) : flag(f) { flag = true; }
        ~Moving() { flag = false; }
    } moving(moving_);
    std::optional<std::int64_t> cursor;
    bool moved = false;
    try {
        cursor = CursorRow();
        if (!cursor) {
            // Where the cursor stands is unknown: start again from the top.
            moved = true;
            grid_->MoveRows(INT_MIN + 1);
            cursor = 0;
        }
        if (std::abs(row - *cursor) > FarRows) {
            moved = true;
            grid_->MoveRows(static_cast<int>(row - *cursor));
            cursor = grid_->RowIndex().value_or(row);
        }
    } catch (const std::exception& e) {
        // A scroll handler of the form refused; painting goes on and the event shows the error.
        moveError_ = e.what();
        emit const_cast<GridTableModel*>(this)->CursorMoved();
        return;
    }
    std::int64_t low = std::max<std::int64_t>(0, std::min<std::int64_t>(*cursor, row - Reach));
    std::int64_t high =
        std::min<std::int64_t>(count_ - 1, std::max<std::int64_t>(*cursor, row + Reach));
    ui::RowWindow window =
        grid_->Rows(static_cast<int>(*cursor - low), static_cast<int>(high - *cursor));
    start_ = *cursor - std::max(window.Current, 0);
    rows_ = std::move(window.Rows);
    rowsRead_ += static_cast<std::int64_t>(rows_.size());
    if (moved) emit const_cast<GridTableModel*>(this)->CursorMoved();
}

} // namespace corvane::desktop
