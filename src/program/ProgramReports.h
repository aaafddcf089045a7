#pragma once

namespace corvane::reports {
class ReportRegistry;
}

namespace corvane::program {

// Every report the command line can make, from every layer.
void RegisterProgramReports(reports::ReportRegistry& registry);

} // namespace corvane::program
