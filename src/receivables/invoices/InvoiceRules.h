#pragma once

#include "core/Money.h"

#include <cstdint>
#include <optional>
#include <string>

namespace corvane::receivables {

// The terms an invoice copies from its customer.
struct InvoiceTerms {
    std::optional<double> DiscPC;
    std::optional<int> DiscDays, NetDays;
    bool COD = false, Prepayment = false;
    std::string TermsText;
};

// The terms as one text of at most 60 characters: the customer's own words when given, else
// "C.O.D.", "Prepayment", or the discount ("2% 10   ") and the net days ("Net 30").
std::string TermsDescription(const InvoiceTerms& terms);

// A line's adjusted price: the price less its discount, to the cent; nothing without a price,
// the price itself without a discount.
std::optional<Money> AdjustedPrice(std::optional<Money> priceBeforeDiscount,
                                   std::optional<double> percentDiscount);

// Whether an item's price in home currency is to be offered converted: a rate within a millionth
// of 0 or of 1 marks the home currency and asks nothing.
bool RateConvertsPrices(double rate);
// An item's home price in the invoice's currency, to the cent.
Money PriceInCurrency(Money homePrice, double rate);
std::string ConvertPriceQuestion(const std::string& itemDescription, double rate);

// The point-of-sale payment as the pop-up takes it.
struct PointOfSalePayment {
    Money Amount;
    std::optional<int> PaidBy;
    std::string Reference;
    std::optional<std::int64_t> BankID;
};

// The pop-up's checks on OK, in order; an empty text accepts. bankExists and bankCurrency
// describe the chosen bank; checkWording tells the country that says "check".
std::string CheckPointOfSalePayment(const PointOfSalePayment& payment, bool bankExists,
                                    std::optional<std::int64_t> bankCurrency,
                                    std::optional<std::int64_t> customerCurrency,
                                    bool checkWording);

} // namespace corvane::receivables
