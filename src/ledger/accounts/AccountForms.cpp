#include "ledger/LedgerForms.h"

#include "shell/main/FormRegistry.h"

namespace corvane::ledger {

void RegisterAccountForms(shell::FormRegistry&) {}

} // namespace corvane::ledger
