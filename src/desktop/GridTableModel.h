#pragma once

#include <QAbstractTableModel>

#include <cstdint>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace corvane::ui {
class Grid;
struct GridColumn;
} // namespace corvane::ui

namespace corvane::desktop {

// The rows of a grid for a Qt view. It counts the rows once and reads texts in windows around
// what the view paints, through the grid, so a list of a million rows opens at once and only the
// screenful in view is ever read. A row far from the cursor's is reached by moving the cursor
// there, as scrolling a data grid does.
class GridTableModel : public QAbstractTableModel {
    Q_OBJECT

public:
    explicit GridTableModel(ui::Grid& grid, QObject* parent = nullptr);

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation,
                        int role = Qt::DisplayRole) const override;

    // The grid is gone: the view is shown empty and nothing reads the grid again.
    void Detach();
    // The rows under the grid changed: count again and forget what was read.
    void Reload();
    // The cursor's row from the top; nothing for an empty cursor.
    std::optional<std::int64_t> CursorRow() const;
    // The field shown in a column of the view.
    std::string FieldOfColumn(int column) const;
    // The model itself is moving the cursor: the grid's change notices are its own.
    bool Moving() const { return moving_; }
    // Row texts read so far, for watching that a view reads only what it shows.
    std::int64_t RowsRead() const { return rowsRead_; }
    // What went wrong when the model last moved the cursor; empty when nothing did.
    std::string TakeMoveError() { return std::exchange(moveError_, {}); }

    // Rows read on each side of a wanted row; a row further than FarRows from the cursor's is
    // reached by moving the cursor.
    static constexpr int Reach = 60;
    static constexpr int FarRows = 150;

signals:
    // The model moved the cursor to reach rows the view scrolled to.
    void CursorMoved();

private:
    std::int64_t Count() const;
    const std::vector<std::string>* Row(int row) const;
    void Fetch(int row) const;
    std::vector<int> VisibleColumns() const;
    // The grid's column shown in a column of the view; null past the last.
    const ui::GridColumn* ColumnAt(int column) const;
    // Qt's alignment of the column's cells and title.
    int Alignment(const ui::GridColumn& column) const;

    ui::Grid* grid_;
    std::int64_t count_ = 0;
    mutable std::int64_t start_ = 0;
    mutable std::vector<std::vector<std::string>> rows_;
    mutable std::int64_t rowsRead_ = 0;
    mutable bool moving_ = false;
    mutable std::string moveError_;
};

} // namespace corvane::desktop
