#pragma once

#include "store/Database.h"
#include "store/Table.h"
#include "ui/Button.h"
#include "ui/Edit.h"
#include "ui/Form.h"
#include "ui/Grid.h"

#include <string>
#include <vector>

namespace corvane::shell {

// Look-up by typing: a grid on a cursor of its own and an edit per searchable field. Typing in an
// edit switches to that field's index and moves to the nearest row at each key; Up and Down in
// the edit move the grid. OK returns the key of the row for the caller to locate.
class SearchForm : public ui::Form {
public:
    SearchForm(ui::Application& app, std::string name, store::Database& db, std::string tableName,
               std::string keyFields);

    store::Table SearchTable;
    ui::Grid grdSearch{*this, "grdSearch", SearchTable};
    ui::Button btnOK{*this, "btnOK", "OK"};
    ui::Button btnCancel{*this, "btnCancel", "Cancel"};

    // Prepares a showing from a list: its filter, its index (when an edit searches by it), its
    // current row, and the character the user typed there, which starts the search.
    void Start(store::Table& list, char firstChar);
    // The key of the chosen row, in the order of the key fields.
    std::vector<store::Value> SelectedKey();
    // The same as the user reads it, for messages.
    std::string SelectedKeyText();

protected:
    // An edit that searches fieldName on the index indexName ("" for the primary one).
    void AddSearchEdit(ui::Edit& edit, std::string fieldName, std::string indexName);

private:
    struct SearchEdit {
        ui::Edit* Edit;
        std::string FieldName;
        std::string IndexName;
    };
    void MatchNearest(const SearchEdit& search);
    void MoveGrid(ui::Key& key);

    std::string keyFields_;
    std::vector<SearchEdit> edits_;
};

} // namespace corvane::shell
