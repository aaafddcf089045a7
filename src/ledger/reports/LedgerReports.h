#pragma once

namespace corvane::reports {
class ReportRegistry;
}

namespace corvane::ledger {

// The ledger's reports by name, for the command line.
void RegisterLedgerReports(reports::ReportRegistry& registry);

} // namespace corvane::ledger
