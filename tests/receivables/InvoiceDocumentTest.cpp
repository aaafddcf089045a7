#include "receivables/InvoiceFixture.h"

#include "receivables/invoices/InvoiceDocument.h"
#include "receivables/invoices/InvoiceTexts.h"
#include "receivables/taxes/TaxLookUp.h"
#include "support/ChildProcess.h"

namespace corvane::testing {
namespace {

using namespace receivables;
namespace text = invoice_text;

class InvoiceDocumentTest : public InvoiceTest {
protected:
    void SetUp() override {
        InvoiceTest::SetUp();
        // Entry from 2018/1, a warning after 2018/6.
        InsertRow("Company", {{"CompanyNo", 1},
                              {"CompanyName", "Seller"},
                              {"FiscalYear", 2018},
                              {"EPeriodFromYYYY", 2018},
                              {"EPeriodFromPP", 1},
                              {"WPeriodToYYYY", 2018},
                              {"WPeriodToPP", 6}});
    }

    InvoiceHeader NewHeader(int customer = Local) {
        InvoiceHeader h;
        h.ARInvoiceID = 77;
        h.InvoiceNo = "5001";
        h.CustomerID = customer;
        h.CurrencyID = customer == Local ? Home : Foreign;
        h.WarehouseID = 1;
        h.InvoiceDate = Date::FromYmd(2018, 3, 5);
        h.GLYear = 2018;
        h.GLPeriod = 3;
        h.Taxes = TaxesForCustomer(db_, customer);
        return h;
    }

    void AddLine(int id, int seq, std::optional<int> item) {
        std::vector<std::pair<std::string, store::Value>> row{
            {"ARInvoiceID", id}, {"Seq", seq}, {"Quantity", 1.0}, {"UnitPrice", C(1000)}};
        if (item) row.push_back({"ItemID", *item});
        InsertRow("ARInvDet", row);
    }

    static std::vector<std::string> Say(const InvoiceVerdict& v) {
        return {v.Message, v.Field, v.OpenPayment ? "payment" : ""};
    }
};

// Each refusal of a save in its order: the invoice is mended one step at a time, and each time
// the next check speaks.
TEST_F(InvoiceDocumentTest, ASaveIsRefusedInOrderWithTheSystemsWords) {
    InvoiceHeader h = NewHeader();
    h.CustomerID.reset();
    EXPECT_EQ(Say(ValidateInvoice(db_, h)),
              (std::vector<std::string>{text::CustomerMissing, "CustomerID", ""}));
    h.CustomerID = Local;
    h.GLYear = 2017;
    EXPECT_EQ(ValidateInvoice(db_, h).Message,
              "GL Period is prior to current fiscal year \nas defined by \"Your Company\"");
    h.GLYear = 2018;
    h.GLPeriod = 8; // past the warning bound: a warning, passed with OK
    InvoiceVerdict warned = ValidateInvoice(db_, h);
    EXPECT_EQ(warned.Verdict, InvoiceVerdict::Kind::Warning);
    EXPECT_EQ(warned.Field, "GLPeriod");
    EXPECT_EQ(ValidateInvoice(db_, h, {true, false}).Message, text::NoLines);
    h.GLPeriod = 3;
    AddLine(77, 1, Service);
    h.InvoiceAmount = C(1000);
    h.Terms.COD = true;
    EXPECT_EQ(Say(ValidateInvoice(db_, h)),
              (std::vector<std::string>{text::CodNoPayment, "POSPmtAmount", "payment"}));
    h.Payment = {C(500), 1, "", 1};
    EXPECT_EQ(ValidateInvoice(db_, h).Message, text::CodPaymentDiffers);
    h.Payment.Amount = C(1000);
    h.CustomerID = 99;
    EXPECT_EQ(ValidateInvoice(db_, h).Message, text::CustomerGone);
    h.CustomerID = Local;
    h.WarehouseID.reset();
    EXPECT_EQ(ValidateInvoice(db_, h).Message, text::WarehouseMissing);
    h.WarehouseID = 9;
    EXPECT_EQ(ValidateInvoice(db_, h).Message, text::WarehouseGone);
    h.WarehouseID = 1;
    h.Payment.BankID = 5;
    EXPECT_EQ(Say(ValidateInvoice(db_, h)),
              (std::vector<std::string>{text::PaymentBankGone, "POSPmtAmount", "payment"}));
    h.CurrencyID = Foreign;
    h.Payment.BankID = 1;
    EXPECT_EQ(ValidateInvoice(db_, h).Message, text::PaymentBankCurrency);
    h.CurrencyID = Home;
    EXPECT_TRUE(ValidateInvoice(db_, h).Accepted());

    // An invoice of nothing asks first; OK saves it.
    h.Terms.COD = false;
    h.Payment = {};
    h.InvoiceAmount = Money();
    EXPECT_EQ(ValidateInvoice(db_, h).Message, text::ZeroAmount);
    EXPECT_TRUE(ValidateInvoice(db_, h, {false, true}).Accepted());
    // A time invoice of time alone needs no warehouse; one with an item does.
    h.WarehouseID.reset();
    h.TimeInvoice = true;
    EXPECT_EQ(ValidateInvoice(db_, h, {false, true}).Message, text::WarehouseMissing);
    store::Statement(db_.Conn(), "UPDATE ARInvDet SET ItemID = NULL, TaskID = 1").Step();
    EXPECT_TRUE(ValidateInvoice(db_, h, {false, true}).Accepted());
    // A posted invoice is past every check.
    h.Posted = true;
    h.CustomerID.reset();
    EXPECT_TRUE(ValidateInvoice(db_, h).Accepted());
}

TEST_F(InvoiceDocumentTest, ASavedHeaderReadsBackAndADuplicateNumberIsRefused) {
    InvoiceHeader h = NewHeader();
    h.Description = "March work";
    h.InvoiceAmount = C(11300);
    h.Payment = {C(3000), 2, "881", 1};
    h.PaidAmount = C(3000);
    h.Terms = {2.0, 10, 30, false, false, ""};
    ASSERT_TRUE(SaveInvoice(db_, h).Accepted());
    const auto back = ReadInvoice(db_, 77);
    ASSERT_TRUE(back);
    EXPECT_EQ(back->Description, "March work");
    EXPECT_EQ(back->Owing(), C(8300));
    EXPECT_EQ(SumOf("SELECT Owing FROM ARInv WHERE ARInvoiceID = 77"), C(8300));
    EXPECT_EQ(back->Payment.Reference, "881");
    EXPECT_EQ(back->Taxes.Tax2.Code, "P");
    EXPECT_EQ(TermsDescription(back->Terms), "2% 10   Net 30");

    InvoiceHeader other = NewHeader();
    other.ARInvoiceID = 78;
    EXPECT_EQ(Say(SaveInvoice(db_, other)),
              (std::vector<std::string>{text::NumberNotUnique, "InvoiceNo", ""}));
    EXPECT_EQ(Count("SELECT count(*) FROM ARInv"), 1);
    // A payment of 0 leaves no paid-by, reference or bank behind.
    h.Payment.Amount = Money();
    ASSERT_TRUE(SaveInvoice(db_, h).Accepted());
    EXPECT_EQ(Count("SELECT count(*) FROM ARInv WHERE POSPmtBankID IS NULL AND "
                    "POSPmtReference IS NULL AND POSPmtPaidBy IS NULL"),
              1);
}

TEST_F(InvoiceDocumentTest, DeleteRefusesTimeAndPostedInvoicesAndTakesTheLinesWithTheHeader) {
    AddInvoice(1, Local, {{1, C(1000), Service}, {2, C(500), Widget}});
    AddInvoice(2, Local, {{1, C(1000), Service}});
    AddInvoice(3, Local, {{1, C(1000), Service}});
    store::Statement(db_.Conn(), "UPDATE ARInv SET TimeInvoice = 1 WHERE ARInvoiceID = 2").Step();
    store::Statement(db_.Conn(), "UPDATE ARInv SET Posted = 1 WHERE ARInvoiceID = 3").Step();
    EXPECT_EQ(DeleteInvoice(db_, 2).Message,
              "Unable to delete invoice '1002'...\nInvoices AutoCreated from time sheets cannot be "
              "deleted");
    EXPECT_EQ(DeleteInvoice(db_, 3).Message, text::PostedCannotDelete);
    EXPECT_TRUE(DeleteInvoice(db_, 1).Accepted());
    EXPECT_EQ(Count("SELECT count(*) FROM ARInv"), 2);
    EXPECT_EQ(Count("SELECT count(*) FROM ARInvDet WHERE ARInvoiceID = 1"), 0);
    EXPECT_EQ(Count("SELECT count(*) FROM ARInvDet"), 2);
}

TEST_F(InvoiceDocumentTest, NumbersComeFromTheControlRowAndRestartOutsideTheirSeries) {
    InsertRow("ARInvCtl", {{"NextInvoiceID", 40}, {"NextInvoiceNo", 10000000}});
    auto first = DrawInvoiceKeys(db_, {});
    ASSERT_TRUE(first);
    EXPECT_EQ(first->ARInvoiceID, 40);
    EXPECT_EQ(first->InvoiceNo, "10000000");
    auto second = DrawInvoiceKeys(db_, {});
    EXPECT_EQ(second->ARInvoiceID, 41);
    EXPECT_EQ(second->InvoiceNo, "1");
    EXPECT_EQ(Count("SELECT NextInvoiceNo FROM ARInvCtl"), 2);
}

// While another workstation holds the control table, each round of tries ends in the question;
// Cancel draws nothing.
TEST_F(InvoiceDocumentTest, AHeldControlTableAsksAndCancelDrawsNothing) {
    InsertRow("ARInvCtl", {{"NextInvoiceID", 1}, {"NextInvoiceNo", 1}});
    tests::ChildProcess holder(CORVANE_CURSOR_HOLDER, {folder_.Path(), "exclusive", "ARInvCtl"});
    ASSERT_TRUE(holder.WaitForLine("ready"));
    std::vector<std::string> asked;
    const auto keys = DrawInvoiceKeys(db_,
                                      [&](const std::string& q) {
                                          asked.push_back(q);
                                          return asked.size() < 2;
                                      },
                                      {3, 1});
    EXPECT_FALSE(keys);
    EXPECT_EQ(asked, (std::vector<std::string>{text::ControlBusy, text::ControlBusy}));
    holder.Kill();
    holder.Wait();
    EXPECT_EQ(DrawInvoiceKeys(db_, {})->InvoiceNo, "1");
}

// A whole invoice written at once: adjusted prices, buckets, taxes and amount by the one tax
// routine, keys drawn, and an invoice that posts as entered.
TEST_F(InvoiceDocumentTest, AWholeInvoiceIsWrittenWithItsTaxesAndAmount) {
    InsertRow("ARInvCtl", {{"NextInvoiceID", 1}, {"NextInvoiceNo", 3001}});
    InvoiceHeader h = NewHeader();
    h.Printed = true;
    std::vector<InvoiceLine> lines{{2.0, Service, C(5000), 10.0, "GP", "", {}, {}},
                                   {3.0, Widget, C(2000), {}, "G", "three", {}, {}}};
    const InvoiceKeys keys = CreateInvoice(db_, h, lines, {});
    EXPECT_EQ(keys.InvoiceNo, "3001");
    const auto back = ReadInvoice(db_, keys.ARInvoiceID);
    ASSERT_TRUE(back);
    // 2 x 45.00 + 3 x 20.00 = 150.00; G on 150.00 is 7.50, P on 90.00 is 7.20.
    EXPECT_EQ(back->InvoiceAmount, C(16470));
    EXPECT_EQ(back->Owing(), C(16470));
    EXPECT_EQ(back->Buckets[0], (TaxBucket{"G", C(15000)}));
    EXPECT_EQ(back->Buckets[1], (TaxBucket{"P", C(9000)}));
    EXPECT_EQ(SumOf("SELECT UnitPrice FROM ARInvDet WHERE Seq = 1"), C(4500));
    // A refused invoice leaves nothing, though its number is spent.
    InvoiceHeader noWarehouse = NewHeader();
    noWarehouse.WarehouseID.reset();
    EXPECT_THROW(CreateInvoice(db_, noWarehouse, lines, {}), Exception);
    EXPECT_EQ(Count("SELECT count(*) FROM ARInv"), 1);
    EXPECT_EQ(Count("SELECT count(*) FROM ARInvDet"), 2);
    EXPECT_EQ(Count("SELECT NextInvoiceNo FROM ARInvCtl"), 3003);
}

TEST(InvoiceRules, TermsPricesAndThePaymentPopUpsChecks) {
    EXPECT_EQ(TermsDescription({2.5, {}, {}, false, false, ""}), "2.5% 0   Net 0");
    EXPECT_EQ(TermsDescription({{}, {}, 30, false, false, ""}), "Net 30");
    EXPECT_EQ(TermsDescription({2.0, 10, 30, true, false, ""}), "C.O.D.");
    EXPECT_EQ(TermsDescription({2.0, 10, 30, false, true, ""}), "Prepayment");
    EXPECT_EQ(TermsDescription({2.0, 10, 30, true, false, "End of month"}), "End of month");
    EXPECT_EQ(AdjustedPrice(Money::FromCents(999), 100.0), Money()); // 0, not nothing
    EXPECT_EQ(AdjustedPrice(Money::FromCents(999), std::nullopt), Money::FromCents(999));
    EXPECT_EQ(AdjustedPrice(std::nullopt, 10.0), std::nullopt);
    EXPECT_EQ(AdjustedPrice(Money::FromCents(1999), 15.0), Money::FromCents(1699)); // 16.9915
    EXPECT_EQ(PriceInCurrency(Money::FromCents(999), 1.25), Money::FromCents(799));
    EXPECT_FALSE(RateConvertsPrices(1.0000005));
    EXPECT_FALSE(RateConvertsPrices(0));
    EXPECT_TRUE(RateConvertsPrices(1.25));
    EXPECT_EQ(ConvertPriceQuestion("Widget", 1.25),
              "Convert 'Widget' default unit price to customer currency?\n(Exchange rate is 1.25)");

    PointOfSalePayment p{Money::FromCents(100), {}, "", {}};
    EXPECT_EQ(CheckPointOfSalePayment(p, false, {}, 1, false), text::PaidByMissing);
    p.PaidBy = 2;
    EXPECT_EQ(CheckPointOfSalePayment(p, false, {}, 1, false), text::ReferenceMissingCheque);
    EXPECT_EQ(CheckPointOfSalePayment(p, false, {}, 1, true), text::ReferenceMissingCheck);
    p.Reference = "12";
    EXPECT_EQ(CheckPointOfSalePayment(p, false, {}, 1, false), text::BankMissing);
    p.BankID = 4;
    EXPECT_EQ(CheckPointOfSalePayment(p, false, {}, 1, false), text::BankGone);
    EXPECT_EQ(CheckPointOfSalePayment(p, true, 2, 1, false), text::BankCurrency);
    EXPECT_EQ(CheckPointOfSalePayment(p, true, 1, 1, false), "");
    EXPECT_EQ(CheckPointOfSalePayment({Money(), {}, "", {}}, false, {}, 1, false), "");
}

} // namespace
} // namespace corvane::testing
