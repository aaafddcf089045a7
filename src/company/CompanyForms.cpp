#include "company/CompanyForms.h"

namespace corvane::company {

void RegisterCompanyForms(shell::FormRegistry&) {}

} // namespace corvane::company
