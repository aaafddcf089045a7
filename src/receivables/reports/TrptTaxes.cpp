#include "receivables/reports/TrptTaxes.h"

namespace corvane::receivables {

TrptTaxes::TrptTaxes(store::Database& db)
    : MasterListReport(db, "Tax", "Taxes", "TaxName1",
                       {{"TaxName", "Name", 150},
                        {"TaxCode", "Code", 40},
                        {"Rate", "Rate %", 60, "0.00##"},
                        {"TaxDescription", "Description", 130},
                        {"TaxGLAccountID", "GL Account", 70}}) {}

} // namespace corvane::receivables
