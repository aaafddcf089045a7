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
};

// A grid over a cursor. It holds no rows: whoever draws it asks for the few rows around the
// current one (Rows), so a grid over a million rows reads what is on the screen and no more. The
// grid is read-only and selects whole rows; Up, Down, PageUp, PageDown, Home and End move the
// cursor; Enter and typed characters go to OnKeyPress (a list form opens or searches there).
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

    // The user's acts on the grid.
    void SelectRow(std::int64_t index); // a click on the row `index` from the top
    void MoveRows(int distance);
    void ClickTitle(std::string_view fieldName);
    void DblClick();

    const char* TypeName() const override { return "Grid"; }
    // The current row's texts, separated by " | ".
    std::string Text() const override;

protected:
    bool WantsKey(const KeyStroke& stroke) const override;
    void KeyDown(Key& key, Modifiers mods) override;

private:
    void DataSetNotify(store::DataSet& dataSet, store::DataEvent event,
                       store::Field* field) override;
    std::vector<std::string> VisibleFields() const;

    store::DataSet& dataSet_;
    // Asked of the cursor on demand, once after each move the grid did not make itself.
    mutable std::optional<std::int64_t> rowIndex_;
    mutable bool rowIndexAsked_ = false;
    bool ownMove_ = false;
    bool reading_ = false;
};

} // namespace corvane::ui
