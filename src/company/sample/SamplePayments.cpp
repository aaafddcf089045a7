#include "company/sample/SamplePayments.h"

#include "receivables/payments/domain/PaymentDocument.h"
#include "receivables/posting/PaymentPostingRun.h"
#include "store/Query.h"

#include <optional>
#include <string>
#include <vector>

namespace corvane::company {

using namespace receivables;

namespace {

bool GiveUp(const std::string&) {
    return false;
}

// The posted invoice of that number with what it owes, and its customer; nothing when the
// sample sold less than usual.
struct Sold {
    InvoiceDue Due;
    std::int64_t CustomerID = 0;
    std::int64_t CurrencyID = 0;
};

std::optional<Sold> Invoice(store::Database& db, const std::string& number) {
    store::Query q(db, "SELECT ARInvoiceID, CustomerID, CurrencyID FROM ARInv "
                       "WHERE InvoiceNo = :No AND Posted = true AND Owing > 0");
    q.ParamByName("No").SetAsString(number);
    q.Open();
    if (q.IsEmpty()) return std::nullopt;
    const std::optional<InvoiceDue> due =
        ReadInvoiceDue(db, q.FieldByName("ARInvoiceID").AsInteger());
    if (!due) return std::nullopt;
    return Sold{*due, q.FieldByName("CustomerID").AsInteger(),
                q.FieldByName("CurrencyID").AsInteger()};
}

std::optional<std::int64_t> BankOf(store::Database& db, std::int64_t currencyId) {
    store::Query q(db, "SELECT BankID FROM Bank WHERE CurrencyID = :ID ORDER BY BankID");
    q.ParamByName("ID").SetAsInteger(currencyId);
    q.Open();
    if (q.IsEmpty()) return std::nullopt;
    return q.FieldByName("BankID").AsInteger();
}

// One payment of the invoice, the line made by shape; nothing when the invoice is not there.
void Pay(store::Database& db, int fiscalYear, const std::string& invoiceNo, int day,
         const std::string& reference, int paidBy,
         void (*shape)(AllocationLine& line, const InvoiceDue& due, store::Database& db,
                       std::int64_t customerId)) {
    const std::optional<Sold> sold = Invoice(db, invoiceNo);
    if (!sold) return;
    PaymentHeader header;
    header.ChequeNo = reference;
    header.CustomerID = sold->CustomerID;
    header.BankID = BankOf(db, sold->CurrencyID);
    header.GLYear = fiscalYear;
    header.GLPeriod = 12;
    header.PaymentDate = Date::FromYmd(fiscalYear, 12, day);
    header.PaidBy = paidBy;
    AllocationLine line;
    line.ARInvoiceID = sold->Due.ARInvoiceID;
    shape(line, sold->Due, db, sold->CustomerID);
    CreatePayment(db, header, {line}, GiveUp);
}

} // namespace

void WriteSamplePayments(store::Database& db, int fiscalYear) {
    // In full, two per cent off for paying early.
    Pay(db, fiscalYear, "2", 4, "4410", 2,
        [](AllocationLine& line, const InvoiceDue& due, store::Database&, std::int64_t) {
            line.DiscTakenAmount = due.InvoiceAmount.PercentRounded(2.0);
            line.PaymentAmount = due.Owing - *line.DiscTakenAmount;
        });
    // A part, by bank transfer.
    Pay(db, fiscalYear, "4", 10, "EFT0088", 3,
        [](AllocationLine& line, const InvoiceDue&, store::Database&, std::int64_t) {
            line.PaymentAmount = Money::FromWhole(500);
        });
    // Abroad, the odd amount left written off to the currency's account.
    Pay(db, fiscalYear, "7", 12, "77120", 2,
        [](AllocationLine& line, const InvoiceDue& due, store::Database& base,
           std::int64_t customer) {
            line.PaymentAmount = Money::FromWhole(110);
            line.WriteOffAmount = due.Owing - *line.PaymentAmount;
            line.WriteOffGLAccountID = DefaultWriteOffAccount(base, customer);
        });
    PaymentPostingRun(db).Run(GiveUp);
    // The last one came in after the run: entered, waiting to be posted.
    Pay(db, fiscalYear, "5", 15, "2231", 2,
        [](AllocationLine& line, const InvoiceDue& due, store::Database&, std::int64_t) {
            PayNoDiscount(line, due);
        });
}

} // namespace corvane::company
