#include "receivables/taxes/TaxLookUp.h"

#include "core/Text.h"
#include "store/Query.h"

namespace corvane::receivables {

namespace {

std::optional<std::int64_t> OptionalId(const store::Field& field) {
    if (field.IsNull() || field.AsInteger() == 0) return std::nullopt;
    return field.AsInteger();
}

} // namespace

DocumentTax ReadTax(store::Database& db, std::optional<std::int64_t> taxId) {
    DocumentTax tax;
    if (!taxId) return tax;
    store::Query query(db, "SELECT TaxCode, Rate, TaxDescription, TaxGLAccountID FROM Tax "
                           "WHERE TaxID = :ID");
    query.ParamByName("ID").SetAsInteger(*taxId);
    query.Open();
    if (query.IsEmpty()) return tax;
    tax.TaxID = taxId;
    tax.Code = query.FieldByName("TaxCode").AsString();
    tax.Rate = query.FieldByName("Rate").AsFloat();
    tax.Description = query.FieldByName("TaxDescription").AsString();
    tax.GLAccountID = query.FieldByName("TaxGLAccountID").AsInteger();
    return tax;
}

DocumentTax TaxFromDocumentCopy(store::Database& db, std::optional<std::int64_t> taxId,
                                std::string_view code, double rate) {
    DocumentTax tax = ReadTax(db, taxId);
    tax.TaxID = taxId;
    tax.Code = std::string(code);
    tax.Rate = rate;
    return tax;
}

CustomerTaxIds ApplicableTaxIds(std::optional<std::int64_t> tax1Id, std::string_view exemption1,
                                std::optional<std::int64_t> tax2Id, std::string_view exemption2) {
    CustomerTaxIds ids;
    if (TrimBlanks(exemption1).empty()) ids.Tax1ID = tax1Id;
    if (TrimBlanks(exemption2).empty()) ids.Tax2ID = tax2Id;
    return ids;
}

DocumentTaxSet TaxesForCustomer(store::Database& db, std::int64_t customerId) {
    store::Query query(db, "SELECT Tax1ID, Tax2ID, Tax1ExemptionNo, Tax2ExemptionNo "
                           "FROM Customer WHERE CustomerID = :ID");
    query.ParamByName("ID").SetAsInteger(customerId);
    query.Open();
    if (query.IsEmpty()) return {};
    const CustomerTaxIds ids = ApplicableTaxIds(
        OptionalId(query.FieldByName("Tax1ID")), query.FieldByName("Tax1ExemptionNo").AsString(),
        OptionalId(query.FieldByName("Tax2ID")), query.FieldByName("Tax2ExemptionNo").AsString());
    return {ReadTax(db, ids.Tax1ID), ReadTax(db, ids.Tax2ID)};
}

} // namespace corvane::receivables
