#pragma once

#include "ui/Control.h"
#include "ui/RowWindow.h"

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace corvane::ui {

struct GridColumn {
    std::string FieldName;
    std::string Title;
    int Width = 64; // pixels
    bool TitleBold = false;
    bool Visible = true;
    // A column shown but never typed into (calculated fields are so by themselves).
    bool ReadOnly = false;
};

// A grid over a cursor. It holds no rows: whoever draws it asks for the few rows around the
// current one (Rows), so a grid over a million rows reads what is on the screen and no more.
// Up, Down, PageUp, PageDown, Home and End move the cursor.
// A read-only grid (the default) selects whole rows; Enter and typed characters go to OnKeyPress
// (a list form opens or searches there). A grid that is not read-only is typed into cell by cell,
// as a data entry grid: a character opens the cell's editor (F2 opens it on the cell's text),
// Enter writes the cell and goes to the next cell, and from the row's last cell to a new row;
// Left and Right change cells, Escape drops the cell's typing and then the row's, moving off a
// row writes it (the cursor's own checks may refuse, and the row stays), Down on the last row
// starts a new one.
class Grid : public Control, private store::DataSetObserver {
public:
    Grid(Form& form, std::string name, store::DataSet& dataSet);
    ~Grid() override;

    store::DataSet& DataSet() const { return dataSet_; }
    std::vector<GridColumn> Columns;
    Grid& AddColumn(std::string fieldName, std::string title = {}, int width = 64);
    // The column showing the field; a ScriptError when there is none.
    GridColumn& Column(std::string_view fieldName);
    bool ReadOnly = true;
    bool RowSelect = true;
    // The rows the host shows at once: PageUp and PageDown move by this many.
    int VisibleRows = 12;

    std::function<void(GridColumn& column)> OnTitleClick;
    std::function<void()> OnDblClick;
    // For the host: the rows under the grid changed (moved, edited, refreshed, filtered).
    std::function<void()> OnRowsChanged;

    // The display texts of the visible columns for up to `before` rows above the current one, the
    // current one and up to `after` rows below it.
    RowWindow Rows(int before, int after);
    // The texts of the current row; empty when the cursor has none.
    std::vector<std::string> CurrentRow() const;
    // How many rows from the top the current one is, when the grid knows: after moves it made
    // itself from the top, when the cursor stands on its first row, or, after a move by code (a
    // Locate, First, Last), as a table cursor counts it on its index. Not known for a query or a
    // filter handler that is not at the top.
    std::optional<std::int64_t> RowIndex() const;
    // The rows a person sees: the cursor's, and a new row being typed.
    std::int64_t RowCount() const;

    // Numbers stand to the right of their cells, as in every column of figures; texts, dates
    // and flags to the left.
    bool RightAligned(const GridColumn& column) const;
    // A yes/no flag shows as a check box in its cell, ticked for yes.
    bool ShowsCheckBox(const GridColumn& column) const;
    // The widest text the column's field shows by its display format (a money format's largest
    // amount, a date in the short date format); empty for texts, whose width the form sets.
    std::string WidestText(const GridColumn& column) const;

    // The cell being typed into, among the visible columns; editing grids only.
    int SelectedIndex() const { return selected_; }
    const GridColumn* SelectedColumn() const;
    bool EditorMode() const { return editor_.has_value(); }
    // The text in the open cell editor; empty when none is open.
    std::string EditorText() const { return editor_.value_or(std::string()); }

    // The user's acts on the grid.
    void SelectRow(std::int64_t index);  // a click on the row `index` from the top
    void SelectColumn(int visibleIndex); // a click on a cell of that column, writing an open cell
    // Types text into the named column's cell of the current row and writes it, as a person
    // clicking the cell, typing and pressing Enter would (the row stays in edit).
    void EditCell(std::string_view fieldName, std::string_view text);
    void CommitEdit() override;
    void MoveRows(int distance);
    void ClickTitle(std::string_view fieldName);
    void DblClick();

    const char* TypeName() const override { return "Grid"; }
    // The current row's texts, separated by " | ".
    std::string Text() const override;

protected:
    bool WantsKey(const KeyStroke& stroke) const override;
    void KeyDown(Key& key, Modifiers mods) override;
    void KeyPress(char& ch) override;

private:
    bool EditingKeyDown(Key key, Modifiers mods);
    bool DownToNewRow();
    bool Editable(const GridColumn& column) const;
    void OpenEditor(std::string text);
    void NextCell();
    void MoveCell(int step);
    void StartRowEdit();
    void Changed();
    std::vector<GridColumn*> VisibleColumns();
    void DataSetNotify(store::DataSet& dataSet, store::DataEvent event,
                       store::Field* field) override;
    std::vector<std::string> VisibleFields() const;

    store::DataSet& dataSet_;
    // Asked of the cursor on demand, once after each move the grid did not make itself.
    mutable std::optional<std::int64_t> rowIndex_;
    mutable bool rowIndexAsked_ = false;
    bool ownMove_ = false;
    bool reading_ = false;
    int selected_ = 0;
    std::optional<std::string> editor_;
};

} // namespace corvane::ui
