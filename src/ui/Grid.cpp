#include "ui/Grid.h"

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
    if (rowIndex_ || rowIndexAsked_) return rowIndex_;
    rowIndexAsked_ = true;
    if (auto* table = dynamic_cast<store::Table*>(&dataSet_)) rowIndex_ = table->RowNumber();
    return rowIndex_;
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

// Enter is the list's: it opens the row.
bool Grid::WantsKey(const KeyStroke& stroke) const {
    return stroke.Code == Key::Enter;
}

void Grid::KeyDown(Key& key, Modifiers) {
    int page = std::max(VisibleRows - 1, 1);
    switch (key) {
    case Key::Up:
        MoveRows(-1);
        break;
    case Key::Down:
        MoveRows(1);
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
