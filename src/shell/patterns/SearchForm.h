#pragma once

#include "store/Database.h"
#include "store/Table.h"
#include "ui/Button.h"
#include "ui/DBLookupComboBox.h"
#include "ui/Edit.h"
#include "ui/Form.h"
#include "ui/Grid.h"

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace corvane::shell {

// Where a search starts: what the calling list shows and where it stands.
struct SearchStart {
    // The list's filter when one is on, so that the search shows the same rows; else empty.
    std::string Filter = {};
    // The list's order, by index name: the edit that searches by it takes the first key.
    std::string IndexName = {};
    // The row to start on, in the order of the key fields; empty for the first row.
    std::vector<store::Value> Key = {};
    // The key the user typed to open the search; 0 when it was opened otherwise.
    char FirstChar = 0;
};

// Look-up by typing: a grid on a cursor of its own and an edit per searchable field. Typing in an
// edit switches to that field's index and moves to the nearest row at each key; Up and Down in
// the edit move the grid. A combo may narrow the rows to one type, and a button opens the list
// form of the entity. OK returns the key of the row for the caller to locate.
class SearchForm : public ui::Form {
public:
    SearchForm(ui::Application& app, std::string name, store::Database& db, std::string tableName,
               std::string keyFields);
    ~SearchForm() override;

    store::Table SearchTable;
    ui::Grid grdSearch{*this, "grdSearch", SearchTable};
    ui::Button btnOK{*this, "btnOK", "OK"};
    ui::Button btnCancel{*this, "btnCancel", "Cancel"};
    ui::Button btnList{*this, "btnList", "&List..."};

    // Opens the list form of the entity (under the rights of the menu that opens it). The search
    // closes first; btnList shows only when this is set.
    std::function<void()> OpenList;

    // Prepares a showing: the form is centred on the calling control and kept on the screen, takes
    // the list's filter and order, stands on the start row and searches for the first key.
    void Start(const ui::Control& caller, const SearchStart& start);
    // The key of the chosen row, in the order of the key fields.
    std::vector<store::Value> SelectedKey();
    // The same as the user reads it, for messages.
    std::string SelectedKeyText();

protected:
    // An edit that searches fieldName on the index indexName ("" for the primary one).
    void AddSearchEdit(ui::Edit& edit, std::string fieldName, std::string indexName);
    // A combo named comboName of the rows of typeTable, shown by listField and chosen by keyField,
    // that narrows the search to the rows whose filterField (keyField when empty) holds the
    // chosen key. No choice shows all rows.
    ui::DBLookupComboBox& AddTypeFilter(std::string comboName, std::string typeTable,
                                        std::string keyField, std::string listField,
                                        std::string filterField = {});

private:
    struct SearchEdit {
        ui::Edit* Edit;
        std::string FieldName;
        std::string IndexName;
    };
    void MatchNearest(std::size_t editIndex);
    void MoveGrid(ui::Key& key);
    // The list's filter and the chosen type together on the search cursor.
    void ApplyFilter();
    void TypeChanged();
    void FitToGrid();

    std::string keyFields_;
    std::vector<SearchEdit> edits_;
    std::size_t activeEdit_ = 0;
    std::string listFilter_;
    std::unique_ptr<store::Table> typeTable_;
    std::unique_ptr<ui::DBLookupComboBox> typeCombo_;
    std::string typeField_;
    bool fitted_ = false;
};

} // namespace corvane::shell
