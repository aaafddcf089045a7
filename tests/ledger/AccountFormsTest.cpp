#include "ledger/accounts/TfrmGLAccount.h"
#include "ledger/accounts/TfrmGLAccountSearch.h"
#include "ledger/accounts/TfrmGLAccountSub.h"
#include "ledger/accounts/TfrmGLAccounts.h"
#include "ui/FormDriver.h"
#include "ui/HeadlessApp.h"

using namespace corvane;
using namespace corvane::ledger;
using corvane::ui::FormDriver;

namespace {

class AccountFormsTest : public corvane::testing::UiCompanyTest {
protected:
    void AddAccount(int id, const std::string& no, const std::string& name, int type) {
        InsertRow(
            "GLAccnt",
            {{"GLAccountID", id}, {"GLAccount", no}, {"AccountName", name}, {"AccountType", type}});
    }
    TfrmGLAccounts& List() {
        auto& list = app.CreateForm<TfrmGLAccounts>(db_);
        list.Show();
        return list;
    }
    TfrmGLAccount& AccountForm() {
        return dynamic_cast<TfrmGLAccount&>(app.GetForm("frmGLAccount"));
    }
};

} // namespace

TEST_F(AccountFormsTest, NewAccountIsRefusedFieldByFieldInOrder) {
    AddAccount(4, "1000", "Bank", 1);
    FormDriver d(List());
    d.Click("mnuNew");
    TfrmGLAccount& form = AccountForm();
    FormDriver f(form);
    EXPECT_EQ(form.Caption, "New Account");
    f.EnterText("editGLAccount", "1200");
    f.Click("btnOK");
    EXPECT_EQ(dialogs.LastText(), "Field 'Account Name' must have a value");
    EXPECT_EQ(f.FocusedName(), "editAccountName");
    f.EnterText("editAccountName", "Receivables");
    f.Click("btnOK");
    EXPECT_EQ(dialogs.LastText(), "Field 'Account Type' must have a value");
    f.Choose("rgpAccountType", "1 Asset");
    f.EnterText("editGLAccount", "");
    f.Click("btnOK");
    EXPECT_EQ(dialogs.LastText(), "Field 'Account no.' must have a value");
    EXPECT_EQ(CountRows("GLAccnt"), 1);

    f.EnterText("editGLAccount", "1200");
    f.Click("btnOK");
    EXPECT_FALSE(form.Visible());
    ASSERT_EQ(CountRows("GLAccnt"), 2);
    // The new id follows the highest one, and the list stands on the new row.
    EXPECT_EQ(d.GridRow("grdList"), (std::vector<std::string>{"1200", "Receivables", "Asset", ""}));
    store::Table t(db_, "GLAccnt");
    t.Open();
    ASSERT_TRUE(t.Locate("GLAccount", {"1200"}));
    EXPECT_EQ(t.FieldByName("GLAccountID").AsInteger(), 5);
}

TEST_F(AccountFormsTest, NumberAndNameMustBeUniqueTheNameWhateverItsCase) {
    AddAccount(1, "1000", "Bank", 1);
    FormDriver d(List());
    for (auto [no, name] : {std::pair{"1000", "Cash"}, std::pair{"1001", "BANK"}}) {
        d.Click("mnuNew");
        FormDriver f(AccountForm());
        f.EnterText("editGLAccount", no);
        f.EnterText("editAccountName", name);
        f.Choose("rgpAccountType", "1 Asset");
        f.Click("btnOK");
        EXPECT_EQ(dialogs.LastText(), "Account no. and Name must be unique") << no;
        EXPECT_TRUE(AccountForm().Visible());
        f.Click("btnCancel");
    }
    EXPECT_EQ(CountRows("GLAccnt"), 1);
}

TEST_F(AccountFormsTest, RetainedEarningsIsOfferedForEquityOnly) {
    AddAccount(1, "3000", "Capital", 5);
    AddAccount(2, "1000", "Bank", 1);
    FormDriver d(List());
    d.Click("mnuEdit"); // 1000 Bank, first by number
    FormDriver f(AccountForm());
    EXPECT_FALSE(f.Visible("chkRetainedEarnings"));
    f.Choose("rgpAccountType", "5 Equity");
    EXPECT_TRUE(f.Visible("chkRetainedEarnings"));
    f.Choose("rgpAccountType", "4 Expense");
    EXPECT_FALSE(f.Visible("chkRetainedEarnings"));
    f.Click("btnCancel");
}

TEST_F(AccountFormsTest, ListShowsTheTypeLabelAndSortsByNumberAsText) {
    AddAccount(1, "20", "Loan", 2);
    AddAccount(2, "100", "Bank", 1);
    AddAccount(3, "A1", "Sales", 3);
    auto& list = List();
    FormDriver d(list);
    EXPECT_EQ(list.Caption, "GL Accounts");
    EXPECT_EQ(d.GridRow("grdList"), (std::vector<std::string>{"100", "Bank", "Asset", ""}));
    d.Click("mnuSortAccountType");
    EXPECT_EQ(list.tblGLAccnt.FieldByName("AccountName").AsString(), "Bank");
    list.tblGLAccnt.Last();
    EXPECT_EQ(list.tblGLAccnt.FieldByName("AccountTypeLabel").AsString(), "Revenue");
}

TEST_F(AccountFormsTest, DeleteAsksThenRefusesAnAccountWithTotalsEvenOfZero) {
    AddAccount(1, "1000", "Bank", 1);
    InsertRow("GLActual", {{"GLAccountID", 1}, {"GLYear", 2017}, {"ActualBudget", "A"}});
    FormDriver d(List());
    dialogs.Answer("Delete '1000: Bank'?", ui::mbNo);
    d.Click("mnuDelete");
    EXPECT_EQ(dialogs.LastText(), "Delete '1000: Bank'?");
    dialogs.Answer(ui::mbYes);
    d.Click("mnuDelete");
    EXPECT_EQ(dialogs.LastText(),
              "Unable to delete '1000: Bank'...\nGL Totals data exists for this account");
    EXPECT_EQ(CountRows("GLAccnt"), 1);
    InsertRow(
        "GLAccnt",
        {{"GLAccountID", 2}, {"GLAccount", "1100"}, {"AccountName", "Petty"}, {"AccountType", 1}});
    d.Click("mnuRefresh");
    d.SelectRow("grdList", 1);
    dialogs.Answer(ui::mbYes);
    d.Click("mnuDelete");
    EXPECT_EQ(CountRows("GLAccnt"), 1);
}

TEST_F(AccountFormsTest, SubaccountsTakeOnePastTheHighestIdOfTheirLevel) {
    InsertRow("GLAcSub2", {{"SubAccountID", 9}, {"SubAccount", "10"}, {"SubAccountName", "East"}});
    auto& list = List();
    FormDriver d(list);
    d.Click("tabSubaccounts");
    d.Click("tabSub2");
    d.Click("btnSubNew");
    auto& sub = dynamic_cast<TfrmGLAccountSub&>(app.GetForm("frmGLAccountSub"));
    FormDriver f(sub);
    EXPECT_EQ(sub.Caption, "New Subaccount");
    f.EnterText("editSubAccount", "20");
    f.Click("btnOK");
    EXPECT_EQ(dialogs.LastText(), "Field 'Subaccount Name' must have a value");
    f.EnterText("editSubAccount", "");
    f.EnterText("editSubAccountName", "West");
    f.Click("btnOK");
    EXPECT_EQ(dialogs.LastText(), "Field 'Subaccount no.' must have a value");
    f.EnterText("editSubAccount", "10");
    f.Click("btnOK");
    EXPECT_EQ(dialogs.LastText(), "Subaccount no. and Name must be unique");
    f.EnterText("editSubAccount", "20");
    f.Click("btnOK");
    EXPECT_FALSE(sub.Visible());
    EXPECT_EQ(CountRows("GLAcSub1"), 0);
    store::Table t(db_, "GLAcSub2");
    t.Open();
    ASSERT_TRUE(t.Locate("SubAccount", {"20"}));
    EXPECT_EQ(t.FieldByName("SubAccountID").AsInteger(), 10);
    EXPECT_EQ(d.GridRow("grdSub2"), (std::vector<std::string>{"20", "West", ""}));
}

TEST_F(AccountFormsTest, SubaccountDeleteIsRefusedWhileItsLevelIsUsed) {
    InsertRow("GLAcSub3", {{"SubAccountID", 1}, {"SubAccount", "7"}, {"SubAccountName", "Misc"}});
    InsertRow("JVDet", {{"JVID", 1}, {"GLAccountID", 1}, {"SubAccount3ID", 1}});
    FormDriver d(List());
    d.Click("tabSubaccounts");
    d.Click("tabSub3");
    dialogs.Answer("Delete '7: Misc'?", ui::mbYes);
    d.Click("btnSubDelete");
    EXPECT_EQ(dialogs.LastText(), "Unable to delete '7: Misc'...\nJV(s) exist for this subaccount");
    EXPECT_EQ(CountRows("GLAcSub3"), 1);
}

TEST(AccountTypeFilter, StandsAloneOrIsAppendedToTheFilterInForce) {
    EXPECT_EQ(AccountTypeFilter("", 3), "AccountType = 3");
    EXPECT_EQ(AccountTypeFilter("(Suspended <> true)", 5),
              "(Suspended <> true) AND (AccountType = 5)");
}

TEST_F(AccountFormsTest, SearchNarrowsToTheChosenTypeWithinTheListsFilter) {
    AddAccount(1, "1000", "Bank", 1);
    AddAccount(2, "1100", "Cash", 1);
    AddAccount(3, "4000", "Sales", 3);
    InsertRow("GLAccnt", {{"GLAccountID", 4},
                          {"GLAccount", "1200"},
                          {"AccountName", "Old"},
                          {"AccountType", 1},
                          {"Suspended", true}});
    auto& search = app.CreateForm<TfrmGLAccountSearch>(db_);
    ui::Form& caller = app.CreateForm<TfrmGLAccounts>(db_);
    search.Start(caller.Get<ui::Control>("grdList"), {"(Suspended <> true)", "GLAccount", {}, 0});
    bool checked = false;
    host.ScriptModal("frmGLAccountSearch", [&](ui::Form&) {
        FormDriver s(search);
        s.Choose("cboAccountType", "Asset");
        EXPECT_EQ(search.SearchTable.Filter(), "((Suspended <> true)) AND (AccountType = 1)");
        EXPECT_EQ(search.SearchTable.RecordCount(), 2);
        s.EnterText("editFindGLAccount", "11");
        EXPECT_EQ(search.SelectedAccountID(), 2);
        s.Click("btnOK");
        checked = true;
    });
    EXPECT_EQ(search.ShowModal(), ui::mrOK);
    EXPECT_TRUE(checked);
}

TEST_F(AccountFormsTest, TypingInTheListFindsTheAccountOrTellsAMissInItsOwnBox) {
    AddAccount(1, "1000", "Bank", 1);
    AddAccount(2, "1100", "Cash", 1);
    auto& list = List();
    FormDriver d(list);
    auto pick = [&](const char* number, bool showAll) {
        host.ScriptModal("frmGLAccountSearch", [number, showAll](ui::Form& search) {
            // Another user's new row, say, that the list has not read under its filter.
            if (showAll) dynamic_cast<TfrmGLAccountSearch&>(search).SearchTable.SetFiltered(false);
            FormDriver s(search);
            s.EnterText("editFindGLAccount", number);
            s.Click("btnOK");
        });
        d.PressKey("grdList", ui::KeyStroke(ui::KeyOfChar('1')));
    };
    pick("11", false);
    EXPECT_EQ(list.tblGLAccnt.FieldByName("GLAccount").AsString(), "1100");
    EXPECT_TRUE(dialogs.Shown().empty());

    list.tblGLAccnt.SetFilter("GLAccountID = 1");
    list.tblGLAccnt.SetFiltered(true);
    pick("1100", true);
    ASSERT_EQ(dialogs.Shown().size(), 1u);
    EXPECT_EQ(dialogs.Shown().back().Title, "Find Account");
    EXPECT_EQ(dialogs.Shown().back().Text, "'1100' not found in list");
    EXPECT_EQ(list.tblGLAccnt.FieldByName("GLAccount").AsString(), "1000");
}
