#include "shell/patterns/ListForm.h"

#include "core/Exception.h"
#include "shell/main/FormRegistry.h"
#include "shell/patterns/EditErrorHook.h"
#include "shell/patterns/EntryForm.h"
#include "shell/patterns/FilterForm.h"
#include "shell/patterns/FindForm.h"
#include "shell/patterns/GridSizing.h"
#include "shell/patterns/SearchForm.h"
#include "ui/Application.h"
#include "ui/Host.h"

#include <algorithm>

namespace corvane::shell {

namespace {
// The rows a list shows when it first opens.
constexpr int kStartRows = 12;
// The tool bar above the grid, at the usual density.
constexpr int kToolBarHeight = 30;
} // namespace

ListForm::ListForm(ui::Application& app, std::string name, std::string title, store::Database& db,
                   std::string tableName, std::string tableComponentName, std::string keyFields)
    : Form(app, std::move(name)), main_(MainTable), MainTable(db, std::move(tableName)),
      MainQuery(db), db_(db), title_(std::move(title)), keyFields_(std::move(keyFields)) {
    MainTable.Name = std::move(tableComponentName);
    MainTable.Open();
    EditErrorHook::Attach(MainTable);
    Init();
}

ListForm::ListForm(ui::Application& app, std::string name, std::string title, store::Database& db,
                   QuerySource query, std::string keyFields)
    : Form(app, std::move(name)), main_(MainQuery), MainTable(db), MainQuery(db), db_(db),
      title_(std::move(title)), keyFields_(std::move(keyFields)), overQuery_(true),
      select_(std::move(query.Select)) {
    MainQuery.Name = std::move(query.ComponentName);
    MainQuery.ReadOnly = true;
    MainQuery.SetSQL(select_);
    MainQuery.Open();
    Init();
}

void ListForm::Init() {
    Caption = title_;
    grdList.Popup = &popList;
    grdList.ReadOnly = true;
    grdList.RowSelect = true;
    SetLayout(ui::Column{tlbList, grdList});

    mnuExit.OnClick = [this] { Close(); };
    mnuPrint.OnClick = [this] { Print(); };
    mnuExport.OnClick = [this] { Export(); };
    mnuNew.OnClick = popNew.OnClick = [this] { NewRecord(); };
    mnuEdit.OnClick = popEdit.OnClick = [this] { EditRecord(); };
    mnuDelete.OnClick = popDelete.OnClick = [this] { DeleteRecord(); };
    mnuFilter.OnClick = [this] { OpenFilter(); };
    mnuFind.OnClick = [this] { OpenFind(); };
    mnuRefresh.OnClick = [this] { RefreshList(); };
    grdList.OnDblClick = [this] { mnuEdit.Click(); };
    grdList.OnKeyPress = [this](char& ch) { GridKeyPress(ch); };
    grdList.OnTitleClick = [this](ui::GridColumn& column) { TitleClicked(column); };
    tlbList.OnDblClick = [this] { RestoreStartSize(); };

    // Only some lists have a find dialog or an outstanding view; those show the command
    // themselves.
    mnuFind.Visible = false;
    mnuOutstanding.Visible = false;
    mnuExport.Visible = false;
    // The subclass adds its columns in its own constructor, after this one: the sizes that come
    // from them wait for the creation, which follows the construction.
    OnCreate = [this] { FitToColumns(); };
    OnShow = [this] {
        if (!shownOnce_) FitRowsAtFirstShow();
        shownOnce_ = true;
        ShowList();
    };
}

ListForm::~ListForm() = default;

void ListForm::Print() {
    App().PrintList(*this);
}

std::vector<store::Value> ListForm::CurrentKey() {
    std::vector<store::Value> key;
    for (const std::string& field : store::SplitFieldList(keyFields_))
        key.push_back(main_.FieldByName(field).AsValue());
    return key;
}

std::string ListForm::SortIndexName() const {
    if (!overQuery_) return MainTable.IndexName();
    return sortInForce_ >= 0 ? sorts_[static_cast<std::size_t>(sortInForce_)].IndexName
                             : std::string();
}

ui::MenuItem& ListForm::AddSortEntry(std::string itemName, std::string caption,
                                     std::string fieldName, std::string indexName) {
    if (overQuery_) throw Exception("A list over a query sorts by its ORDER BY, not by an index");
    return AddSort({nullptr, std::move(fieldName), std::move(indexName), {}}, std::move(itemName),
                   std::move(caption));
}

ui::MenuItem& ListForm::AddQuerySortEntry(std::string itemName, std::string caption,
                                          std::string fieldName, std::string orderBy,
                                          std::string indexName) {
    if (!overQuery_) throw Exception("A list over a table sorts by an index");
    return AddSort({nullptr, std::move(fieldName), std::move(indexName), std::move(orderBy)},
                   std::move(itemName), std::move(caption));
}

ui::MenuItem& ListForm::AddSort(SortEntry entry, std::string itemName, std::string caption) {
    entry.Item = std::make_unique<ui::MenuItem>(mnuSortBy, std::move(itemName), std::move(caption));
    entry.Item->RadioItem = true;
    sorts_.push_back(std::move(entry));
    // The entries live in a vector that may still grow: find this one again by its place.
    std::size_t at = sorts_.size() - 1;
    sorts_[at].Item->OnClick = [this, at] { Sort(sorts_[at]); };
    return *sorts_[at].Item;
}

void ListForm::Sort(SortEntry& entry) {
    if (overQuery_) {
        // The statement is the program's own text, never the user's.
        MainQuery.Close();
        MainQuery.SetSQL(select_ + " ORDER BY " + entry.OrderBy);
        MainQuery.Open();
    } else {
        MainTable.SetIndexName(entry.IndexName);
    }
    sortInForce_ = static_cast<int>(&entry - sorts_.data());
    main_.First();
    entry.Item->SetChecked(true);
    for (ui::GridColumn& column : grdList.Columns)
        column.TitleBold = column.FieldName == entry.FieldName;
}

void ListForm::TitleClicked(ui::GridColumn& column) {
    for (SortEntry& entry : sorts_)
        if (entry.FieldName == column.FieldName) {
            entry.Item->Click();
            return;
        }
    // No index of its own: show the View menu, so the user sees which orders there are.
    PressKey(ui::KeyStroke(ui::Key::Alt));
}

void ListForm::ShowList() {
    main_.First();
    Caption = title_ + (mnuFilter.Checked() ? " (Filtered)" : "");
}

void ListForm::RefreshList() {
    if (!overQuery_) {
        MainTable.Refresh();
        return;
    }
    // A query holds its result as read: reading it again puts the rows others inserted or
    // removed in between, so the old row number may now be another row. The key finds ours.
    std::vector<store::Value> key;
    if (!main_.IsEmpty()) key = CurrentKey();
    MainQuery.Refresh();
    if (!key.empty()) MainQuery.Locate(keyFields_, key);
}

void ListForm::FitToColumns() {
    double scale = App().ScaleFactor;
    GridSizing::ScaleColumns(grdList, scale);
    ui::ScreenRect screen = App().GetHost().WorkArea();
    ClientWidth = std::min(GridSizing::ClientWidth(grdList, scale), screen.Width);
    Top = 0;
    const ui::Form* main = App().MainForm();
    Left = main && main != this ? std::max(main->Left, 0) : 0;
}

void ListForm::FitRowsAtFirstShow() {
    ClientHeight = GridSizing::ClientHeight(kStartRows, kToolBarHeight, App().ScaleFactor);
    startWidth_ = ClientWidth;
    startHeight_ = ClientHeight;
}

void ListForm::RestoreStartSize() {
    if (!shownOnce_) return;
    ClientWidth = startWidth_;
    ClientHeight = startHeight_;
}

void ListForm::GridKeyPress(char& ch) {
    char typed = ch;
    if (typed == '\r') {
        ch = 0;
        mnuEdit.Click();
    } else if (static_cast<unsigned char>(typed) > 27 && Search()) {
        ch = 0;
        SearchFrom(typed);
    }
}

void ListForm::FollowSaves(EntryForm& entry) {
    entry.AfterSave = [this](EntryForm& saved) {
        std::vector<store::Value> key;
        for (const std::string& field : store::SplitFieldList(keyFields_))
            key.push_back(saved.EntryTable.FieldByName(field).AsValue());
        RefreshList();
        // A row the filter hides is not there to stand on; the list then stays where it was.
        main_.Locate(keyFields_, key);
    };
}

void ListForm::NewRecord() {
    EntryForm& entry = Entry();
    FollowSaves(entry);
    entry.EntryTable.Insert();
    entry.Show();
}

void ListForm::EditRecord() {
    if (main_.IsEmpty()) return;
    EntryForm& entry = Entry();
    FollowSaves(entry);
    if (!entry.EntryTable.Locate(keyFields_, CurrentKey()))
        throw Exception("The record has been deleted by another user");
    entry.EntryTable.Edit();
    entry.Show();
}

void ListForm::DeleteRecord() {
    if (main_.IsEmpty()) return;
    if (!overQuery_) {
        // The table's BeforeDelete asks and checks that the row is not in use.
        MainTable.Delete();
        MainTable.FlushBuffers();
        return;
    }
    // A query's rows cannot be deleted: the row goes through the entry form's table, whose
    // BeforeDelete asks and checks.
    store::Table& table = Entry().EntryTable;
    if (!table.Locate(keyFields_, CurrentKey()))
        throw Exception("The record has been deleted by another user");
    table.Delete();
    table.FlushBuffers();
    RefreshList();
}

void ListForm::OpenFilter() {
    if (FilterForm* filter = Filter()) {
        filterForm_ = filter;
        filter->ShowModal();
    }
}

void ListForm::PrepareMenuOpen(bool refresh) {
    if (refresh) RefreshList();
    if (filterForm_) filterForm_->Reset();
    mnuFilter.SetChecked(false);
    mnuOutstanding.SetChecked(false);
    main_.SetFiltered(false);
}

void ListForm::ShowOutstanding(const std::string& filter) {
    main_.SetFilter(filter);
    main_.SetFiltered(true);
    mnuOutstanding.SetChecked(true);
}

void ListForm::ShowOnly(const std::string& filter) {
    main_.SetFilter(filter);
    main_.SetFiltered(true);
    mnuFilter.SetChecked(true);
}

void ListForm::RunFilterFirst() {
    FilterForm* filter = Filter();
    if (!filter) {
        Show();
        return;
    }
    filterForm_ = filter;
    filter->Reset();
    filter->CentreOn(App().GetHost().WorkArea());
    // The dialog's OK shows the list with the new criteria; a cancelled one leaves it closed.
    if (filter->ShowModal() == ui::mrOK || Visible()) Show();
}

void ListForm::OpenFind() {
    if (FindForm* find = Find()) find->ShowModal();
}

void ListForm::SearchFrom(char firstChar) {
    SearchForm* search = Search();
    if (!search) return;
    SearchStart start;
    if (main_.Filtered()) start.Filter = main_.Filter();
    start.IndexName = SortIndexName();
    if (!main_.IsEmpty()) start.Key = CurrentKey();
    start.FirstChar = firstChar;
    search->Start(grdList, start);
    if (search->ShowModal() != ui::mrOK) return;
    std::vector<store::Value> key = search->SelectedKey();
    if (!main_.Locate(keyFields_, key))
        throw Exception("'" + search->SelectedKeyText() + "' not found in list");
}

} // namespace corvane::shell
