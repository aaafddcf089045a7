#include "ledger/reports/LedgerReports.h"

#include "reports/run/ReportRegistry.h"

namespace corvane::ledger {

void RegisterLedgerReports(reports::ReportRegistry&) {}

} // namespace corvane::ledger
