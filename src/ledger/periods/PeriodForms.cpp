#include "ledger/LedgerForms.h"

#include "shell/main/FormRegistry.h"

namespace corvane::ledger {

void RegisterPeriodForms(shell::FormRegistry&) {}

} // namespace corvane::ledger
