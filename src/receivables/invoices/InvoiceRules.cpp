#include "receivables/invoices/InvoiceRules.h"

#include "core/Rounding.h"
#include "receivables/invoices/InvoiceTexts.h"

#include <cmath>
#include <cstdio>

namespace corvane::receivables {

namespace {

// A percentage as the user typed it: no trailing zeros, no decimal point for a whole number.
std::string PercentText(double value) {
    char buffer[64];
    std::snprintf(buffer, sizeof buffer, "%.15g", value);
    return buffer;
}

} // namespace

std::string TermsDescription(const InvoiceTerms& t) {
    std::string text;
    if (!t.TermsText.empty())
        text = t.TermsText;
    else if (t.COD)
        text = "C.O.D.";
    else if (t.Prepayment)
        text = "Prepayment";
    else {
        if (t.DiscPC && *t.DiscPC > 0)
            text = PercentText(*t.DiscPC) + "% " +
                   (t.DiscDays ? std::to_string(*t.DiscDays) : std::string("0")) + "   ";
        text += "Net " + (t.NetDays ? std::to_string(*t.NetDays) : std::string("0"));
    }
    return text.substr(0, 60);
}

std::optional<Money> AdjustedPrice(std::optional<Money> price, std::optional<double> percent) {
    if (!price) return std::nullopt;
    if (!percent) return price;
    // RoundHalfAway((100 - discount) x price) / 100: a discount of 100% gives 0, not nothing.
    return price->PercentRounded(100.0 - *percent);
}

bool RateConvertsPrices(double rate) {
    return std::fabs(rate) > 0.000001 && std::fabs(rate - 1.0) > 0.000001;
}

Money PriceInCurrency(Money homePrice, double rate) {
    return Money::FromCents(
        static_cast<std::int64_t>(RoundHalfAway(homePrice.ToDouble() / rate * 100.0)));
}

std::string ConvertPriceQuestion(const std::string& description, double rate) {
    return "Convert '" + description +
           "' default unit price to customer currency?\n(Exchange rate is " + PercentText(rate) +
           ")";
}

std::string CheckPointOfSalePayment(const PointOfSalePayment& p, bool bankExists,
                                    std::optional<std::int64_t> bankCurrency,
                                    std::optional<std::int64_t> customerCurrency,
                                    bool checkWording) {
    using namespace invoice_text;
    if (p.Amount.IsZero()) return {};
    if (!p.PaidBy || *p.PaidBy == 0) return PaidByMissing;
    if (*p.PaidBy == 2 && p.Reference.empty())
        return checkWording ? ReferenceMissingCheck : ReferenceMissingCheque;
    if (!p.BankID) return BankMissing;
    if (!bankExists) return BankGone;
    if (bankCurrency != customerCurrency) return BankCurrency;
    return {};
}

} // namespace corvane::receivables
