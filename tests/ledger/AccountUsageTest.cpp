#include "ledger/accounts/AccountUsage.h"
#include "store/Query.h"
#include "support/CompanyFixture.h"

using namespace corvane;
using namespace corvane::ledger;

namespace {

constexpr int kAccount = 7;

class AccountUsageTest : public corvane::testing::CompanyTest {
protected:
    // A row of table whose field holds id; every other field holds a value of its own, so that
    // it refers to nothing the test looks for.
    void InsertReferring(std::string_view table, const std::string& field, int id) {
        store::Table t(db_, std::string(table));
        t.Open();
        t.Insert();
        for (const auto& f : t.Fields()) {
            int filler = next_++;
            switch (f->DataType()) {
            case store::FieldType::SmallInt:
            case store::FieldType::Integer:
            case store::FieldType::AutoInc:
                f->SetAsInteger(filler);
                break;
            case store::FieldType::String:
                f->SetAsString(
                    std::to_string(filler).substr(0, static_cast<std::size_t>(f->Size())));
                break;
            case store::FieldType::Float:
                f->SetAsFloat(0);
                break;
            case store::FieldType::Date:
                f->SetAsDate(Date::FromYmd(2017, 1, 1));
                break;
            case store::FieldType::Currency:
                f->SetAsMoney(Money());
                break;
            case store::FieldType::Boolean:
                f->SetAsBoolean(false);
                break;
            default:
                break;
            }
        }
        t.FieldByName(field).SetAsInteger(id);
        t.Post();
    }
    void DeleteReferring(std::string_view table, const std::string& field, int id) {
        store::Query q(db_);
        q.SetSQL("DELETE FROM " + std::string(table) + " WHERE " + field + " = :ID");
        q.ParamByName("ID").SetAsInteger(id);
        q.ExecSQL();
    }
    static std::string Level(std::string_view field, int level) {
        std::string named(field);
        named.replace(named.find('#'), 1, std::to_string(level));
        return named;
    }

    int next_ = 1000;
};

} // namespace

TEST_F(AccountUsageTest, UnusedAccountHasNoReason) {
    InsertReferring("JVDet", "GLAccountID", kAccount + 1);
    EXPECT_EQ(AccountInUse(db_, kAccount), "");
    EXPECT_EQ(SubAccountInUse(db_, 1, kAccount), "");
}

TEST_F(AccountUsageTest, EveryUseIsFoundAndToldInItsOrder) {
    // Each place on its own is found ...
    for (const AccountUse& use : AccountUses()) {
        InsertReferring(use.Table, std::string(use.Field), kAccount);
        EXPECT_EQ(AccountInUse(db_, kAccount), use.Reason) << use.Table << "." << use.Field;
        DeleteReferring(use.Table, std::string(use.Field), kAccount);
    }
    // ... and with all of them in place, each is told only once those before it are gone.
    for (const AccountUse& use : AccountUses())
        InsertReferring(use.Table, std::string(use.Field), kAccount);
    for (const AccountUse& use : AccountUses()) {
        EXPECT_EQ(AccountInUse(db_, kAccount), use.Reason) << use.Table << "." << use.Field;
        DeleteReferring(use.Table, std::string(use.Field), kAccount);
    }
    EXPECT_EQ(AccountInUse(db_, kAccount), "");
}

TEST_F(AccountUsageTest, AccountTestsRunInTheirOrderWithTheirReasons) {
    std::vector<std::string> order;
    for (const AccountUse& use : AccountUses())
        order.push_back(std::string(use.Table) + "." + std::string(use.Field));
    const std::vector<std::string> expected{
        "GLActual.GLAccountID",
        "GLBudget.GLAccountID",
        "GLHist.GLAccountID",
        "JVDet.GLAccountID",
        "APInvDet.GLAccountID",
        "ARInvPmt.WriteOffGLAccountID",
        "Item.SalesGLAccountID",
        "Item.COGSGLAccountID",
        "Item.InventoryGLAccountID",
        "Tax.TaxGLAccountID",
        "Currency.DfltWriteOffGLAccountID",
        "Currency.APGLAccountID",
        "Currency.GainLossExchangeGLAccntID",
        "Currency.APDiscGLAccountID",
        "Currency.ARGLAccountID",
        "Currency.ARDiscGLAccountID",
        "Bank.BankGLAccountID",
        "Company.DfltSalesGLAccountID",
        "Company.DfltCOGSGLAccountID",
        "Company.DfltInventoryGLAccountID",
    };
    EXPECT_EQ(order, expected);
    EXPECT_EQ(AccountUses()[17].Reason,
              "Your Company uses this account (Default Sales GL Account)");
    EXPECT_EQ(AccountUses()[18].Reason,
              "Your Company uses this account (Default Cost of Goods Sold GL Account)");
}

TEST_F(AccountUsageTest, SubaccountUsesAreLookedForOnTheirOwnLevel) {
    for (int level = 1; level <= 3; ++level) {
        for (const AccountUse& use : SubAccountUses())
            InsertReferring(use.Table, Level(use.Field, level), kAccount);
        for (int other = 1; other <= 3; ++other)
            if (other != level) {
                EXPECT_EQ(SubAccountInUse(db_, other, kAccount), "");
            }
        for (const AccountUse& use : SubAccountUses()) {
            EXPECT_EQ(SubAccountInUse(db_, level, kAccount), use.Reason)
                << use.Table << "." << Level(use.Field, level);
            DeleteReferring(use.Table, Level(use.Field, level), kAccount);
        }
        EXPECT_EQ(SubAccountInUse(db_, level, kAccount), "");
    }
}
