#include "ledger/LedgerForms.h"

#include "shell/main/FormRegistry.h"

namespace corvane::ledger {

void RegisterVoucherForms(shell::FormRegistry&) {}

} // namespace corvane::ledger
