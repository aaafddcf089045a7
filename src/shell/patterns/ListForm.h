#pragma once

#include "store/Database.h"
#include "store/Query.h"
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

// A form that lists rows in a read-only grid, with the record commands (New, Edit, Delete), the
// filter and find dialogs, and a sort order per indexed column. The rows come from one table or,
// for lists that show sums or joined columns, from a query. A subclass names its columns and sort
// entries and says which entry, filter, find and search forms belong to it; everything else a
// list does is here.
class ListForm : public ui::Form {
public:
    // A list over the table tableName, whose cursor is MainTable.
    ListForm(ui::Application& app, std::string name, std::string title, store::Database& db,
             std::string tableName, std::string tableComponentName, std::string keyFields);

    // The SELECT of a list over a query, without its ORDER BY: the sort entries add that.
    struct QuerySource {
        std::string Select;
        std::string ComponentName;
    };
    // A list over a query, whose cursor is MainQuery. Its rows are read-only; the records are
    // written through the entry form's table, and the list re-reads the query after.
    ListForm(ui::Application& app, std::string name, std::string title, store::Database& db,
             QuerySource query, std::string keyFields);
    ~ListForm() override;

    store::Database& Db() const { return db_; }
    const std::string& Title() const { return title_; }
    // Fields separated by ';' that identify a row, as Locate takes them.
    const std::string& KeyFields() const { return keyFields_; }
    // The key of the current row.
    std::vector<store::Value> CurrentKey();
    bool OverQuery() const { return overQuery_; }
    // The cursor the grid shows: MainTable, or MainQuery for a list over a query.
    store::DataSet& MainDataSet() const { return main_; }
    // The table index of the order in force; for a list over a query the index the sort entry
    // names as its like. A search form opened from the list starts in it.
    std::string SortIndexName() const;

private:
    store::DataSet& main_; // before the grid, which binds to it

public:
    // Only one of the two is opened, by the constructor that was called.
    store::Table MainTable;
    store::Query MainQuery;

    ui::MainMenu mnuMain{*this};
    ui::MenuItem mnuFile{mnuMain, "mnuFile", "&File"};
    ui::MenuItem mnuPrint{mnuFile, "mnuPrint", "&Print...", "Ctrl+P"};
    // Shown by the lists that export their rows to a spreadsheet or a text file.
    ui::MenuItem mnuExport{mnuFile, "mnuExport", "&Export..."};
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
    // Shown by the lists that can narrow to what is still open (invoices, cheques).
    ui::MenuItem mnuOutstanding{mnuView, "mnuOutstanding", "&Outstanding"};
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
    ui::Grid grdList{*this, "grdList", main_};

    // A sort order of a table list: the entry under Sort by, the column it sorts and the index it
    // selects ("" for the primary one). A click on that column's title runs it.
    ui::MenuItem& AddSortEntry(std::string itemName, std::string caption, std::string fieldName,
                               std::string indexName);
    // A sort order of a query list: the query is read again with orderBy as its ORDER BY.
    // indexName is the table index of the same order, for the search form.
    ui::MenuItem& AddQuerySortEntry(std::string itemName, std::string caption,
                                    std::string fieldName, std::string orderBy,
                                    std::string indexName = {});
    // Sets the caption and goes to the first row: at each show and after the filter changed.
    void ShowList();
    // Reads the rows again and stays on the row it stood on, when that is still there.
    void RefreshList();

    // The size the list took when it first showed; a double click on the tool bar returns to it.
    int StartWidth() const { return startWidth_; }
    int StartHeight() const { return startHeight_; }

    // The record commands; the menu, tool bar, popup and keys run these. A list whose new record
    // is preceded by a question of its own overrides NewRecord.
    virtual void NewRecord();
    void EditRecord();
    void DeleteRecord();
    void OpenFilter();
    void OpenFind();
    // Opens the search form with the typed character and locates the row it returns.
    void SearchFrom(char firstChar);

    // The main menu opens a list afresh: with refresh the rows are read again; the filter dialog
    // is reset, and the filter and the outstanding view are switched off.
    void PrepareMenuOpen(bool refresh);
    // Only what is still open: mnuOutstanding checked and filter in force.
    void ShowOutstanding(const std::string& filter);
    bool OutstandingShown() const { return mnuOutstanding.Checked(); }
    // Only the rows of one record of another list (a customer's invoices, an item's totals),
    // marked as a filter in force. The filter is in the list's own terms: a list whose
    // conditions are its query's WHERE line puts it there.
    virtual void ShowOnly(const std::string& filter);
    // The filter dialog first, reset and centred on the screen; the list shows when it is
    // confirmed.
    void RunFilterFirst();

protected:
    // The entry form of this list, made once and kept.
    virtual EntryForm& Entry() = 0;
    // The dialogs this list has, made on first use and kept; none by default. A list with a find
    // dialog also sets mnuFind.Visible.
    virtual FilterForm* Filter() { return nullptr; }
    virtual FindForm* Find() { return nullptr; }
    virtual SearchForm* Search() { return nullptr; }
    // The list's report, through the printer the program registered under the list's name;
    // nothing for a list without one.
    virtual void Print();
    // The list's rows to a file (reports::ExportList); nothing for a list without the command.
    virtual void Export() {}

private:
    struct SortEntry {
        std::unique_ptr<ui::MenuItem> Item;
        std::string FieldName;
        std::string IndexName;
        std::string OrderBy; // query lists only
    };
    ui::MenuItem& AddSort(SortEntry entry, std::string itemName, std::string caption);
    void Init();
    void Sort(SortEntry& entry);
    void TitleClicked(ui::GridColumn& column);
    void GridKeyPress(char& ch);
    // At creation: the columns to the screen's density, the width to them, the place on screen.
    void FitToColumns();
    // At the first show: twelve rows high; the size is remembered.
    void FitRowsAtFirstShow();
    void RestoreStartSize();
    void FollowSaves(EntryForm& entry);

    store::Database& db_;
    std::string title_;
    std::string keyFields_;
    bool overQuery_ = false;
    FilterForm* filterForm_ = nullptr; // once made
    std::string select_;
    std::vector<SortEntry> sorts_;
    int sortInForce_ = -1; // index into sorts_
    bool shownOnce_ = false;
    int startWidth_ = 0, startHeight_ = 0;
};

} // namespace corvane::shell
