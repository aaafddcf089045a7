#pragma once

#include "shell/main/FormRegistry.h"

namespace corvane::company {

// Registers the new company wizard by component name (the main form runs it when a company's
// Company table is empty) and the sample company's generator.
void RegisterCompanyForms(shell::FormRegistry& registry);

} // namespace corvane::company
