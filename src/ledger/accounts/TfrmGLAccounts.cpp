#include "ledger/accounts/TfrmGLAccounts.h"

#include "core/Exception.h"
#include "ledger/accounts/AccountTypes.h"
#include "ledger/accounts/AccountUsage.h"
#include "ledger/accounts/TfrmGLAccount.h"
#include "ledger/accounts/TfrmGLAccountSearch.h"
#include "ledger/accounts/TfrmGLAccountSub.h"
#include "ledger/accounts/TfrmGLAccountsFilter.h"
#include "ledger/inquiry/TfrmGLHistory.h"
#include "ledger/reports/ListView.h"
#include "ledger/reports/TrptGLAccounts.h"
#include "reports/run/PreviewReport.h"
#include "ui/Application.h"
#include "ui/Layout.h"

namespace corvane::ledger {

namespace {

std::string FutureVersion(std::string_view feature) {
    return "\"" + std::string(feature) + "\" may be added in a future version.";
}

} // namespace

TfrmGLAccounts::TfrmGLAccounts(ui::Application& app, store::Database& db)
    : ListForm(app, "frmGLAccounts", "GL Accounts", db, "GLAccnt", "tblGLAccnt", "GLAccountID"),
      mnuSortGLAccount(AddSortEntry("mnuSortGLAccount", "Account &no.", "GLAccount", "GLAccount")),
      mnuSortAccountName(
          AddSortEntry("mnuSortAccountName", "Account &name", "AccountName", "AccountName1")),
      mnuSortAccountType(
          AddSortEntry("mnuSortAccountType", "Account &type", "AccountTypeLabel", "AccountType")),
      tblGLAcSub1(db, SubAccountTable(1)), tblGLAcSub2(db, SubAccountTable(2)),
      tblGLAcSub3(db, SubAccountTable(3)) {
    using namespace ui;
    AddTypeLabel();
    grdList.AddColumn("GLAccount", "Account no.", 80);
    grdList.AddColumn("AccountName", "Name", 250);
    grdList.AddColumn("AccountTypeLabel", "Type", 70);
    grdList.AddColumn("Suspended", "Suspended", 64);
    mnuFind.Visible = true;
    mnuFind.OnClick = [this] { FindByTyping(0); };
    mnuHistory.OnClick = [this] { ShowHistory(); };
    mnuTotals.OnClick = [this] { ShowTotals(); };
    // The list's own search tells a miss in a box of its own title.
    grdList.OnKeyPress = [this](char& ch) {
        char typed = ch;
        if (typed == '\r') {
            ch = 0;
            mnuEdit.Click();
        } else if (static_cast<unsigned char>(typed) > 27) {
            ch = 0;
            FindByTyping(typed);
        }
    };
    tblGLAccnt.BeforeDelete = [this](store::DataSet&) { BeforeDeleteAccount(); };
    // A statement that listed the account has lost a line.
    tblGLAccnt.AfterDelete = [this](store::DataSet&) {
        TfrmGLAccount::RemindOfStatements(App(), tblGLAccnt.OwnerDatabase());
    };

    int level = 1;
    for (store::Table* sub : {&tblGLAcSub1, &tblGLAcSub2, &tblGLAcSub3}) {
        sub->Name = "tblGLAcSub" + std::to_string(level);
        sub->Open();
        sub->SetIndexName("SubAccount");
        sub->BeforeDelete = [this, level](store::DataSet&) { BeforeDeleteSub(level); };
        ++level;
    }
    for (Grid* grid : {&grdSub1, &grdSub2, &grdSub3}) {
        grid->ReadOnly = true;
        grid->RowSelect = true;
        grid->AddColumn("SubAccount", "Subaccount no.", 80);
        grid->AddColumn("SubAccountName", "Name", 120);
        grid->AddColumn("Suspended", "Suspended", 64);
        grid->OnDblClick = [this] { btnSubEdit.Click(); };
    }
    tabSub1.SetLayout(Column{grdSub1});
    tabSub2.SetLayout(Column{grdSub2});
    tabSub3.SetLayout(Column{grdSub3});
    tabAccounts.SetLayout(Column{tlbList, grdList});
    tabSubaccounts.SetLayout(Row{
        pgcLevels,
        Column{btnSubNew, btnSubEdit, btnSubDelete, btnSubTotals, btnSubPrint, btnSubFilter,
               btnSubHistory, btnSubFind, btnSubTitles, Stretch{}},
    });
    SetLayout(Column{pgcChart});

    btnSubNew.OnClick = [this] { NewSubAccount(); };
    btnSubEdit.OnClick = [this] { EditSubAccount(); };
    btnSubDelete.OnClick = [this] { DeleteSubAccount(); };
    btnSubTotals.OnClick = [this] { ShowTotals(); };
    auto answer = [this](std::string_view feature) {
        return [this, text = FutureVersion(feature)] {
            App().MessageDlg(text, ui::MsgType::Information, {ui::mbOK});
        };
    };
    btnSubPrint.OnClick = answer("Subaccounts Print");
    btnSubFilter.OnClick = answer("Subaccounts Filter");
    btnSubHistory.OnClick = answer("GL History filtered by selected subaccount");
    btnSubFind.OnClick = answer("Subaccounts Find");
    btnSubTitles.OnClick = answer("Customizable subaccount titles");

    mnuSortGLAccount.Click();
}

TfrmGLAccounts::~TfrmGLAccounts() = default;

void TfrmGLAccounts::AddTypeLabel() {
    // A calculated field exists only in a cursor that adds it before it opens.
    tblGLAccnt.Close();
    tblGLAccnt.AddCalculatedField("AccountTypeLabel", store::FieldType::String, 12);
    tblGLAccnt.OnCalcFields = [](store::DataSet& ds) {
        ds.FieldByName("AccountTypeLabel")
            .SetAsString(AccountTypeLabel(ds.FieldByName("AccountType").AsInteger()));
    };
    tblGLAccnt.Open();
}

shell::EntryForm& TfrmGLAccounts::Entry() {
    return App().SingleForm<TfrmGLAccount>(Db());
}

shell::FilterForm* TfrmGLAccounts::Filter() {
    if (!filter_) filter_ = &App().CreateForm<TfrmGLAccountsFilter>(*this);
    return filter_;
}

shell::SearchForm* TfrmGLAccounts::Search() {
    return &App().SingleForm<TfrmGLAccountSearch>(Db());
}

void TfrmGLAccounts::Print() {
    auto report = std::make_unique<TrptGLAccounts>(Db());
    FollowList(tblGLAccnt, report->tblGLAccnt);
    reports::PreviewReport(App(), std::move(report));
}

ui::Form* TfrmGLAccounts::Registered(std::string_view componentName, std::string_view feature) {
    ui::Form* form = MakeRegisteredForm ? MakeRegisteredForm(componentName) : nullptr;
    if (!form) App().MessageDlg(FutureVersion(feature), ui::MsgType::Information, {ui::mbOK});
    return form;
}

void TfrmGLAccounts::ShowHistory() {
    if (tblGLAccnt.IsEmpty()) return;
    std::int64_t id = tblGLAccnt.FieldByName("GLAccountID").AsInteger();
    ui::Form* form = Registered("frmGLHistory", "GL History");
    if (!form) return;
    // The history list shows this account only, of every year, newest first.
    if (auto* history = dynamic_cast<TfrmGLHistory*>(form))
        history->ShowAccount(id, std::nullopt);
    else
        form->Show();
}

void TfrmGLAccounts::ShowTotals() {
    if (ui::Form* form = Registered("frmGLBalances", "GL Totals")) form->Show();
}

void TfrmGLAccounts::FindByTyping(char firstChar) {
    auto& search = App().SingleForm<TfrmGLAccountSearch>(Db());
    shell::SearchStart start;
    if (tblGLAccnt.Filtered()) start.Filter = tblGLAccnt.Filter();
    start.IndexName = SortIndexName();
    if (!tblGLAccnt.IsEmpty()) start.Key = CurrentKey();
    start.FirstChar = firstChar;
    search.Start(grdList, start);
    if (search.ShowModal() != ui::mrOK) return;
    if (tblGLAccnt.Locate("GLAccountID", {search.SelectedAccountID()})) return;
    ui::Message missing;
    missing.Title = "Find Account";
    missing.Text =
        "'" + search.SearchTable.FieldByName("GLAccount").AsString() + "' not found in list";
    missing.Type = ui::MsgType::Information;
    App().GetDialogs().Show(missing);
}

void TfrmGLAccounts::BeforeDeleteAccount() {
    std::string number = tblGLAccnt.FieldByName("GLAccount").AsString();
    std::string name = tblGLAccnt.FieldByName("AccountName").AsString();
    if (App().MessageDlg(DeleteQuestion(number, name), ui::MsgType::Confirmation,
                         {ui::mbYes, ui::mbNo}) != ui::mbYes)
        Abort();
    std::string reason = AccountInUse(Db(), tblGLAccnt.FieldByName("GLAccountID").AsInteger());
    if (!reason.empty()) throw Exception(DeleteRefusal(number, name, reason));
}

int TfrmGLAccounts::SubLevel() const {
    ui::Page* page = pgcLevels.ActivePage();
    if (page == &tabSub2) return 2;
    if (page == &tabSub3) return 3;
    return 1;
}

store::Table& TfrmGLAccounts::SubTable(int level) {
    switch (level) {
    case 2:
        return tblGLAcSub2;
    case 3:
        return tblGLAcSub3;
    default:
        return tblGLAcSub1;
    }
}

void TfrmGLAccounts::BeforeDeleteSub(int level) {
    store::Table& table = SubTable(level);
    std::string number = table.FieldByName("SubAccount").AsString();
    std::string name = table.FieldByName("SubAccountName").AsString();
    if (App().MessageDlg(DeleteQuestion(number, name), ui::MsgType::Confirmation,
                         {ui::mbYes, ui::mbNo}) != ui::mbYes)
        Abort();
    std::string reason =
        SubAccountInUse(Db(), level, table.FieldByName("SubAccountID").AsInteger());
    if (!reason.empty()) throw Exception(DeleteRefusal(number, name, reason));
}

void TfrmGLAccounts::OpenSubEntry(int level, bool insert) {
    store::Table& list = SubTable(level);
    auto& entry = App().SingleForm<TfrmGLAccountSub>(Db());
    entry.SetLevel(level);
    entry.AfterSave = [&list](shell::EntryForm& saved) {
        store::Value id = saved.EntryTable.FieldByName("SubAccountID").AsValue();
        list.Refresh();
        list.Locate("SubAccountID", {id});
    };
    if (insert) {
        entry.EntryTable.Insert();
    } else {
        if (!entry.EntryTable.Locate("SubAccountID", {list.FieldByName("SubAccountID").AsValue()}))
            throw Exception("The record has been deleted by another user");
        entry.EntryTable.Edit();
    }
    entry.Show();
}

void TfrmGLAccounts::NewSubAccount() {
    OpenSubEntry(SubLevel(), true);
}

void TfrmGLAccounts::EditSubAccount() {
    if (SubTable(SubLevel()).IsEmpty()) return;
    OpenSubEntry(SubLevel(), false);
}

void TfrmGLAccounts::DeleteSubAccount() {
    store::Table& table = SubTable(SubLevel());
    if (table.IsEmpty()) return;
    table.Delete();
    table.FlushBuffers();
}

} // namespace corvane::ledger
