#include "program/ProgramReports.h"

#include "ledger/reports/LedgerReports.h"
#include "receivables/ReceivablesForms.h"
#include "reports/system/SystemReports.h"

namespace corvane::program {

void RegisterProgramReports(reports::ReportRegistry& registry) {
    reports::RegisterSystemReports(registry);
    ledger::RegisterLedgerReports(registry);
    receivables::RegisterReceivablesReports(registry);
}

} // namespace corvane::program
