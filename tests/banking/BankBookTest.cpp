#include "banking/domain/BankRecord.h"

#include "core/Date.h"
#include "store/Query.h"
#include "support/CompanyFixture.h"

#include <gtest/gtest.h>

using namespace corvane;
using namespace corvane::banking;

namespace {

BankHistoryRow Row(std::int64_t id, const char* source, std::int64_t cents, const char* description,
                   const char* party = "") {
    return {id,          Date::FromYmd(2017, 1, 1).AddDays(static_cast<int>(id)),
            source,      Money::FromCents(cents),
            description, party};
}

} // namespace

TEST(BankBook, ShowsTheLast300RowsWithTheBalanceOfAllBefore) {
    std::vector<BankHistoryRow> rows;
    for (int i = 1; i <= 450; ++i)
        rows.push_back(Row(i, "GL", i % 2 ? 1001 : -333, "Transfer"));
    const std::vector<BankBookLine> book = BuildBankBook(rows);
    ASSERT_EQ(book.size(), 300u);
    EXPECT_EQ(book.front().GLHistID, 151);
    // 150 rows before: 75 of 10.01 and 75 of -3.33, plus row 151's own 10.01.
    EXPECT_EQ(book.front().Balance, Money::FromCents(75 * 1001 - 75 * 333 + 1001));
    EXPECT_EQ(book.back().Balance, Money::FromCents(225 * 1001 - 225 * 333));
    EXPECT_EQ(BuildBankBook(std::span(rows).first(3)).size(), 3u);
}

TEST(BankBook, PaymentsDepositsAndJournalRowsAreDescribedEachTheirWay) {
    const std::vector<BankHistoryRow> rows{
        Row(1, "AP", -5000, "AP Cheque 000123    to vendor", "Acme Supply (V100)"),
        Row(2, "AP", -700, "AP Invoice: INV-9988 paid by cash", "Acme Supply (V100)"),
        Row(3, "AR", 12000, "Payment", "Birch Lumber (1001)"),
        Row(4, "GL", 250, "Interest earned"),
    };
    const std::vector<BankBookLine> book = BuildBankBook(rows);
    EXPECT_EQ(book[0].PaymentDeposit, "000123    ");
    EXPECT_EQ(book[0].Description, "Acme Supply (V100)");
    EXPECT_EQ(book[1].PaymentDeposit, "INV-9988 paid by cash");
    EXPECT_EQ(book[2].PaymentDeposit, "Deposit");
    EXPECT_EQ(book[2].Description, "Birch Lumber (1001)");
    EXPECT_EQ(book[3].PaymentDeposit, "");
    EXPECT_EQ(book[3].Description, "Interest earned");
    EXPECT_EQ(book[3].Balance, Money::FromCents(-5000 - 700 + 12000 + 250));
}

namespace {
class BankHistoryTest : public corvane::testing::CompanyTest {};
} // namespace

TEST_F(BankHistoryTest, ReadsOnlyTheBanksAccountByDateAndNamesTheCustomer) {
    InsertRow(
        "Bank",
        {{"BankID", 1}, {"BankName", "Operating"}, {"BankGLAccountID", 7}, {"CurrencyID", 1}});
    InsertRow("Customer", {{"CustomerID", 10000},
                           {"CustomerNo", "1001"},
                           {"CustomerName", "Birch Lumber"},
                           {"CurrencyID", 1}});
    store::Table hist(db_, "GLHist");
    hist.Open();
    auto add = [&](int account, int day, std::int64_t cents, const char* source) {
        hist.Append();
        FillGLHistLine(hist, 1, Date::FromYmd(2017, 3, day), Money::FromCents(cents));
        hist.FieldByName("GLAccountID").SetAsInteger(account);
        hist.FieldByName("Source").SetAsString(source);
        if (std::string(source) == "AR") hist.FieldByName("CustomerID").SetAsInteger(10000);
        hist.Post();
    };
    add(7, 20, 500, "AR");
    add(8, 10, 999, "GL");
    add(7, 5, -100, "GL");
    const std::vector<BankHistoryRow> rows = ReadBankHistory(db_, 1);
    ASSERT_EQ(rows.size(), 2u);
    EXPECT_EQ(rows[0].Amount, Money::FromCents(-100));
    EXPECT_EQ(rows[1].Party, "Birch Lumber (1001)");
    EXPECT_TRUE(ReadBankHistory(db_, 2).empty());
    EXPECT_EQ(BankInUse(db_, 1), "");
}
