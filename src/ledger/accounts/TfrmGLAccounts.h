#pragma once

#include "shell/patterns/ListForm.h"
#include "ui/Button.h"
#include "ui/PageControl.h"

#include <functional>
#include <string_view>

namespace corvane::ledger {

class TfrmGLAccountsFilter;

// The chart of accounts: the accounts in one tab, the subaccounts of each of the three levels in
// another. History and totals belong to other forms, opened by name when the program has them.
class TfrmGLAccounts : public shell::ListForm {
public:
    TfrmGLAccounts(ui::Application& app, store::Database& db);
    ~TfrmGLAccounts() override;

    store::Table& tblGLAccnt = MainTable;
    ui::MenuItem& mnuSortGLAccount;
    ui::MenuItem& mnuSortAccountName;
    ui::MenuItem& mnuSortAccountType;
    ui::MenuItem mnuRecordsSep{mnuRecords, "mnuRecordsSep", "-"};
    ui::MenuItem mnuHistory{mnuRecords, "mnuHistory", "&History"};
    ui::MenuItem mnuTotals{mnuRecords, "mnuTotals", "&Totals"};
    ui::ToolButton tbnHistory{tlbList, "tbnHistory", mnuHistory};
    ui::ToolButton tbnTotals{tlbList, "tbnTotals", mnuTotals};

    ui::PageControl pgcChart{*this, "pgcChart"};
    ui::Page tabAccounts{pgcChart, "tabAccounts", "Accounts"};
    ui::Page tabSubaccounts{pgcChart, "tabSubaccounts", "Subaccounts"};
    ui::PageControl pgcLevels{*this, "pgcLevels"};
    ui::Page tabSub1{pgcLevels, "tabSub1", "Subaccount 1"};
    ui::Page tabSub2{pgcLevels, "tabSub2", "Subaccount 2"};
    ui::Page tabSub3{pgcLevels, "tabSub3", "Subaccount 3"};
    store::Table tblGLAcSub1;
    store::Table tblGLAcSub2;
    store::Table tblGLAcSub3;
    ui::Grid grdSub1{*this, "grdSub1", tblGLAcSub1};
    ui::Grid grdSub2{*this, "grdSub2", tblGLAcSub2};
    ui::Grid grdSub3{*this, "grdSub3", tblGLAcSub3};
    ui::Button btnSubNew{*this, "btnSubNew", "&New"};
    ui::Button btnSubEdit{*this, "btnSubEdit", "&Edit"};
    ui::Button btnSubDelete{*this, "btnSubDelete", "&Delete"};
    ui::Button btnSubTotals{*this, "btnSubTotals", "&Totals"};
    ui::Button btnSubPrint{*this, "btnSubPrint", "&Print"};
    ui::Button btnSubFilter{*this, "btnSubFilter", "F&ilter"};
    ui::Button btnSubHistory{*this, "btnSubHistory", "&History"};
    ui::Button btnSubFind{*this, "btnSubFind", "&Find"};
    ui::Button btnSubTitles{*this, "btnSubTitles", "Titles"};

    // Makes a form the program registered by component name, or null when it has none; given by
    // whoever makes this list. History and Totals open their forms through it.
    std::function<ui::Form*(std::string_view componentName)> MakeRegisteredForm;

    // The subaccount level of the tab in front (1 to 3) and its table.
    int SubLevel() const;
    store::Table& SubTable(int level);

    void ShowHistory();
    void ShowTotals();
    void NewSubAccount();
    void EditSubAccount();
    void DeleteSubAccount();
    // Opens the account search with the typed character and goes to the account chosen.
    void FindByTyping(char firstChar);

protected:
    shell::EntryForm& Entry() override;
    shell::FilterForm* Filter() override;
    shell::SearchForm* Search() override;
    void Print() override;

private:
    void AddTypeLabel();
    void BeforeDeleteAccount();
    void BeforeDeleteSub(int level);
    void OpenSubEntry(int level, bool insert);
    ui::Form* Registered(std::string_view componentName, std::string_view feature);

    TfrmGLAccountsFilter* filter_ = nullptr;
};

} // namespace corvane::ledger
