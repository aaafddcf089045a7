#include "program/ProgramReports.h"

#include "ledger/reports/LedgerReports.h"
#include "reports/system/SystemReports.h"

namespace corvane::program {

void RegisterProgramReports(reports::ReportRegistry& registry) {
    reports::RegisterSystemReports(registry);
    ledger::RegisterLedgerReports(registry);
}

} // namespace corvane::program
