#pragma once

namespace corvane::reports {

class ReportRegistry;

// The reports of the program's own lists (users).
void RegisterSystemReports(ReportRegistry& registry);

} // namespace corvane::reports
