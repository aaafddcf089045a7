#pragma once

#include "core/Date.h"
#include "core/Money.h"
#include "receivables/payments/domain/PaymentLines.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace corvane::store {
class Database;
}

namespace corvane::receivables {

// A customer payment as a document: the header the form holds, its checks, save and delete, the
// draw of its id, and the lines over the customer's open invoices. The lines are written to
// ARInvPmt as they are saved; nothing here changes an invoice or a balance, which only posting
// does.
struct PaymentHeader {
    std::int64_t PaymentID = 0;
    std::string ChequeNo;
    std::optional<std::int64_t> CustomerID, BankID;
    int GLYear = 0, GLPeriod = 0; // 0 when not entered
    std::optional<Date> PaymentDate;
    std::optional<Money> ChequeAmount;
    std::optional<int> PaidBy = 2;
    bool Posted = false, Reconciled = false;
};

// What the payment's lines add up to, as the form keeps it.
struct PaymentLinesTotal {
    std::int64_t Count = 0;
    Money Total;
};

// What the payment's checks say. A warning (the period) is passed with OK; the question (no
// amount was entered) fills ChequeAmount with Amount on Yes and leaves the payment unsaved, so
// that a second OK saves it. Field names the field the user is put on ("Lines" for the grid).
struct PaymentVerdict {
    enum class Kind { Accepted, Refused, Warning, Question };
    Kind Verdict = Kind::Accepted;
    std::string Message;
    std::string Field;
    Money Amount;

    bool Accepted() const { return Verdict == Kind::Accepted; }
    static PaymentVerdict Refuse(std::string message, std::string field) {
        return {Kind::Refused, std::move(message), std::move(field), {}};
    }
};

struct PaymentAnswers {
    bool Period = false; // OK to the period warning
};

// The checks of a save in their order; a posted payment is not checked. checkWording: the
// regional country says "check" for a cheque.
PaymentVerdict ValidatePayment(store::Database& db, const PaymentHeader& payment,
                               const PaymentLinesTotal& lines, bool checkWording,
                               PaymentAnswers answered = {});

// Writes the header, new or changed, in one transaction.
void SavePayment(store::Database& db, const PaymentHeader& payment);

// Refuses a posted payment; otherwise removes its lines and then the header in one transaction.
PaymentVerdict DeletePayment(store::Database& db, std::int64_t paymentId);

std::optional<PaymentHeader> ReadPayment(store::Database& db, std::int64_t paymentId);

// The count and sum of PaymentAmount of the lines stored for a payment.
PaymentLinesTotal ReadLinesTotal(store::Database& db, std::int64_t paymentId);

// Takes the next PaymentID from ARPmtCtl through the store's one number draw, tries times a
// pause apart; after each round askRetry hears the question, and false gives up: nothing.
std::optional<std::int64_t> DrawPaymentID(store::Database& db,
                                          const std::function<bool(const std::string&)>& askRetry,
                                          int tries = 100, int pauseMs = 1000);

// The bank a payment of the customer takes: the one chosen when it has the customer's currency,
// else the first bank of that currency in table order, else the one chosen.
std::optional<std::int64_t> BankForCustomer(store::Database& db, std::int64_t customerId,
                                            std::optional<std::int64_t> chosen);

// The account a write-off takes by default: that of the customer's currency.
std::optional<std::int64_t> DefaultWriteOffAccount(store::Database& db, std::int64_t customerId);

// An invoice as a payment line reads it; nothing when it is gone.
std::optional<InvoiceDue> ReadInvoiceDue(store::Database& db, std::int64_t arInvoiceId);

// The accounts and subaccounts of the company, for the line checks.
AccountExists AccountsIn(store::Database& db);

// What AutoCreate wrote: the lines, their total, and the notices of the invoices it left out.
struct AutoCreateResult {
    std::int64_t Lines = 0;
    Money Total;
    std::vector<std::string> Notices;
};

// Whether the customer has an invoice with something owing, posted or not.
bool HasOutstandingInvoices(store::Database& db, std::int64_t customerId);

// Replaces the payment's lines, in one transaction, by one line for each posted invoice of the
// customer with something owing, in order of number, each paid as "Pay + discount if eligible"
// on paymentDate and numbered from 1. An unposted invoice is left out with its notice.
AutoCreateResult AutoCreateLines(store::Database& db, std::int64_t paymentId,
                                 std::int64_t customerId, Date paymentDate);

// A whole payment at once, for the programs that make payments without a form (the sample
// company, imports): draws its id, numbers the lines from 1, checks each line and then the
// payment as the form's saves do (the write-off question answered No, warnings passed, an empty
// amount filled with the lines' total), and writes header and lines in one transaction. Raises
// the first refusal's message with nothing written (the id stays spent); returns the id.
std::int64_t CreatePayment(store::Database& db, PaymentHeader header,
                           std::vector<AllocationLine> lines,
                           const std::function<bool(const std::string&)>& askRetry);

// "Invoice '<no>' is already on this payment", or without the number when it cannot be found.
std::string InvoiceAlreadyOnMessage(store::Database& db, std::int64_t arInvoiceId);

// "Delete payment '<ref>'?", or "Delete payment for '<customer>'?" without a reference.
std::string DeleteQuestion(store::Database& db, std::int64_t paymentId);

} // namespace corvane::receivables
