#include "receivables/taxes/TaxRecord.h"

#include "banking/domain/RecordChecks.h"
#include "banking/domain/RowUse.h"
#include "store/DataSet.h"

#include <array>

namespace corvane::receivables {

using banking::RequiredField;

namespace {

constexpr std::array kTaxUses{
    banking::RowUse{"Customer", "Tax1ID", "Customer(s) exist for this tax"},
    banking::RowUse{"Customer", "Tax2ID", "Customer(s) exist for this tax"},
    banking::RowUse{"ARInv", "Tax1ID", "Invoice(s) exist for this tax"},
    banking::RowUse{"ARInv", "Tax2ID", "Invoice(s) exist for this tax"},
};

} // namespace

Verdict CheckTax(store::Database& db, store::DataSet& tax) {
    if (Verdict missing =
            banking::FirstMissing(tax, {{"TaxName", "Tax Name"},
                                        {"TaxCode", "Code"},
                                        {"TaxDescription", "Description"},
                                        {"Rate", "Rate", RequiredField::Number},
                                        {"TaxGLAccountID", "GL Account", RequiredField::Id}}))
        return missing;
    // Another user may have deleted the account since it was chosen.
    if (!banking::RowExists(db, "GLAccnt", "GLAccountID",
                            tax.FieldByName("TaxGLAccountID").AsInteger()))
        return Refusal{"TaxGLAccountID", "GL Account no longer exists"};
    return std::nullopt;
}

std::string TaxInUse(store::Database& db, std::int64_t taxId) {
    return banking::FirstUse(db, kTaxUses, taxId);
}

std::string TaxDeleteRefusal(std::string_view name, std::string_view reason) {
    return "Unable to delete tax '" + std::string(name) + "'...\n" + std::string(reason);
}

} // namespace corvane::receivables
