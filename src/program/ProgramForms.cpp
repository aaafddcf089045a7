#include "program/ProgramForms.h"

#include "ledger/LedgerForms.h"
#include "shell/main/ShellForms.h"

namespace corvane::program {

void RegisterProgramForms(shell::FormRegistry& registry) {
    shell::RegisterShellForms(registry);
    ledger::RegisterLedgerForms(registry);
}

} // namespace corvane::program
