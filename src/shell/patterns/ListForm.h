#pragma once

#include "store/Database.h"
#include "store/Table.h"
#include "store/Value.h"
#include "ui/Form.h"
#include "ui/Grid.h"
#include "ui/Menu.h"
#include "ui/MenuItem.h"
#include "ui/ToolBar.h"

#include <memory>
#include <string>
#include <vector>

namespace corvane::shell {

class EntryForm;
class FilterForm;
class FindForm;
class SearchForm;

// A form that lists the rows of one table in a read-only grid, with the record commands (New,
// Edit, Delete), the filter and find dialogs, and a sort order per indexed column. A subclass
// names its columns and sort entries and says which entry, filter, find and search forms belong
// to it; everything else a list does is here.
class ListForm : public ui::Form {
public:
    ListForm(ui::Application& app, std::string name, std::string title, store::Database& db,
             std::string tableName, std::string tableComponentName, std::string keyFields);
    ~ListForm() override;

    store::Database& Db() const { return db_; }
    const std::string& Title() const { return title_; }
    // Fields separated by ';' that identify a row, as Locate takes them.
    const std::string& KeyFields() const { return keyFields_; }
    // The key of the current row.
    std::vector<store::Value> CurrentKey();

    store::Table MainTable;

    ui::MainMenu mnuMain{*this};
    ui::MenuItem mnuFile{mnuMain, "mnuFile", "&File"};
    ui::MenuItem mnuPrint{mnuFile, "mnuPrint", "&Print...", "Ctrl+P"};
    ui::MenuItem mnuFileSep{mnuFile, "mnuFileSep", "-"};
    ui::MenuItem mnuExit{mnuFile, "mnuExit", "E&xit"};
    ui::MenuItem mnuRecords{mnuMain, "mnuRecords", "&Records"};
    ui::MenuItem mnuNew{mnuRecords, "mnuNew", "&New", "Ins"};
    ui::MenuItem mnuEdit{mnuRecords, "mnuEdit", "&Edit"};
    ui::MenuItem mnuDelete{mnuRecords, "mnuDelete", "&Delete", "Ctrl+Del"};
    ui::MenuItem mnuFind{mnuRecords, "mnuFind", "&Find...", "Ctrl+F"};
    ui::MenuItem mnuView{mnuMain, "mnuView", "&View"};
    ui::MenuItem mnuFilter{mnuView, "mnuFilter", "F&ilter...", "Ctrl+L"};
    ui::MenuItem mnuSortBy{mnuView, "mnuSortBy", "&Sort by"};
    ui::MenuItem mnuRefresh{mnuView, "mnuRefresh", "&Refresh", "F5"};
    ui::MenuItem mnuHelp{mnuMain, "mnuHelp", "&Help"};
    ui::PopupMenu popList{*this, "popList"};
    ui::MenuItem popNew{popList, "popNew", "&New"};
    ui::MenuItem popEdit{popList, "popEdit", "&Edit"};
    ui::MenuItem popDelete{popList, "popDelete", "&Delete"};
    ui::ToolBar tlbList{*this, "tlbList"};
    ui::ToolButton tbnNew{tlbList, "tbnNew", mnuNew};
    ui::ToolButton tbnEdit{tlbList, "tbnEdit", mnuEdit};
    ui::ToolButton tbnDelete{tlbList, "tbnDelete", mnuDelete};
    ui::ToolButton tbnFilter{tlbList, "tbnFilter", mnuFilter};
    ui::ToolButton tbnFind{tlbList, "tbnFind", mnuFind};
    ui::Grid grdList{*this, "grdList", MainTable};

    // A sort order: the entry under Sort by, the column it sorts and the index it selects ("" for
    // the primary one). A click on that column's title runs it.
    ui::MenuItem& AddSortEntry(std::string itemName, std::string caption, std::string fieldName,
                               std::string indexName);
    // Sets the caption and goes to the first row: at each show and after the filter changed.
    void ShowList();

    // The record commands; the menu, tool bar, popup and keys run these.
    void NewRecord();
    void EditRecord();
    void DeleteRecord();
    void OpenFilter();
    void OpenFind();
    // Opens the search form with the typed character and locates the row it returns.
    void SearchFrom(char firstChar);

protected:
    // The entry form of this list, made once and kept.
    virtual EntryForm& Entry() = 0;
    // The dialogs this list has, made on first use and kept; none by default. A list with a find
    // dialog also sets mnuFind.Visible.
    virtual FilterForm* Filter() { return nullptr; }
    virtual FindForm* Find() { return nullptr; }
    virtual SearchForm* Search() { return nullptr; }
    virtual void Print() {}

private:
    struct SortEntry {
        std::unique_ptr<ui::MenuItem> Item;
        std::string FieldName;
        std::string IndexName;
    };
    void Sort(SortEntry& entry);
    void TitleClicked(ui::GridColumn& column);
    void GridKeyPress(char& ch);
    void SizeToColumns();
    void FollowSaves(EntryForm& entry);

    store::Database& db_;
    std::string title_;
    std::string keyFields_;
    std::vector<SortEntry> sorts_;
    bool shownOnce_ = false;
};

} // namespace corvane::shell
