#pragma once

#include "core/Date.h"
#include "core/Money.h"

#include <array>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>

namespace corvane::receivables {

// What a payment line reads of its invoice.
struct InvoiceDue {
    std::int64_t ARInvoiceID = 0;
    std::string InvoiceNo;
    Date InvoiceDate;
    Money InvoiceAmount, Owing;
    double DiscPC = 0;
    int DiscDays = 0;
    bool Posted = false;

    // The early-payment discount on the whole invoice, taxes included; nothing without terms.
    std::optional<Money> DiscountAmount() const;
    // The last day the discount may be taken; nothing without terms.
    std::optional<Date> DiscountDate() const;
};

// One invoice on a payment: ARInvPmt's fields.
struct AllocationLine {
    std::optional<std::int64_t> ARInvoiceID;
    std::optional<std::int64_t> Seq;
    std::optional<Money> PaymentAmount, DiscTakenAmount, WriteOffAmount;
    std::optional<std::int64_t> WriteOffGLAccountID;
    std::array<std::optional<std::int64_t>, 3> WriteOffSubAccountIDs;

    Money Paid() const { return PaymentAmount.value_or(Money()); }
    Money Discount() const { return DiscTakenAmount.value_or(Money()); }
    Money WriteOff() const { return WriteOffAmount.value_or(Money()); }
    // What the line leaves owing on the invoice once the payment is posted.
    Money LeftOwing(const InvoiceDue& invoice) const {
        return invoice.Owing - Paid() - Discount() - WriteOff();
    }
    void ClearWriteOff();
};

// The pop-up commands on a line: each sets the amounts from the invoice as it stands.
void PayNoDiscount(AllocationLine& line, const InvoiceDue& invoice);
void PayTakeDiscount(AllocationLine& line, const InvoiceDue& invoice);
// The discount when the payment is made by the discount date, else the whole amount owing.
void PayDiscountIfEligible(AllocationLine& line, const InvoiceDue& invoice, Date paymentDate);
void WriteOffAll(AllocationLine& line, const InvoiceDue& invoice);

// Whether an account (level 0) or a subaccount of level 1 to 3 exists.
using AccountExists = std::function<bool(int level, std::int64_t id)>;

// What the line's checks say. A question (write off what is left?) fills WriteOff on Yes and
// leaves the line unsaved; a warning is passed with OK. Column is the grid's column the user is
// put in: 0 invoice, 3 payment, 4 discount, 5 write-off, 6 the write-off account, 7 to 9 its
// subaccounts.
struct LineVerdict {
    enum class Kind { Accepted, Refused, Question, Warning };
    Kind Verdict = Kind::Accepted;
    std::string Message;
    int Column = 0;
    Money WriteOff; // the amount a Yes to the question writes off

    bool Accepted() const { return Verdict == Kind::Accepted; }
};

// The questions and warnings the user has already answered on this save of the line.
struct LineAnswers {
    bool KeepRemainder = false;   // No to "write off the remaining"
    bool WriteOffDiffers = false; // OK to "Payment + write-off does not equal amount owing"
};

// The checks of a line's save in their order; the first that fails is the verdict. invoice is
// nothing when the line's invoice cannot be found.
LineVerdict ValidateLine(const AllocationLine& line, const std::optional<InvoiceDue>& invoice,
                         const AccountExists& exists, LineAnswers answered = {});

// An amount as the line messages show it.
std::string LineAmountText(Money amount);

} // namespace corvane::receivables
