#include "shell/patterns/SearchForm.h"

#include "core/Exception.h"

namespace corvane::shell {

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
    grdSearch.OnDblClick = [this] { btnOK.Click(); };
}

void SearchForm::AddSearchEdit(ui::Edit& edit, std::string fieldName, std::string indexName) {
    edits_.push_back({&edit, std::move(fieldName), std::move(indexName)});
    std::size_t at = edits_.size() - 1;
    edit.OnChange = [this, at] { MatchNearest(edits_[at]); };
    edit.OnKeyDown = [this](ui::Key& key, ui::Modifiers) { MoveGrid(key); };
}

void SearchForm::MoveGrid(ui::Key& key) {
    if (key == ui::Key::Up || key == ui::Key::Down) {
        grdSearch.MoveRows(key == ui::Key::Up ? -1 : 1);
        key = ui::Key::None;
    }
}

void SearchForm::MatchNearest(const SearchEdit& search) {
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
    if (found)
        for (const std::string& name : store::SplitFieldList(keyFields_))
            key.push_back(SearchTable.FieldByName(name).AsValue());
    SearchTable.CancelRange();
    if (found)
        SearchTable.Locate(keyFields_, key);
    else
        SearchTable.Last();
}

void SearchForm::Start(store::Table& list, char firstChar) {
    SearchTable.SetFilter(list.Filter());
    SearchTable.SetFiltered(list.Filtered());
    const SearchEdit* chosen = edits_.empty() ? nullptr : &edits_.front();
    for (const SearchEdit& search : edits_)
        if (search.IndexName == list.IndexName()) chosen = &search;
    for (const SearchEdit& search : edits_)
        search.Edit->SetText({});
    if (!chosen) return;
    SearchTable.SetIndexName(chosen->IndexName);
    // Start on the list's row; the typed character moves on from there.
    std::vector<store::Value> key;
    for (const std::string& name : store::SplitFieldList(keyFields_))
        if (const store::Field* f = list.FindField(name)) key.push_back(f->AsValue());
    if (!key.empty()) SearchTable.Locate(keyFields_, key);
    FocusControl(*chosen->Edit);
    chosen->Edit->SetText(std::string(1, firstChar));
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
