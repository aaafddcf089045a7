#pragma once

#include "shell/main/FormRegistry.h"

namespace corvane::banking {

// Registers the banking forms (currencies) by component name.
void RegisterBankingForms(shell::FormRegistry& registry);

} // namespace corvane::banking
