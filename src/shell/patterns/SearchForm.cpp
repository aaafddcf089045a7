#include "shell/patterns/SearchForm.h"

#include "core/Exception.h"
#include "shell/patterns/FilterTerms.h"
#include "shell/patterns/GridSizing.h"
#include "ui/Application.h"

#include <algorithm>

namespace corvane::shell {

namespace {
// The rows the grid shows, and the edits, combo and buttons above and below it, at the usual
// density.
constexpr int kGridRows = 10;
constexpr int kLineHeight = 28;
constexpr int kMinWidth = 320;
} // namespace

SearchForm::SearchForm(ui::Application& app, std::string name, store::Database& db,
                       std::string tableName, std::string keyFields)
    : Form(app, std::move(name)), SearchTable(db, std::move(tableName)),
      keyFields_(std::move(keyFields)) {
    SearchTable.Name = "tblSearch";
    SearchTable.ReadOnly = true;
    SearchTable.Open();
    KeyPreview = true;
    OnKeyDown = [](ui::Key& key, ui::Modifiers) { ui::SwallowAlt(key); };
    btnOK.Default = true;
    btnCancel.Cancel = true;
    btnCancel.ModalResult = ui::mrCancel;
    btnOK.OnClick = [this] {
        if (SearchTable.IsEmpty()) throw Exception("There is no row to choose");
        SetModalResult(ui::mrOK);
    };
    btnList.Visible = false;
    btnList.OnClick = [this] {
        Close();
        if (OpenList) OpenList();
    };
    grdSearch.OnDblClick = [this] { btnOK.Click(); };
    // The subclass adds its columns and edits after this constructor.
    OnCreate = [this] { FitToGrid(); };
}

SearchForm::~SearchForm() = default;

void SearchForm::FitToGrid() {
    if (fitted_) return;
    fitted_ = true;
    double scale = App().ScaleFactor;
    GridSizing::ScaleColumns(grdSearch, scale);
    ClientWidth =
        std::max(GridSizing::ClientWidth(grdSearch, scale), GridSizing::Scaled(kMinWidth, scale));
    int lines = static_cast<int>(edits_.size()) + (typeCombo_ ? 1 : 0) + 1;
    ClientHeight = GridSizing::ClientHeight(kGridRows, lines * kLineHeight, scale);
}

void SearchForm::AddSearchEdit(ui::Edit& edit, std::string fieldName, std::string indexName) {
    edits_.push_back({&edit, std::move(fieldName), std::move(indexName)});
    std::size_t at = edits_.size() - 1;
    edit.OnChange = [this, at] { MatchNearest(at); };
    edit.OnKeyDown = [this](ui::Key& key, ui::Modifiers) { MoveGrid(key); };
}

ui::DBLookupComboBox& SearchForm::AddTypeFilter(std::string comboName, std::string typeTable,
                                                std::string keyField, std::string listField,
                                                std::string filterField) {
    if (typeCombo_) throw Exception("A search has one type filter");
    typeField_ = filterField.empty() ? keyField : std::move(filterField);
    typeTable_ = std::make_unique<store::Table>(SearchTable.OwnerDatabase(), std::move(typeTable));
    typeTable_->ReadOnly = true;
    typeTable_->Open();
    typeCombo_ = std::make_unique<ui::DBLookupComboBox>(*this, std::move(comboName), *typeTable_,
                                                        std::move(keyField), std::move(listField));
    typeCombo_->OnChange = [this] { TypeChanged(); };
    return *typeCombo_;
}

void SearchForm::ApplyFilter() {
    std::vector<std::string> terms;
    if (!listFilter_.empty()) terms.push_back("(" + listFilter_ + ")");
    if (typeCombo_ && !typeCombo_->KeyValue().IsNull())
        terms.push_back(LookupTerm(typeField_, typeCombo_->KeyValue().Int()));
    std::string expression = JoinTerms(terms);
    SearchTable.SetFilter(expression);
    SearchTable.SetFiltered(!expression.empty());
}

void SearchForm::TypeChanged() {
    ApplyFilter();
    // The rows changed under the text typed so far: find its nearest row among them.
    if (activeEdit_ < edits_.size()) MatchNearest(activeEdit_);
}

void SearchForm::MoveGrid(ui::Key& key) {
    if (key == ui::Key::Up || key == ui::Key::Down) {
        grdSearch.MoveRows(key == ui::Key::Up ? -1 : 1);
        key = ui::Key::None;
    }
}

void SearchForm::MatchNearest(std::size_t editIndex) {
    activeEdit_ = editIndex;
    const SearchEdit& search = edits_[editIndex];
    if (SearchTable.IndexName() != search.IndexName) SearchTable.SetIndexName(search.IndexName);
    std::string text = search.Edit->Text();
    if (text.empty()) {
        SearchTable.First();
        return;
    }
    store::Field& field = SearchTable.FieldByName(search.FieldName);
    if (field.DataType() != store::FieldType::String) {
        SearchTable.Locate(search.FieldName, {field.Coerce(text)});
        return;
    }
    // The first row at or after the typed text in the index's order: a range from the text to
    // the highest possible value finds it by the index, then the cursor goes there without it.
    std::string highest(field.Size() > 0 ? static_cast<std::size_t>(field.Size()) : 255, '\xff');
    SearchTable.SetRange({text}, {highest});
    bool found = !SearchTable.IsEmpty();
    std::vector<store::Value> key;
    if (found) key = SelectedKey();
    SearchTable.CancelRange();
    if (found)
        SearchTable.Locate(keyFields_, key);
    else
        SearchTable.Last();
}

void SearchForm::Start(const ui::Control& caller, const SearchStart& start) {
    // A search made by its caller rather than by the application is not created yet.
    FitToGrid();
    CentreOn(caller);
    btnList.Visible = static_cast<bool>(OpenList);
    listFilter_ = start.Filter;
    // Each search starts with all types, so that it shows what the list shows.
    if (typeCombo_) typeCombo_->SetKeyValue(store::Value());
    ApplyFilter();
    for (const SearchEdit& search : edits_)
        search.Edit->SetText({});
    if (edits_.empty()) return;
    std::size_t chosen = 0;
    for (std::size_t i = 0; i < edits_.size(); ++i)
        if (edits_[i].IndexName == start.IndexName) chosen = i;
    activeEdit_ = chosen;
    SearchTable.SetIndexName(edits_[chosen].IndexName);
    // Start on the list's row; the typed character moves on from there.
    if (!start.Key.empty()) SearchTable.Locate(keyFields_, start.Key);
    FocusControl(*edits_[chosen].Edit);
    if (start.FirstChar != 0) edits_[chosen].Edit->SetText(std::string(1, start.FirstChar));
}

std::vector<store::Value> SearchForm::SelectedKey() {
    std::vector<store::Value> key;
    for (const std::string& name : store::SplitFieldList(keyFields_))
        key.push_back(SearchTable.FieldByName(name).AsValue());
    return key;
}

std::string SearchForm::SelectedKeyText() {
    std::string text;
    for (const std::string& name : store::SplitFieldList(keyFields_)) {
        if (!text.empty()) text += ", ";
        text += SearchTable.FieldByName(name).AsString();
    }
    return text;
}

} // namespace corvane::shell
