#include "program/ProgramForms.h"

#include "shell/main/ShellForms.h"

namespace corvane::program {

void RegisterProgramForms(shell::FormRegistry& registry) {
    shell::RegisterShellForms(registry);
}

} // namespace corvane::program
