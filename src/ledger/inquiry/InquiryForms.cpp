#include "ledger/LedgerForms.h"
#include "shell/main/FormRegistry.h"

namespace corvane::ledger {

void RegisterInquiryForms(shell::FormRegistry&) {}

} // namespace corvane::ledger
