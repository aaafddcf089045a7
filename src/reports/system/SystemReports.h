#pragma once

namespace corvane::shell {
class FormRegistry;
}

namespace corvane::reports {

class ReportRegistry;

// The reports of the program's own lists (users).
void RegisterSystemReports(ReportRegistry& registry);

// The Print command of the shell's lists: each list's report in the list's order and filter.
void RegisterSystemListPrinters(shell::FormRegistry& registry);

} // namespace corvane::reports
