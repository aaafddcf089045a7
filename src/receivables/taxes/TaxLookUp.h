#pragma once

#include "receivables/taxes/DocumentTaxes.h"

#include <cstdint>
#include <optional>
#include <string_view>

namespace corvane::store {
class Database;
}

namespace corvane::receivables {

// The tax as it stands in the Tax table now: code, rate, description and account copied onto a
// document when the tax is set on it. No id, or an id no longer on file, gives an unset tax.
DocumentTax ReadTax(store::Database& db, std::optional<std::int64_t> taxId);

// A tax as a saved document holds it: its own copies of code and rate, with the description
// and account looked up from the Tax table (empty when the id is unset or gone).
DocumentTax TaxFromDocumentCopy(store::Database& db, std::optional<std::int64_t> taxId,
                                std::string_view code, double rate);

// Which of a customer's two taxes a document takes: each one unless the customer has an
// exemption number for it.
struct CustomerTaxIds {
    std::optional<std::int64_t> Tax1ID;
    std::optional<std::int64_t> Tax2ID;
};
CustomerTaxIds ApplicableTaxIds(std::optional<std::int64_t> tax1Id, std::string_view exemption1,
                                std::optional<std::int64_t> tax2Id, std::string_view exemption2);

// The taxes a document for this customer carries, read afresh from Customer and Tax. An
// unknown customer gives two unset taxes.
DocumentTaxSet TaxesForCustomer(store::Database& db, std::int64_t customerId);

} // namespace corvane::receivables
