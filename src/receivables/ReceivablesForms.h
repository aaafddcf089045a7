#pragma once

namespace corvane::shell {
class FormRegistry;
}
namespace corvane::reports {
class ReportRegistry;
}

namespace corvane::receivables {

// The receivables forms by component name, with the reports their lists print.
void RegisterReceivablesForms(shell::FormRegistry& registry);
// The receivables reports by name, for the command line.
void RegisterReceivablesReports(reports::ReportRegistry& registry);

} // namespace corvane::receivables
