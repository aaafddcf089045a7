#include "ui/Grid.h"

#include "core/DateEntry.h"
#include "store/Table.h"
#include "ui/Form.h"
#include "ui/ScriptError.h"

#include <algorithm>

namespace corvane::ui {

using store::DataEvent;

namespace {
// Raises a flag for the life of the object.
class FlagUp {
public:
    explicit FlagUp(bool& flag) : flag_(flag) { flag_ = true; }
    ~FlagUp() { flag_ = false; }
    FlagUp(const FlagUp&) = delete;
    FlagUp& operator=(const FlagUp&) = delete;

private:
    bool& flag_;
};
} // namespace

Grid::Grid(Form& form, std::string name, store::DataSet& dataSet)
    : Control(form, std::move(name)), dataSet_(dataSet) {
    dataSet_.AddObserver(this);
    if (dataSet_.Active() && dataSet_.Bof()) rowIndex_ = 0;
}

Grid::~Grid() {
    dataSet_.RemoveObserver(this);
}

Grid& Grid::AddColumn(std::string fieldName, std::string title, int width) {
    if (title.empty()) title = fieldName;
    Columns.push_back({std::move(fieldName), std::move(title), width});
    return *this;
}

GridColumn& Grid::Column(std::string_view fieldName) {
    auto it = std::find_if(Columns.begin(), Columns.end(),
                           [&](const auto& c) { return c.FieldName == fieldName; });
    if (it == Columns.end())
        throw ScriptError("Grid '" + Name() + "' on form '" + OwnerForm().Name() +
                          "' has no column '" + std::string(fieldName) + "'");
    return *it;
}

std::vector<std::string> Grid::VisibleFields() const {
    std::vector<std::string> fields;
    for (const auto& c : Columns)
        if (c.Visible) fields.push_back(c.FieldName);
    return fields;
}

RowWindow Grid::Rows(int before, int after) {
    FlagUp reading(reading_);
    return ReadRowWindow(dataSet_, VisibleFields(), before, after);
}

std::optional<std::int64_t> Grid::RowIndex() const {
    if (!rowIndex_ && !rowIndexAsked_) {
        rowIndexAsked_ = true;
        if (auto* table = dynamic_cast<store::Table*>(&dataSet_)) rowIndex_ = table->RowNumber();
    }
    // A new row stands just below the row the cursor was on.
    if (dataSet_.Active() && dataSet_.State() == store::DataSetState::Insert) {
        if (dataSet_.IsEmpty()) return 0;
        return rowIndex_ ? std::optional<std::int64_t>(*rowIndex_ + 1) : std::nullopt;
    }
    return rowIndex_;
}

bool Grid::RightAligned(const GridColumn& column) const {
    const store::Field* field = dataSet_.FindField(column.FieldName);
    // A key shown by the name it stands for (OnGetText) reads as text.
    return field && store::IsNumericType(field->DataType()) && !field->OnGetText;
}

bool Grid::ShowsCheckBox(const GridColumn& column) const {
    const store::Field* field = dataSet_.FindField(column.FieldName);
    return field && field->DataType() == store::FieldType::Boolean && !field->OnGetText;
}

std::string Grid::WidestText(const GridColumn& column) const {
    const store::Field* field = dataSet_.FindField(column.FieldName);
    if (!field) return {};
    if (field->DataType() == store::FieldType::Date)
        return field->DisplayFormat.empty()
                   ? DateToStr(Date::FromYmd(2000, 12, 28))
                   : FormatDate(field->DisplayFormat, Date::FromYmd(2000, 12, 28));
    if (!store::IsNumericType(field->DataType()) || field->DisplayFormat.empty()) return {};
    // Every digit place of every section filled: "(#,##0.00)" gives "(9,999.99)".
    std::string widest;
    std::size_t start = 0;
    const std::string& format = field->DisplayFormat;
    while (start <= format.size()) {
        std::size_t end = format.find(';', start);
        if (end == std::string::npos) end = format.size();
        std::string section = format.substr(start, end - start);
        std::replace_if(
            section.begin(), section.end(), [](char c) { return c == '#' || c == '0'; }, '9');
        if (section.size() > widest.size()) widest = section;
        start = end + 1;
    }
    return widest;
}

std::int64_t Grid::RowCount() const {
    if (!dataSet_.Active()) return 0;
    const bool inserting = dataSet_.State() == store::DataSetState::Insert;
    return dataSet_.RecordCount() + (inserting ? 1 : 0);
}

std::vector<std::string> Grid::CurrentRow() const {
    std::vector<std::string> texts;
    if (!dataSet_.Active() || dataSet_.IsEmpty()) return texts;
    for (const auto& name : VisibleFields())
        texts.push_back(dataSet_.FieldByName(name).DisplayText());
    return texts;
}

std::string Grid::Text() const {
    std::string text;
    auto cells = CurrentRow();
    for (std::size_t i = 0; i < cells.size(); ++i)
        text += (i ? " | " : "") + cells[i];
    return text;
}

void Grid::MoveRows(int distance) {
    FlagUp moving(ownMove_);
    int moved = dataSet_.MoveBy(distance);
    if (rowIndex_) *rowIndex_ += moved;
    if (dataSet_.Bof()) rowIndex_ = 0;
    if (!rowIndex_) rowIndexAsked_ = false;
    if (OnRowsChanged) OnRowsChanged();
}

void Grid::SelectRow(std::int64_t index) {
    if (!Enabled || !Showing()) return;
    if (CanFocus()) SetFocus();
    FlagUp moving(ownMove_);
    dataSet_.First();
    std::int64_t at = 0;
    // MoveBy takes an int; a row further down than that is reached in steps.
    while (at < index) {
        auto step = static_cast<int>(std::min<std::int64_t>(index - at, 1 << 30));
        int moved = dataSet_.MoveBy(step);
        at += moved;
        if (moved < step) break;
    }
    rowIndex_ = at;
    if (OnRowsChanged) OnRowsChanged();
}

void Grid::ClickTitle(std::string_view fieldName) {
    GridColumn& column = Column(fieldName);
    if (Enabled && Showing() && OnTitleClick) OnTitleClick(column);
}

void Grid::DblClick() {
    if (Enabled && Showing() && OnDblClick) OnDblClick();
}

// Enter is the list's: it opens the row. An editing grid takes it as the end of a cell, and Tab
// as a move to the next cell (Shift+Tab the one before) rather than out of the grid.
bool Grid::WantsKey(const KeyStroke& stroke) const {
    if (stroke.Code == Key::Enter) return true;
    return !ReadOnly && stroke.Code == Key::Tab && !stroke.Mods.Ctrl && !stroke.Mods.Alt;
}

void Grid::KeyDown(Key& key, Modifiers mods) {
    if (!ReadOnly && EditingKeyDown(key, mods)) {
        key = Key::None;
        return;
    }
    const bool moves = key == Key::Up || key == Key::Down || key == Key::PageUp ||
                       key == Key::PageDown || key == Key::Home || key == Key::End;
    if (!ReadOnly && moves) CommitEdit();
    int page = std::max(VisibleRows - 1, 1);
    switch (key) {
    case Key::Up:
        MoveRows(-1);
        break;
    case Key::Down:
        if (ReadOnly || !DownToNewRow()) MoveRows(1);
        break;
    case Key::PageUp:
        MoveRows(-page);
        break;
    case Key::PageDown:
        MoveRows(page);
        break;
    case Key::Home:
        SelectRow(0);
        break;
    case Key::End: {
        FlagUp moving(ownMove_);
        dataSet_.Last();
        rowIndex_.reset();
        rowIndexAsked_ = false;
        if (OnRowsChanged) OnRowsChanged();
        break;
    }
    default:
        return;
    }
    key = Key::None;
}

// ----- typing into cells

std::vector<GridColumn*> Grid::VisibleColumns() {
    std::vector<GridColumn*> columns;
    for (auto& c : Columns)
        if (c.Visible) columns.push_back(&c);
    return columns;
}

const GridColumn* Grid::SelectedColumn() const {
    int at = 0;
    for (const auto& c : Columns)
        if (c.Visible && at++ == selected_) return &c;
    return nullptr;
}

bool Grid::Editable(const GridColumn& column) const {
    if (ReadOnly || column.ReadOnly || !dataSet_.Active()) return false;
    const store::Field& field = dataSet_.FieldByName(column.FieldName);
    return !field.IsCalculated() && !field.ReadOnly;
}

// Down from the last row (or in an empty grid, or from a new row) starts a new row, unless the
// row is a new one still untouched. False when there is a row below to move to.
bool Grid::DownToNewRow() {
    if (!dataSet_.Active()) return true;
    const bool inserting = dataSet_.State() == store::DataSetState::Insert;
    if (inserting && !dataSet_.Modified()) return true;
    if (!inserting && !dataSet_.IsEmpty()) {
        FlagUp moving(ownMove_);
        const int moved = dataSet_.MoveBy(1); // writes a row in edit first
        if (moved > 0) {
            if (rowIndex_) *rowIndex_ += moved;
            if (!rowIndex_) rowIndexAsked_ = false;
            Changed();
            return true;
        }
    }
    if (dataSet_.State() != store::DataSetState::Browse) dataSet_.Post();
    dataSet_.Append();
    selected_ = 0;
    Changed();
    return true;
}

void Grid::StartRowEdit() {
    if (dataSet_.State() != store::DataSetState::Browse) return;
    if (dataSet_.IsEmpty())
        dataSet_.Append();
    else
        dataSet_.Edit();
}

void Grid::OpenEditor(std::string text) {
    const GridColumn* column = SelectedColumn();
    if (!column || !Editable(*column)) return;
    StartRowEdit();
    editor_ = std::move(text);
    Changed();
}

void Grid::CommitEdit() {
    if (!editor_) return;
    const GridColumn* column = SelectedColumn();
    if (!column) {
        editor_.reset();
        return;
    }
    // A refusal raises with the field's message, and the typing stays for the user to mend.
    dataSet_.FieldByName(column->FieldName).SetText(*editor_);
    editor_.reset();
    Changed();
}

void Grid::MoveCell(int step) {
    auto columns = VisibleColumns();
    if (columns.empty()) return;
    CommitEdit();
    selected_ = std::clamp(selected_ + step, 0, static_cast<int>(columns.size()) - 1);
    Changed();
}

// The next cell that takes typing; past the row's last one, the row is written and a new one
// starts below it.
void Grid::NextCell() {
    CommitEdit();
    auto columns = VisibleColumns();
    for (int i = selected_ + 1; i < static_cast<int>(columns.size()); ++i)
        if (Editable(*columns[static_cast<std::size_t>(i)])) {
            selected_ = i;
            Changed();
            return;
        }
    if (dataSet_.State() != store::DataSetState::Browse) dataSet_.Post();
    dataSet_.Append();
    selected_ = 0;
    Changed();
}

void Grid::SelectColumn(int visibleIndex) {
    auto columns = VisibleColumns();
    if (visibleIndex < 0 || visibleIndex >= static_cast<int>(columns.size())) return;
    CommitEdit();
    selected_ = visibleIndex;
    Changed();
}

void Grid::EditCell(std::string_view fieldName, std::string_view text) {
    if (ReadOnly)
        throw ScriptError("Grid '" + Name() + "' on form '" + OwnerForm().Name() +
                          "' is read-only");
    auto columns = VisibleColumns();
    for (std::size_t i = 0; i < columns.size(); ++i)
        if (columns[i]->FieldName == fieldName) {
            if (!Editable(*columns[i]))
                throw ScriptError("Column '" + std::string(fieldName) + "' of grid '" + Name() +
                                  "' does not take typing");
            if (CanFocus() && !Focused()) SetFocus();
            // Typing again into the cell being typed replaces what it held.
            if (selected_ == static_cast<int>(i)) editor_.reset();
            SelectColumn(static_cast<int>(i));
            OpenEditor(std::string(text));
            CommitEdit();
            return;
        }
    Column(fieldName); // raises: no such column
}

bool Grid::EditingKeyDown(Key key, Modifiers mods) {
    if (mods.Ctrl || mods.Alt) return false;
    switch (key) {
    case Key::Enter:
        NextCell();
        return true;
    case Key::Tab:
        if (mods.Shift)
            MoveCell(-1);
        else
            NextCell();
        return true;
    case Key::F2:
        if (const GridColumn* column = SelectedColumn(); column && !editor_ && Editable(*column))
            OpenEditor(dataSet_.IsEmpty() && dataSet_.State() == store::DataSetState::Browse
                           ? std::string()
                           : dataSet_.FieldByName(column->FieldName).Text());
        return true;
    case Key::Backspace:
        if (!editor_) return false;
        if (!editor_->empty()) {
            // UTF-8: drop the whole last character.
            std::size_t at = editor_->size() - 1;
            while (at > 0 && (static_cast<unsigned char>((*editor_)[at]) & 0xC0) == 0x80)
                --at;
            editor_->erase(at);
        }
        Changed();
        return true;
    case Key::Escape:
        if (editor_) {
            editor_.reset();
            Changed();
            return true;
        }
        if (dataSet_.Active() && dataSet_.State() != store::DataSetState::Browse) {
            dataSet_.Cancel();
            Changed();
            return true;
        }
        return false;
    case Key::Left:
        MoveCell(-1);
        return true;
    case Key::Right:
        MoveCell(1);
        return true;
    default:
        return false;
    }
}

void Grid::KeyPress(char& ch) {
    if (ReadOnly || static_cast<unsigned char>(ch) < 32) return;
    const GridColumn* column = SelectedColumn();
    if (!column || !Editable(*column)) return;
    if (editor_) {
        editor_->push_back(ch);
        Changed(); // the cell shows each key as it is typed
    } else {
        OpenEditor(std::string(1, ch));
    }
    ch = 0;
}

void Grid::Changed() {
    if (OnRowsChanged) OnRowsChanged();
}

void Grid::DataSetNotify(store::DataSet&, DataEvent event, store::Field*) {
    if (reading_) return;
    if (ownMove_) return;
    // Moved by someone else (a Locate, a refresh, a post that re-sorts the row): the position is
    // known again only at the top. A field typed into or the start of an edit moves nothing.
    bool moves =
        event != DataEvent::FieldChanged &&
        !(event == DataEvent::StateChanged && dataSet_.State() == store::DataSetState::Edit);
    if (moves) {
        bool atTop = event != DataEvent::DataSetClosed && dataSet_.Active() && dataSet_.Bof();
        rowIndex_ = atTop ? std::optional<std::int64_t>(0) : std::nullopt;
        rowIndexAsked_ = false;
    }
    if (OnRowsChanged) OnRowsChanged();
}

} // namespace corvane::ui
