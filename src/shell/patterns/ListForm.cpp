#include "shell/patterns/ListForm.h"

#include "core/Exception.h"
#include "shell/patterns/EditErrorHook.h"
#include "shell/patterns/EntryForm.h"
#include "shell/patterns/FilterForm.h"
#include "shell/patterns/FindForm.h"
#include "shell/patterns/SearchForm.h"
#include "ui/Application.h"

namespace corvane::shell {

namespace {
// Room beside the columns for the row indicator and the vertical scroll bar.
constexpr int kGridChrome = 16 + 4 + 1;
// The rows a list shows when it first opens.
constexpr int kStartRows = 12;
constexpr int kRowHeight = 18;
} // namespace

ListForm::ListForm(ui::Application& app, std::string name, std::string title, store::Database& db,
                   std::string tableName, std::string tableComponentName, std::string keyFields)
    : Form(app, std::move(name)), MainTable(db, std::move(tableName)), db_(db),
      title_(std::move(title)), keyFields_(std::move(keyFields)) {
    Caption = title_;
    MainTable.Name = std::move(tableComponentName);
    MainTable.Open();
    EditErrorHook::Attach(MainTable);
    grdList.Popup = &popList;
    grdList.ReadOnly = true;
    grdList.RowSelect = true;
    SetLayout(ui::Column{tlbList, grdList});

    mnuExit.OnClick = [this] { Close(); };
    mnuPrint.OnClick = [this] { Print(); };
    mnuNew.OnClick = popNew.OnClick = [this] { NewRecord(); };
    mnuEdit.OnClick = popEdit.OnClick = [this] { EditRecord(); };
    mnuDelete.OnClick = popDelete.OnClick = [this] { DeleteRecord(); };
    mnuFilter.OnClick = [this] { OpenFilter(); };
    mnuFind.OnClick = [this] { OpenFind(); };
    mnuRefresh.OnClick = [this] { MainTable.Refresh(); };
    grdList.OnDblClick = [this] { mnuEdit.Click(); };
    grdList.OnKeyPress = [this](char& ch) { GridKeyPress(ch); };
    grdList.OnTitleClick = [this](ui::GridColumn& column) { TitleClicked(column); };
    tlbList.OnDblClick = [this] { SizeToColumns(); };

    // Only some lists have a find dialog; those show the command themselves.
    mnuFind.Visible = false;
    OnShow = [this] {
        if (!shownOnce_) SizeToColumns();
        shownOnce_ = true;
        ShowList();
    };
}

ListForm::~ListForm() = default;

std::vector<store::Value> ListForm::CurrentKey() {
    std::vector<store::Value> key;
    for (const std::string& field : store::SplitFieldList(keyFields_))
        key.push_back(MainTable.FieldByName(field).AsValue());
    return key;
}

ui::MenuItem& ListForm::AddSortEntry(std::string itemName, std::string caption,
                                     std::string fieldName, std::string indexName) {
    auto item = std::make_unique<ui::MenuItem>(mnuSortBy, std::move(itemName), std::move(caption));
    item->RadioItem = true;
    sorts_.push_back({std::move(item), std::move(fieldName), std::move(indexName)});
    // The entries live in a vector that may still grow: find this one again by its item.
    ui::MenuItem* self = sorts_.back().Item.get();
    self->OnClick = [this, self] {
        for (SortEntry& entry : sorts_)
            if (entry.Item.get() == self) Sort(entry);
    };
    return *self;
}

void ListForm::Sort(SortEntry& entry) {
    MainTable.SetIndexName(entry.IndexName);
    MainTable.First();
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
    MainTable.First();
    Caption = title_ + (mnuFilter.Checked() ? " (Filtered)" : "");
}

void ListForm::SizeToColumns() {
    int width = kGridChrome;
    for (const ui::GridColumn& column : grdList.Columns)
        if (column.Visible) width += column.Width;
    ClientWidth = width;
    ClientHeight = (kStartRows + 1) * kRowHeight;
    Top = 0;
    if (const ui::Form* main = App().MainForm(); main && main != this) Left = main->Left;
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
        MainTable.Refresh();
        // A row the filter hides is not there to stand on; the list then stays where it was.
        MainTable.Locate(keyFields_, key);
    };
}

void ListForm::NewRecord() {
    EntryForm& entry = Entry();
    FollowSaves(entry);
    entry.EntryTable.Insert();
    entry.Show();
}

void ListForm::EditRecord() {
    if (MainTable.IsEmpty()) return;
    EntryForm& entry = Entry();
    FollowSaves(entry);
    if (!entry.EntryTable.Locate(keyFields_, CurrentKey()))
        throw Exception("The record has been deleted by another user");
    entry.EntryTable.Edit();
    entry.Show();
}

void ListForm::DeleteRecord() {
    if (MainTable.IsEmpty()) return;
    // The table's BeforeDelete asks and checks that the row is not in use.
    MainTable.Delete();
    MainTable.FlushBuffers();
}

void ListForm::OpenFilter() {
    if (FilterForm* filter = Filter()) filter->ShowModal();
}

void ListForm::OpenFind() {
    if (FindForm* find = Find()) find->ShowModal();
}

void ListForm::SearchFrom(char firstChar) {
    SearchForm* search = Search();
    if (!search) return;
    search->Start(MainTable, firstChar);
    if (search->ShowModal() != ui::mrOK) return;
    std::vector<store::Value> key = search->SelectedKey();
    if (!MainTable.Locate(keyFields_, key))
        throw Exception("'" + search->SelectedKeyText() + "' not found in list");
}

} // namespace corvane::shell
