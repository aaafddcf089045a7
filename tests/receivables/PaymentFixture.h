#pragma once

#include "receivables/InvoiceFixture.h"

#include <string>

namespace corvane::testing {

// The invoice company with what payments need besides: discount and write-off accounts of their
// own, a bank in each currency, a fiscal year with period 3 of 2018 open, and posted invoices
// written as invoice posting leaves them.
class PaymentTest : public InvoiceTest {
protected:
    static constexpr int Discounts = 46, WriteOffs = 47, ForeignBank = 14, OtherWriteOffs = 48;
    static constexpr int HomeBank = 1, EuroBank = 2;

    void SetUp() override {
        InvoiceTest::SetUp();
        for (auto [id, no, name, type] :
             std::vector<std::tuple<int, const char*, const char*, int>>{
                 {Discounts, "4600", "Discounts given", 4},
                 {WriteOffs, "4700", "Bad debts", 5},
                 {OtherWriteOffs, "4800", "Small balances", 5},
                 {ForeignBank, "1020", "Euro bank", 1}})
            InsertRow("GLAccnt", {{"GLAccountID", id},
                                  {"GLAccount", no},
                                  {"AccountName", name},
                                  {"AccountType", type}});
        InsertRow("GLAcSub1",
                  {{"SubAccountID", 1}, {"SubAccount", "100"}, {"SubAccountName", "East"}});
        Exec("UPDATE Currency SET ARDiscGLAccountID = 46, DfltWriteOffGLAccountID = 47");
        InsertRow("Bank", {{"BankID", EuroBank},
                           {"BankName", "Euro Bank"},
                           {"BankGLAccountID", ForeignBank},
                           {"CurrencyID", Foreign}});
        InsertRow("Company", {{"CompanyNo", 1},
                              {"CompanyName", "Seller"},
                              {"FiscalYear", 2018},
                              {"DefaultPeriodYYYY", 2018},
                              {"DefaultPeriodPP", 3}});
    }

    // A posted invoice of the amount, owing all of it, with early-payment terms when discPC is
    // given; its customer's balance grows by the amount, as posting leaves it.
    void AddPosted(int id, int customer, Money amount, double discPC = 0, int discDays = 0,
                   Date date = Date::FromYmd(2018, 3, 1), bool posted = true) {
        std::vector<std::pair<std::string, store::Value>> row{
            {"ARInvoiceID", id},
            {"CustomerID", customer},
            {"InvoiceNo", std::to_string(2000 + id)},
            {"InvoiceDate", date},
            {"InvoiceAmount", amount},
            {"PaidAmount", Money()},
            {"DiscTakenAmount", Money()},
            {"WriteOffAmount", Money()},
            {"Owing", amount},
            {"GLPeriod", 3},
            {"GLYear", 2018},
            {"Printed", true},
            {"Posted", posted},
            {"CurrencyID", customer == Local ? Home : Foreign}};
        if (discPC != 0) {
            row.push_back({"DiscPC", discPC});
            row.push_back({"DiscDays", discDays});
        }
        InsertRow("ARInv", row);
        if (!posted) return;
        // Its voucher, waiting for the ledger: the receivable in the invoice's currency.
        const int jvid = 500000 + id;
        InsertRow("JV", {{"JVID", jvid},
                         {"GLYear", 2018},
                         {"GLPeriod", 3},
                         {"JVNumber", jvid},
                         {"Source", "AR"},
                         {"TransType", "Inv"},
                         {"TransDate", date},
                         {"TransDescription", "AR Invoice " + std::to_string(2000 + id)},
                         {"CustomerID", customer},
                         {"ARInvoiceID", id},
                         {"JVAmount", amount},
                         {"Posted", false},
                         {"AutoReverse", false}});
        InsertRow("JVDet", {{"JVID", jvid},
                            {"Seq", 1},
                            {"GLAccountID", customer == Local ? Receivable : ForeignReceivable},
                            {"GLAmount", amount}});
        InsertRow("JVDet",
                  {{"JVID", jvid}, {"Seq", 2}, {"GLAccountID", Sales}, {"GLAmount", -amount}});
        if (Count("SELECT count(*) FROM CBalance WHERE CustomerID = " + std::to_string(customer)))
            Exec("UPDATE CBalance SET Balance = Balance + " + std::to_string(amount.Units()) +
                 " WHERE CustomerID = " + std::to_string(customer));
        else
            InsertRow("CBalance", {{"CustomerID", customer}, {"Balance", amount}});
    }

    // A payment header as the form saves it.
    void AddPayment(int id, int customer, Money amount, const std::string& reference = "Q1",
                    int paidBy = 2, Date date = Date::FromYmd(2018, 3, 20)) {
        InsertRow("ARPmt", {{"PaymentID", id},
                            {"ChequeNo", reference},
                            {"CustomerID", customer},
                            {"BankID", customer == Local ? HomeBank : EuroBank},
                            {"GLYear", 2018},
                            {"GLPeriod", 3},
                            {"PaymentDate", date},
                            {"ChequeAmount", amount},
                            {"Posted", false},
                            {"Reconciled", false},
                            {"PaidBy", paidBy}});
    }
    void AddLine(int payment, int invoice, int seq, Money paid, Money discount = Money(),
                 Money writeOff = Money(), int writeOffAccount = 0) {
        std::vector<std::pair<std::string, store::Value>> row{{"ARInvoiceID", invoice},
                                                              {"PaymentID", payment},
                                                              {"Seq", seq},
                                                              {"PaymentAmount", paid}};
        if (!discount.IsZero()) row.push_back({"DiscTakenAmount", discount});
        if (!writeOff.IsZero()) {
            row.push_back({"WriteOffAmount", writeOff});
            row.push_back({"WriteOffGLAccountID", writeOffAccount ? writeOffAccount : WriteOffs});
        }
        InsertRow("ARInvPmt", row);
    }

    // The test's own fixed statement.
    void Exec(const std::string& sql) {
        store::Statement s(db_.Conn(), sql);
        s.Step();
    }
    Money Owing(int invoice) {
        return SumOf("SELECT Owing FROM ARInv WHERE ARInvoiceID = " + std::to_string(invoice));
    }
    Money Balance(int customer) {
        return SumOf("SELECT Balance FROM CBalance WHERE CustomerID = " + std::to_string(customer));
    }
};

} // namespace corvane::testing
