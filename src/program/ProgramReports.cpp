#include "program/ProgramReports.h"

#include "banking/BankingForms.h"
#include "inventory/InventoryForms.h"
#include "ledger/reports/LedgerReports.h"
#include "receivables/ReceivablesForms.h"
#include "reports/system/SystemReports.h"
#include "timebilling/reports/TimeReports.h"

namespace corvane::program {

void RegisterProgramReports(reports::ReportRegistry& registry) {
    reports::RegisterSystemReports(registry);
    ledger::RegisterLedgerReports(registry);
    banking::RegisterBankingReports(registry);
    receivables::RegisterReceivablesReports(registry);
    inventory::RegisterInventoryReports(registry);
    timebilling::RegisterTimeReports(registry);
}

} // namespace corvane::program
