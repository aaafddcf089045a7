#include "ReportFixture.h"
#include "core/DisplayFormat.h"
#include "ledger/accounts/TfrmGLAccounts.h"
#include "ledger/inquiry/TfrmGLBalances.h"
#include "ledger/inquiry/TfrmGLHistory.h"
#include "ledger/reports/ReportColumns.h"
#include "ledger/vouchers/TfrmJVs.h"
#include "reports/preview/PrinterCheck.h"

using namespace corvane;
using corvane::testing::ReportTest;

namespace {

constexpr const char* PrinterQuestion =
    "No printer driver was detected. Do you have a printer installed?";

// The Print commands of the ledger's lists: the report shows what the list shows, in the list's
// order, and opens in a preview only when there is a printer.
class ReportPrint : public ReportTest {
protected:
    void SetUp() override {
        ReportTest::SetUp();
        AddVoucher(1, 2017, 3, {{Cash, M(100)}, {Sales, M(-100)}});
        AddVoucher(2, 2017, 4, {{Rent, M(40), 7}, {Accruals, M(-40)}});
        AddVoucher(3, 2017, 4, {{Cash, M(25)}, {Sales, M(-25)}});
    }

    void Click(ui::Form& form, const char* name) { ui::FormDriver(form).Click(name); }

    // Where the word first stands in the text; npos when it does not.
    static std::size_t At(const std::string& text, const std::string& word) {
        return text.find(word);
    }
};

TEST_F(ReportPrint, AccountsPrintOnlyTheFilteredRowsInTheListsOrder) {
    auto& list = app.CreateForm<ledger::TfrmGLAccounts>(db_);
    list.Show();
    list.mnuSortAccountName.Click();
    list.tblGLAccnt.SetFilter("(AccountType = 3) OR (AccountType = 4)");
    list.tblGLAccnt.SetFiltered(true);
    Click(list, "mnuPrint");

    const std::string text = PreviewText();
    ASSERT_NE(LastPreview(), nullptr) << LastMessage();
    EXPECT_EQ(LastPreview()->Document().title, "GL Accounts");
    for (const char* shown : {"Rent", "Sales", "Unused"})
        EXPECT_EQ(LinesWith(text, shown), 1) << shown;
    for (const char* hidden : {"Cash", "Accruals"})
        EXPECT_EQ(LinesWith(text, hidden), 0) << hidden;
    // By name, as the list is sorted: Rent (5100) ahead of Sales (4000).
    EXPECT_LT(At(text, "Rent"), At(text, "Sales"));
    EXPECT_LT(At(text, "Sales"), At(text, "Unused"));
    EXPECT_EQ(LinesWith(text, "Expense"), 2);

    // The filter off in the list is off in the report, and the order by number comes back.
    list.tblGLAccnt.SetFiltered(false);
    list.mnuSortGLAccount.Click();
    Click(list, "mnuPrint");
    const std::string all = PreviewText();
    for (const char* shown : {"Rent", "Sales", "Unused", "Cash", "Accruals"})
        EXPECT_EQ(LinesWith(all, shown), 1) << shown;
    EXPECT_LT(At(all, "Cash"), At(all, "Accruals"));
    EXPECT_LT(At(all, "Sales"), At(all, "Rent"));
}

TEST_F(ReportPrint, WithoutAPrinterBothPrintCommandsRefuseAndNoPreviewOpens) {
    desktop.Printer.clear();
    auto& list = app.CreateForm<ledger::TfrmJVs>(db_);
    list.Show();
    for (const char* command : {"mnuPrint", "mnuPrintJV"}) {
        dialogs.ClearShown();
        dialogs.Answer(PrinterQuestion, ui::mbNo);
        Click(list, command);
        EXPECT_EQ(LastMessage(), reports::kNoPrinterMessage) << command;
        EXPECT_EQ(LastPreview(), nullptr) << command;
    }
    // Saying a printer is installed lets the next one through.
    dialogs.Answer(PrinterQuestion, ui::mbYes);
    Click(list, "mnuPrint");
    EXPECT_NE(LastPreview(), nullptr);
}

TEST_F(ReportPrint, PrintJVPrintsTheCurrentVoucherTitledWithItsNumber) {
    auto& list = app.CreateForm<ledger::TfrmJVs>(db_);
    list.Show();
    ASSERT_TRUE(list.tblJV.Locate("JVID", {2}));
    Click(list, "mnuPrintJV");

    ASSERT_NE(LastPreview(), nullptr) << LastMessage();
    EXPECT_EQ(LastPreview()->Document().title, "JV:  1002");
    const std::string text = PreviewText();
    EXPECT_EQ(LinesWith(text, "JV:  1002"), 1);
    EXPECT_EQ(LinesWith(text, "Voucher 2"), 1);
    EXPECT_EQ(LinesWith(text, "Voucher 1"), 0);
    EXPECT_EQ(LinesWith(text, "5100-EAST"), 1);
    EXPECT_EQ(LinesWith(text, "Rent - East"), 1);
    EXPECT_EQ(LinesWith(text, "Accruals"), 1);
}

TEST_F(ReportPrint, VoucherListFilterAndOrderReachTheReportAndItsTotal) {
    auto& list = app.CreateForm<ledger::TfrmJVs>(db_);
    list.Show();
    list.mnuSortPeriodDesc.Click();
    list.tblJV.SetFilter("GLPeriod = 4");
    list.tblJV.SetFiltered(true);
    Click(list, "mnuPrint");

    const std::string text = PreviewText();
    ASSERT_NE(LastPreview(), nullptr) << LastMessage();
    EXPECT_EQ(LinesWith(text, "Voucher 1"), 0);
    // Newest number first, as the list shows them.
    ASSERT_NE(At(text, "Voucher 3"), std::string::npos);
    EXPECT_LT(At(text, "Voucher 3"), At(text, "Voucher 2"));
    EXPECT_EQ(LinesWith(text, FormatMoney(ledger::kSignedAmountMask, M(65))), 1);
}

TEST_F(ReportPrint, HistoryPrintsTheAccountTypeAndTheAccountTheListStandsOn) {
    PostAll();
    auto& list = app.CreateForm<ledger::TfrmGLHistory>(db_);
    list.Show();
    // Expense accounts only: the type is tested line by line.
    list.ApplyFilter("", false, 4);
    Click(list, "mnuPrint");
    std::string text = PreviewText();
    ASSERT_NE(LastPreview(), nullptr) << LastMessage();
    EXPECT_EQ(LinesWith(text, "5100-EAST"), 1);
    EXPECT_EQ(LinesWith(text, "Voucher"), 1);

    // The accounts list's History puts a range on one account.
    list.ApplyFilter("", false, 0);
    list.tblGLHist.SetIndexName(ledger::TfrmGLHistory::kAccountIndex);
    list.tblGLHist.SetRange({Cash}, {Cash});
    Click(list, "mnuPrint");
    text = PreviewText();
    EXPECT_EQ(LinesWith(text, "Voucher"), 2);
    EXPECT_EQ(LinesWith(text, " 1000 "), 2);
    EXPECT_EQ(LinesWith(text, "Total of period"), 2);
}

TEST_F(ReportPrint, TotalsPrintLandscapeInTheListsDataModeAndConditions) {
    PostAll();
    auto& list = app.CreateForm<ledger::TfrmGLBalances>(db_);
    list.Show();
    list.SetConditions({"(AccountType = 1)"});
    list.SetData(ledger::TotalsData::Balance);
    Click(list, "mnuPrint");
    ASSERT_NE(LastPreview(), nullptr) << LastMessage();
    std::string text = PreviewText();
    EXPECT_EQ(LastPreview()->Document().title, "GL Totals");
    const reports::Page& page = LastPreview()->Document().PageAt(1);
    EXPECT_GT(page.width, page.height);
    EXPECT_EQ(LinesWith(text, "Rent"), 0);
    // Cash took 100 in period 3 and 25 in period 4: its balance stands at 125 to the year's end.
    ASSERT_EQ(LinesWith(text, "Cash"), 1);
    EXPECT_EQ(LinesWith(text, "125.00"), 1);

    list.SetData(ledger::TotalsData::NetChange);
    Click(list, "mnuPrint");
    text = PreviewText();
    EXPECT_EQ(LinesWith(text, "125.00"), 1) << "the year's change";
    EXPECT_EQ(LinesWith(text, " 25.00"), 1);
}

} // namespace
