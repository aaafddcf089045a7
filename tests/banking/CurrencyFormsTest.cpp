#include "banking/currencies/TfrmCurrencies.h"
#include "banking/currencies/TfrmCurrency.h"
#include "core/Exception.h"
#include "store/Query.h"
#include "ui/FormDriver.h"
#include "ui/HeadlessApp.h"

using namespace corvane;
using namespace corvane::banking;
using corvane::ui::FormDriver;

namespace {

class CurrencyFormsTest : public corvane::testing::UiCompanyTest {
protected:
    void SetUp() override {
        UiCompanyTest::SetUp();
        const char* names[] = {"Payables", "Exchange", "Receivables",
                               "AP Disc",  "AR Disc",  "Write-offs"};
        for (int id = 1; id <= 6; ++id)
            InsertRow("GLAccnt", {{"GLAccountID", id},
                                  {"GLAccount", std::to_string(2000 + id)},
                                  {"AccountName", names[id - 1]},
                                  {"AccountType", 2}});
    }
    TfrmCurrencies& List() {
        auto& list = app.CreateForm<TfrmCurrencies>(db_);
        list.Show();
        return list;
    }
    TfrmCurrency& Entry() { return dynamic_cast<TfrmCurrency&>(app.GetForm("frmCurrency")); }
    void SetAccount(const char* field, std::int64_t id) {
        Entry().tblCurrency.FieldByName(field).SetAsInteger(id);
    }
    std::string Sql(const std::string& sql) {
        store::Query q(db_, sql);
        q.Open();
        return q.IsEmpty() ? std::string("<none>") : q.Fields().front()->AsString();
    }
};

} // namespace

TEST_F(CurrencyFormsTest, SaveChecksComeInOrderWithTheFocusOnTheField) {
    TfrmCurrencies& list = List();
    FormDriver d(list);
    d.Click("mnuNew");
    TfrmCurrency& form = Entry();
    FormDriver f(form);
    EXPECT_EQ(form.Caption, "New Currency");
    f.EnterText("editExchangeRate", "1");
    f.Click("btnOK");
    EXPECT_EQ(dialogs.LastText(), "Field 'Currency Name' must have a value");
    EXPECT_EQ(f.FocusedName(), "editCurrencyName");
    f.EnterText("editCurrencyName", "US Dollars");

    struct Step {
        const char* Message;
        const char* Focus;
        const char* Field;
    };
    // A rate of 1 is entered: the gain or loss account is asked for too.
    const Step steps[] = {
        {"Field 'AP Account' must have a value", "editAPGLAccount", "APGLAccountID"},
        {"Field 'Gain/Loss Exchange Account' must have a value if rate is entered",
         "editGainLossExchangeGLAccnt", "GainLossExchangeGLAccntID"},
        {"Field 'AR Account' must have a value", "editARGLAccount", "ARGLAccountID"},
        {"Field 'AP Discounts GL Account' must have a value", "editAPDiscGLAccount",
         "APDiscGLAccountID"},
        {"Field 'AR Discounts GL Account' must have a value", "editARDiscGLAccount",
         "ARDiscGLAccountID"},
    };
    std::int64_t id = 1;
    for (const Step& step : steps) {
        f.Click("tabThisYear"); // the check brings its page to the front
        f.Click("btnOK");
        EXPECT_EQ(dialogs.LastText(), step.Message);
        EXPECT_EQ(f.FocusedName(), step.Focus) << step.Message;
        EXPECT_EQ(CountRows("Currency"), 0);
        SetAccount(step.Field, id == 2 ? 2 : id);
        ++id;
    }
    f.Click("btnOK");
    EXPECT_FALSE(form.Visible()) << dialogs.LastText();
    EXPECT_EQ(Sql("SELECT CurrencyID || ',' || CurrencyName || ',' || ExchangeRate || ',' || "
                  "GainLossExchangeGLAccntID || ',' || ARDiscGLAccountID FROM Currency"),
              "1,US Dollars,1.0,2,5");
    EXPECT_EQ(d.GridRow("grdList"), (std::vector<std::string>{"US Dollars", "1"}));
}

TEST_F(CurrencyFormsTest, OnlyARateOfZeroSavesWithoutAGainOrLossAccount) {
    FormDriver d(List());
    for (const char* rate : {"", "0", "1", "0.75"}) {
        d.Click("mnuNew");
        FormDriver f(Entry());
        f.EnterText("editCurrencyName", std::string("Currency ") + rate);
        f.EnterText("editExchangeRate", rate);
        for (const char* field :
             {"APGLAccountID", "ARGLAccountID", "APDiscGLAccountID", "ARDiscGLAccountID"})
            SetAccount(field, 1);
        f.Click("btnOK");
        const bool needsAccount = std::string(rate) == "1" || std::string(rate) == "0.75";
        if (needsAccount) {
            EXPECT_EQ(dialogs.LastText(),
                      "Field 'Gain/Loss Exchange Account' must have a value if rate is entered")
                << rate;
            f.Click("btnCancel");
        } else {
            EXPECT_FALSE(Entry().Visible()) << rate << ": " << dialogs.LastText();
        }
    }
    EXPECT_EQ(CountRows("Currency"), 2);
}

TEST_F(CurrencyFormsTest, NameMustBeUniqueWhateverItsCase) {
    AddCurrency(1, "US Dollars");
    FormDriver d(List());
    d.Click("mnuNew");
    FormDriver f(Entry());
    f.EnterText("editCurrencyName", "us dollars");
    for (const char* field :
         {"APGLAccountID", "ARGLAccountID", "APDiscGLAccountID", "ARDiscGLAccountID"})
        SetAccount(field, 1);
    f.Click("btnOK");
    EXPECT_EQ(dialogs.LastText(), "Currency Name must be unique");
    EXPECT_TRUE(Entry().Visible());
    EXPECT_EQ(f.FocusedName(), "editCurrencyName");
    f.EnterText("editCurrencyName", "Euro");
    f.Click("btnOK");
    EXPECT_FALSE(Entry().Visible());
    // A new currency takes the next id, and the list stands on it.
    EXPECT_EQ(Sql("SELECT CurrencyID FROM Currency WHERE CurrencyName = 'Euro'"), "2");
    EXPECT_EQ(d.GridRow("grdList")[0], "Euro");
}

TEST_F(CurrencyFormsTest, AccountsAreRefusedWhenUnknownAndWhenDeletedSince) {
    AddCurrency(1, "US Dollars");
    FormDriver d(List());
    d.Click("mnuEdit");
    TfrmCurrency& form = Entry();
    FormDriver f(form);
    EXPECT_EQ(form.Caption, "US Dollars");
    EXPECT_EQ(f.Text("editAPGLAccount"), "2001");
    EXPECT_EQ(f.Text("editAPGLAccountName"), "Payables");
    try {
        SetAccount("DfltWriteOffGLAccountID", 99);
        ADD_FAILURE() << "an unknown account was taken";
    } catch (const Exception& e) {
        EXPECT_EQ(std::string(e.what()), "GL Account not found");
    }
    EXPECT_TRUE(form.tblCurrency.FieldByName("DfltWriteOffGLAccountID").IsNull());

    SetAccount("DfltWriteOffGLAccountID", 6);
    EXPECT_EQ(f.Text("editDfltWriteOffGLAccount"), "2006");
    EXPECT_EQ(f.Text("editDfltWriteOffGLAccountName"), "Write-offs");
    store::Query(db_, "DELETE FROM GLAccnt WHERE GLAccountID = 6").ExecSQL();
    f.Click("tabLastYear");
    f.Click("btnOK");
    EXPECT_EQ(dialogs.LastText(), "GL Account no longer exists");
    EXPECT_TRUE(form.Visible());
    EXPECT_EQ(f.FocusedName(), "editDfltWriteOffGLAccount");
    EXPECT_EQ(Sql("SELECT COUNT(*) FROM Currency WHERE DfltWriteOffGLAccountID IS NULL"), "1");
}

TEST_F(CurrencyFormsTest, AccountIsChosenByTypingIntoItsNumberOrNameBox) {
    FormDriver d(List());
    d.Click("mnuNew");
    FormDriver f(Entry());
    std::string findText;
    host.ScriptModal("frmGLAccountSearch", [&](ui::Form& search) {
        FormDriver s(search);
        findText = s.Text("editFindAccountName");
        s.EnterText("editFindAccountName", "Exch");
        s.Click("btnOK");
    });
    f.Focus("editGainLossExchangeGLAccntName");
    f.Type("E");
    EXPECT_EQ(host.PendingScripts(), 0u);
    EXPECT_EQ(findText, "E");
    EXPECT_EQ(Entry().tblCurrency.FieldByName("GainLossExchangeGLAccntID").AsInteger(), 2);
    EXPECT_EQ(f.Text("editGainLossExchangeGLAccnt"), "2002");
    EXPECT_EQ(f.Text("editGainLossExchangeGLAccntName"), "Exchange");
    f.Click("btnCancel");
    EXPECT_EQ(CountRows("Currency"), 0);
}

TEST_F(CurrencyFormsTest, DeleteAsksThenRefusesForBanksVendorsAndCustomersInThatOrder) {
    AddCurrency(1, "US Dollars");
    InsertRow("Bank",
              {{"BankID", 1}, {"BankName", "Chase"}, {"BankGLAccountID", 1}, {"CurrencyID", 1}});
    AddVendor(1, "V1", "Acme", 1);
    InsertRow(
        "Customer",
        {{"CustomerID", 1}, {"CustomerNo", "C1"}, {"CustomerName", "Bolt"}, {"CurrencyID", 1}});
    TfrmCurrencies& list = List();
    FormDriver d(list);
    dialogs.Answer("Delete 'US Dollars'?", ui::mbNo);
    d.Click("mnuDelete");
    EXPECT_EQ(dialogs.LastText(), "Delete 'US Dollars'?");

    struct Use {
        const char* Reason;
        const char* Remove;
    };
    const Use uses[] = {
        {"Bank(s) exist for this currency", "DELETE FROM Bank"},
        {"Vendor(s) exist for this currency", "DELETE FROM Vendor"},
        {"Customer(s) exist for this currency", "DELETE FROM Customer"},
    };
    for (const Use& use : uses) {
        dialogs.Answer(ui::mbYes);
        d.Click("mnuDelete");
        EXPECT_EQ(dialogs.LastText(),
                  std::string("Unable to delete 'US Dollars'...\n") + use.Reason);
        EXPECT_EQ(CountRows("Currency"), 1);
        store::Query(db_, use.Remove).ExecSQL();
    }
    dialogs.Answer(ui::mbYes);
    d.Click("mnuDelete");
    EXPECT_EQ(CountRows("Currency"), 0);
    EXPECT_TRUE(list.tblCurrency.IsEmpty());
}
