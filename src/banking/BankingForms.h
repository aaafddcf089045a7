#pragma once

#include "shell/main/FormRegistry.h"

namespace corvane::reports {
class ReportRegistry;
}

namespace corvane::banking {

// Registers the banking forms (currencies, banks, the bank book) by component name.
void RegisterBankingForms(shell::FormRegistry& registry);
// The banking reports by name, for the command line.
void RegisterBankingReports(reports::ReportRegistry& registry);

} // namespace corvane::banking
