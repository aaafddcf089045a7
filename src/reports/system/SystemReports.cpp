#include "reports/system/SystemReports.h"

#include "reports/run/ReportRegistry.h"

namespace corvane::reports {

void RegisterSystemReports(ReportRegistry&) {}

} // namespace corvane::reports
