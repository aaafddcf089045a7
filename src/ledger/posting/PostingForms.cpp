#include "ledger/LedgerForms.h"

#include "shell/main/FormRegistry.h"

namespace corvane::ledger {

void RegisterPostingForms(shell::FormRegistry&) {}

} // namespace corvane::ledger
