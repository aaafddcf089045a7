#include "VoucherFixture.h"
#include "ledger/PostingFixture.h"

#include "core/MoneyLimit.h"
#include "ledger/posting/LedgerCheck.h"
#include "ledger/posting/PostingRun.h"
#include "ledger/domain/VoucherTexts.h"

namespace corvane::testing {
namespace {

namespace text = ledger::voucher_text;

const Money Largest = Money::FromUnits(LargestAmountUnits);
const Money Least = Money::FromUnits(1);

class PostingLimitsTest : public PostingTest {
protected:
    std::string PostRefusal() {
        try {
            ledger::PostingRun(db_).Run({});
        } catch (const std::exception& e) {
            return e.what();
        }
        return "";
    }
};

// The largest amount the ledger holds posts whole; a run that would carry a total past it is
// refused as a whole, says which total, and leaves the ledger as it was and in agreement.
TEST_F(PostingLimitsTest, TheLargestAmountPostsAndARunPastItIsRefusedWhole) {
    AddVoucher(1, 2018, 3, {{Rent, Largest}, {Cash, -Largest}});
    EXPECT_EQ(PostRefusal(), "");
    EXPECT_EQ(Total(Rent, 2018, 3), Largest);
    EXPECT_EQ(Total(Cash, 2018, 3), -Largest);

    AddVoucher(2, 2018, 4, {{Rent, M(5)}, {Cash, M(-5)}});
    AddVoucher(3, 2018, 3, {{Rent, Least}, {Cash, -Least}});
    EXPECT_EQ(PostRefusal(),
              "Posting was not done: the total of GL account id 1 for period 3/2018 would be "
              "larger than the largest amount the ledger holds (922,337,203,685,477.5807). "
              "Nothing was changed.");
    EXPECT_EQ(Total(Rent, 2018, 3), Largest);
    EXPECT_EQ(Total(Rent, 2018, 4), std::nullopt);
    EXPECT_EQ(CountRows("GLHist"), 2);
    store::Statement s(db_.Conn(), "SELECT count(*) FROM JV WHERE Posted = 0");
    s.Step();
    EXPECT_EQ(s.ColumnInt(0), 2);
    EXPECT_EQ(ledger::CheckLedger(db_), std::vector<std::string>{});
}

using VoucherLimitsTest = VoucherTest;

// The voucher form takes the largest amount, refuses a line that would carry its debits past
// it before the line is written, and refuses a typed amount no field can hold.
TEST_F(VoucherLimitsTest, TheLargestAmountIsTakenAndTotalsPastItAreRefused) {
    ledger::TfrmJV& form = NewVoucherForm();
    ui::FormDriver d(form);
    d.EnterText("editDescription", "Largest");
    TypeLine(d, "1000", "922,337,203,685,477.5807");
    TypeLine(d, "1000", "0.0001");
    d.Click("btnOK");
    EXPECT_EQ(LastMessage(), text::TotalTooLarge);
    EXPECT_EQ(FormLines(form), "1,1,922337203685477.5807");

    d.EnterCell("grdLines", "GLAmount", "922337203685477.5808");
    EXPECT_EQ(LastMessage(), "'922337203685477.5808' is larger than the largest amount field "
                             "'GLAmount' holds (922,337,203,685,477.5807)");

    d.EnterCell("grdLines", "GLAccountID", "4000");
    d.EnterCell("grdLines", "GLAmount", "-922337203685477.5807");
    d.Click("btnOK");
    EXPECT_EQ(SqlText("SELECT JVAmount FROM JV"), "922337203685477.5807");
    EXPECT_FALSE(VoucherFormOpen());
}

} // namespace
} // namespace corvane::testing
