#pragma once

namespace corvane::shell {
class FormRegistry;
}
namespace corvane::reports {
class ReportRegistry;
}

namespace corvane::inventory {

// The inventory forms by component name, with the reports their lists print.
void RegisterInventoryForms(shell::FormRegistry& registry);
// The inventory reports by name, for the command line.
void RegisterInventoryReports(reports::ReportRegistry& registry);

} // namespace corvane::inventory
