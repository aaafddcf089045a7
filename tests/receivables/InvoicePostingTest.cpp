#include "receivables/posting/InvoicePosting.h"
#include "receivables/taxes/TaxBuckets.h"

#include <gtest/gtest.h>

namespace corvane::receivables {
namespace {

using ledger::AccountKey;
using ledger::VoucherLine;

constexpr std::int64_t Bank = 10, Receivable = 11, Stock = 13, Tax1 = 21, Tax2 = 22, Sales = 40,
                       ServiceSales = 41, Consulting = 45, Cogs = 50, Exchange = 80;

Money C(std::int64_t cents) {
    return Money::FromCents(cents);
}

AccountKey A(std::int64_t id, std::optional<std::int64_t> sub1 = std::nullopt) {
    return {id, sub1, std::nullopt, std::nullopt};
}

ItemForPosting Service(std::int64_t salesAccount = ServiceSales) {
    ItemForPosting item;
    item.Sales = A(salesAccount);
    return item;
}

ItemForPosting Stocked(int costingMethod, Money wgtAvg, Money standard) {
    ItemForPosting item;
    item.Sales = A(Sales, 7);
    item.Cogs = A(Cogs, 7);
    item.Stock = A(Stock);
    item.Inventory = true;
    item.CostingMethod = costingMethod;
    item.WgtAvgCost = wgtAvg;
    item.StandardCost = standard;
    return item;
}

InvoiceLineToPost Line(std::int64_t seq, double qty, Money price, std::int64_t itemId,
                       const ItemForPosting& item) {
    InvoiceLineToPost line;
    line.Seq = seq;
    line.Quantity = qty;
    line.UnitPrice = price;
    line.ItemID = itemId;
    line.Item = item;
    return line;
}

InvoiceToPost Invoice(Money amount, std::vector<InvoiceLineToPost> lines) {
    InvoiceToPost inv;
    inv.ARInvoiceID = 7;
    inv.InvoiceNo = "1007";
    inv.CustomerID = 3;
    inv.WarehouseID = 1;
    inv.GLYear = 2018;
    inv.GLPeriod = 3;
    inv.InvoiceDate = Date::FromYmd(2018, 3, 14);
    inv.InvoiceAmount = amount;
    inv.StoredRate = 1;
    inv.ARGLAccountID = Receivable;
    inv.GainLossGLAccountID = Exchange;
    inv.Tax1GLAccountID = Tax1;
    inv.Tax2GLAccountID = Tax2;
    inv.Lines = std::move(lines);
    return inv;
}

Money Sum(const std::vector<VoucherLine>& lines) {
    Money total;
    for (const auto& l : lines)
        total += l.GLAmount;
    return total;
}

void ExpectLines(const std::vector<VoucherLine>& actual,
                 const std::vector<std::pair<AccountKey, Money>>& expected) {
    ASSERT_EQ(actual.size(), expected.size());
    for (std::size_t i = 0; i < expected.size(); ++i) {
        EXPECT_EQ(actual[i].Seq, static_cast<std::int64_t>(i + 1)) << "line " << i + 1;
        EXPECT_EQ(actual[i].Account, expected[i].first) << "line " << i + 1;
        EXPECT_EQ(actual[i].GLAmount, expected[i].second)
            << "line " << i + 1 << ": " << actual[i].GLAmount.ToString();
    }
    EXPECT_EQ(Sum(actual), Money()) << "the voucher does not balance";
}

// Rates 5% on code G and 8% on code P; one line of 10.01 carries both, one only G.
TEST(InvoicePosting, AHomeInvoiceWithTwoTaxesCreditsSalesAndEachTaxAndDebitsTheReceivable) {
    TaxBuckets buckets{{{"G", C(2002)}, {"P", C(1001)}, {}}};
    const Money tax1 = TaxAmount(buckets, "G", 5.0);
    const Money tax2 = TaxAmount(buckets, "P", 8.0);
    ASSERT_EQ(tax1, C(100)); // 100.1 cents rounds once, on the bucket's total
    ASSERT_EQ(tax2, C(80));

    InvoiceToPost inv = Invoice(
        C(2182), {Line(1, 1, C(1001), 5, Service()), Line(2, 1, C(1001), 6, Service(Sales))});
    inv.Tax1Amount = tax1;
    inv.Tax2Amount = tax2;
    const InvoicePostingEffect e = InvoicePosting(inv, false);
    EXPECT_EQ(e.Invoice.TransType, "Inv");
    EXPECT_EQ(e.Invoice.TransDescription, "AR Invoice 1007");
    ExpectLines(e.Invoice.Lines, {{A(ServiceSales), C(-1001)},
                                  {A(Sales), C(-1001)},
                                  {A(Tax1), C(-100)},
                                  {A(Tax2), C(-80)},
                                  {A(Receivable), C(2182)}});
    EXPECT_EQ(e.Invoice.JVAmount, C(2182));
    EXPECT_EQ(e.BalanceChange, C(2182));
    EXPECT_TRUE(e.Stock.empty());
    EXPECT_TRUE(e.UnitCosts.empty());
    EXPECT_FALSE(e.Payment);
}

TEST(InvoicePosting, AForeignInvoiceConvertsSalesAndTaxAndPutsTheDifferenceOnGainOrLoss) {
    InvoiceToPost one = Invoice(C(10000), {Line(1, 1, C(10000), 5, Service())});
    one.StoredRate = 1.25;
    ExpectLines(InvoicePosting(one, false).Invoice.Lines,
                {{A(ServiceSales), C(-12500)}, {A(Receivable), C(10000)}, {A(Exchange), C(2500)}});

    // Three lines converted one by one, the tax on its own: the exchange row takes whatever
    // the roundings leave, and the receivable stays in the customer's currency.
    InvoiceToPost inv =
        Invoice(C(3153), {Line(1, 1, C(1001), 5, Service()), Line(2, 1, C(1001), 5, Service()),
                          Line(3, 1, C(1001), 5, Service())});
    inv.StoredRate = 1.3333;
    inv.Tax1Amount = C(150);
    const InvoicePostingEffect e = InvoicePosting(inv, false);
    ExpectLines(e.Invoice.Lines, {{A(ServiceSales), C(-1335)},
                                  {A(ServiceSales), C(-1335)},
                                  {A(ServiceSales), C(-1335)},
                                  {A(Tax1), C(-200)},
                                  {A(Receivable), C(3153)},
                                  {A(Exchange), C(1052)}});
    EXPECT_EQ(e.Invoice.JVAmount, C(3153 + 1052));
    EXPECT_EQ(e.BalanceChange, C(3153)); // the customer owes in the invoice's currency

    // A rate of 0, like 1, converts nothing.
    InvoiceToPost zero = Invoice(C(10000), {Line(1, 1, C(10000), 5, Service())});
    zero.StoredRate = 0;
    ExpectLines(InvoicePosting(zero, false).Invoice.Lines,
                {{A(ServiceSales), C(-10000)}, {A(Receivable), C(10000)}});
}

TEST(InvoicePosting, ACreditNoteReversesEveryRowAndReturnsTheStock) {
    InvoiceToPost inv = Invoice(C(-10500), {Line(1, -2, C(5000), 5, Stocked(2, C(2000), C(3000)))});
    inv.Tax1Amount = C(-500);
    const InvoicePostingEffect e = InvoicePosting(inv, false);
    ExpectLines(e.Invoice.Lines, {{A(Sales, 7), C(10000)},
                                  {A(Cogs, 7), C(-6000)}, // standard cost for method 2
                                  {A(Stock), C(6000)},
                                  {A(Tax1), C(500)},
                                  {A(Receivable), C(-10500)}});
    EXPECT_EQ(e.Invoice.JVAmount, C(16500)); // the debits, never negative
    EXPECT_EQ(e.BalanceChange, C(-10500));
    ASSERT_EQ(e.Stock.size(), 1u);
    EXPECT_EQ(e.Stock[0].ItemID, 5);
    EXPECT_EQ(*e.Stock[0].Quantity, -2.0);
}

TEST(InvoicePosting, AStockedItemAtWeightedAverageCostMovesItsCostToCostOfGoods) {
    InvoiceToPost inv =
        Invoice(C(6000), {Line(1, 3, C(2000), 5, Stocked(1, Money::FromUnits(123456), C(999)))});
    const InvoicePostingEffect e = InvoicePosting(inv, false);
    // 3 x 12.3456 = 37.0368, to the cent.
    ExpectLines(e.Invoice.Lines, {{A(Sales, 7), C(-6000)},
                                  {A(Cogs, 7), C(3704)},
                                  {A(Stock), C(-3704)},
                                  {A(Receivable), C(6000)}});
    ASSERT_EQ(e.UnitCosts.size(), 1u);
    EXPECT_EQ(e.UnitCosts[0].Seq, 1);
    EXPECT_EQ(e.UnitCosts[0].UnitCost, Money::FromUnits(123456));
    ASSERT_EQ(e.Stock.size(), 1u);
    EXPECT_EQ(*e.Stock[0].Quantity, 3.0);

    // Without a cost-of-goods account no cost rows go out, but the cost and the stock still do.
    ItemForPosting noCogs = Stocked(1, C(500), C(999));
    noCogs.Cogs = {};
    const InvoicePostingEffect bare =
        InvoicePosting(Invoice(C(2000), {Line(1, 2, C(1000), 5, noCogs)}), false);
    ExpectLines(bare.Invoice.Lines, {{A(Sales, 7), C(-2000)}, {A(Receivable), C(2000)}});
    ASSERT_EQ(bare.UnitCosts.size(), 1u);
    EXPECT_EQ(bare.UnitCosts[0].UnitCost, C(500));
    EXPECT_EQ(bare.Stock.size(), 1u);
}

TEST(InvoicePosting, ATimeLineCreditsItsTaskTypesSalesAccountWithoutSubaccounts) {
    InvoiceLineToPost time;
    time.Seq = 1;
    time.Quantity = 2.5;
    time.UnitPrice = C(8000);
    time.TaskID = 9;
    time.TaskSalesAccountID = Consulting;
    InvoiceLineToPost item = Line(2, 1, C(1000), 5, Stocked(1, C(400), C(400)));
    const InvoicePostingEffect e = InvoicePosting(Invoice(C(21000), {time, item}), false);
    ExpectLines(e.Invoice.Lines, {{A(Consulting), C(-20000)},
                                  {A(Sales, 7), C(-1000)},
                                  {A(Cogs, 7), C(400)},
                                  {A(Stock), C(-400)},
                                  {A(Receivable), C(21000)}});
    EXPECT_EQ(e.Stock.size(), 1u); // only the item moves stock
}

TEST(InvoicePosting, APointOfSalePaymentGetsItsOwnVoucherAndLeavesTheBalanceTheRest) {
    InvoiceToPost inv = Invoice(C(10500), {Line(1, 1, C(10000), 5, Service())});
    inv.Tax1Amount = C(500);
    inv.POSPmtAmount = C(10500);
    inv.POSPmtPaidBy = 2;
    inv.POSPmtReference = "123";
    inv.POSPmtBankID = 1;
    inv.POSBankGLAccountID = Bank;
    const InvoicePostingEffect e = InvoicePosting(inv, false);
    EXPECT_EQ(e.BalanceChange, Money()); // fully paid: the customer's balance does not move
    ASSERT_TRUE(e.Payment);
    EXPECT_EQ(e.Payment->TransType, "Pmt");
    EXPECT_EQ(e.Payment->TransDescription, "AR Payment: Cheque 123");
    EXPECT_EQ(e.Payment->JVAmount, C(10500));
    ExpectLines(e.Payment->Lines, {{A(Receivable), C(-10500)}, {A(Bank), C(10500)}});
    EXPECT_EQ(InvoicePosting(inv, true).Payment->TransDescription, "AR Payment: Check 123");

    inv.POSPmtAmount = C(4000);
    inv.POSPmtPaidBy = 1;
    inv.POSPmtReference.clear();
    const InvoicePostingEffect part = InvoicePosting(inv, false);
    EXPECT_EQ(part.BalanceChange, C(6500));
    EXPECT_EQ(part.Payment->TransDescription, "AR Payment: Cash");
    EXPECT_EQ(PaidByText(8, false), "");
    EXPECT_EQ(PaidByText(std::nullopt, false), "");
}

TEST(InvoicePosting, AnInvoiceOfZeroWithLinesThatCancelStillWritesItsVoucher) {
    const InvoicePostingEffect e = InvoicePosting(
        Invoice(Money(), {Line(1, 1, C(1000), 5, Service()), Line(2, -1, C(1000), 5, Service())}),
        false);
    ExpectLines(
        e.Invoice.Lines,
        {{A(ServiceSales), C(-1000)}, {A(ServiceSales), C(1000)}, {A(Receivable), Money()}});
    EXPECT_EQ(e.BalanceChange, Money());
}

TEST(InvoicePosting, StockSoldInTenthsComesBackToExactlyNothing) {
    double onHand = 1.0;
    for (int i = 0; i < 10; ++i)
        onHand = StockAfterSale(onHand, 0.1);
    EXPECT_EQ(onHand, 0.0);
    EXPECT_EQ(StockAfterSale(5, 1.0000004), 4.0); // six decimals at most
}

} // namespace
} // namespace corvane::receivables
