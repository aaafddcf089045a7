#include "receivables/payments/domain/PaymentLines.h"

#include "core/DisplayFormat.h"
#include "receivables/payments/domain/PaymentTexts.h"

namespace corvane::receivables {

namespace text = payment_text;

std::optional<Money> InvoiceDue::DiscountAmount() const {
    if (DiscPC == 0) return std::nullopt;
    return InvoiceAmount.PercentRounded(DiscPC);
}

std::optional<Date> InvoiceDue::DiscountDate() const {
    if (DiscPC == 0) return std::nullopt;
    return InvoiceDate.AddDays(DiscDays);
}

void AllocationLine::ClearWriteOff() {
    WriteOffAmount.reset();
    WriteOffGLAccountID.reset();
    WriteOffSubAccountIDs = {};
}

void PayNoDiscount(AllocationLine& line, const InvoiceDue& invoice) {
    line.PaymentAmount = invoice.Owing;
    line.DiscTakenAmount.reset();
    line.ClearWriteOff();
}

void PayTakeDiscount(AllocationLine& line, const InvoiceDue& invoice) {
    const std::optional<Money> discount = invoice.DiscountAmount();
    line.PaymentAmount = invoice.Owing - discount.value_or(Money());
    line.DiscTakenAmount = discount;
    line.ClearWriteOff();
}

void PayDiscountIfEligible(AllocationLine& line, const InvoiceDue& invoice, Date paymentDate) {
    const std::optional<Date> last = invoice.DiscountDate();
    if (last && !(*last < paymentDate))
        PayTakeDiscount(line, invoice);
    else
        PayNoDiscount(line, invoice);
}

void WriteOffAll(AllocationLine& line, const InvoiceDue& invoice) {
    line.PaymentAmount.reset();
    line.DiscTakenAmount.reset();
    line.WriteOffAmount = invoice.Owing;
}

std::string LineAmountText(Money amount) {
    return FormatMoney("#,###,##0.00#", amount);
}

LineVerdict ValidateLine(const AllocationLine& line, const std::optional<InvoiceDue>& invoice,
                         const AccountExists& exists, LineAnswers answered) {
    using Kind = LineVerdict::Kind;
    if (!line.ARInvoiceID) return {Kind::Refused, text::LineInvoiceMissing, 0, {}};
    if (!line.WriteOff().IsZero() && !line.WriteOffGLAccountID)
        return {Kind::Refused, text::LineWriteOffAccountMissing, 6, {}};
    if (line.WriteOffGLAccountID && !exists(0, *line.WriteOffGLAccountID))
        return {Kind::Refused, text::LineAccountNotFound, 6, {}};
    for (int level = 1; level <= 3; ++level) {
        const auto& sub = line.WriteOffSubAccountIDs[static_cast<std::size_t>(level - 1)];
        if (sub && !exists(level, *sub))
            return {Kind::Refused,
                    "Subaccount " + std::to_string(level) +
                        " not found...\nMake changes or press Esc to undo",
                    6 + level,
                    {}};
    }
    // A line whose invoice has gone owes nothing the checks could compare with.
    const Money owing = invoice ? invoice->Owing : Money();
    const Money paid = line.Paid(), discount = line.Discount(), writeOff = line.WriteOff();
    if (!discount.IsZero()) {
        if (paid == owing) {
            const Money should = owing - discount - writeOff;
            const std::string message =
                writeOff.IsZero()
                    ? "Payment amount must equal amount owing less discount taken (and any "
                      "write-off):\n" +
                          LineAmountText(should) + " if discount is " + LineAmountText(discount) +
                          "\n(Discount can only be taken if invoice is fully paid).\n\nMake "
                          "changes or press Esc to undo"
                    : "Payment amount must equal amount owing less discount taken and any "
                      "write-off:\n" +
                          LineAmountText(should) + " if discount is " + LineAmountText(discount) +
                          " and write-off is " + LineAmountText(writeOff) +
                          "\n(Discount can only be taken if invoice is fully paid).\n\nMake "
                          "changes or press Esc to undo";
            return {Kind::Refused, message, 3, {}};
        }
        if (!(owing - paid - discount - writeOff).IsZero())
            return {Kind::Refused, text::DiscountNeedsFullPayment, 4, {}};
    }
    if (line.WriteOffGLAccountID && !line.WriteOffAmount && !answered.KeepRemainder) {
        const Money rest = owing - paid - discount;
        if (!rest.IsZero())
            return {Kind::Question,
                    "Do you want to write off the remaining " + LineAmountText(rest) + "?", 5,
                    rest};
    }
    if (!writeOff.IsZero() && !(owing - paid - discount - writeOff).IsZero() &&
        !answered.WriteOffDiffers)
        return {Kind::Warning, text::WriteOffDiffers, 5, {}};
    return {};
}

} // namespace corvane::receivables
