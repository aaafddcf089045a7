#include "program/ProgramForms.h"

#include "banking/BankingForms.h"
#include "company/CompanyForms.h"
#include "inventory/InventoryForms.h"
#include "ledger/LedgerForms.h"
#include "receivables/invoices/forms/InvoiceForms.h"
#include "receivables/posting/InvoicePostingForms.h"
#include "receivables/ReceivablesForms.h"
#include "reports/system/SystemReports.h"
#include "shell/main/ShellForms.h"
#include "timebilling/TimeBillingForms.h"

namespace corvane::program {

void RegisterProgramForms(shell::FormRegistry& registry) {
    shell::RegisterShellForms(registry);
    reports::RegisterSystemListPrinters(registry);
    ledger::RegisterLedgerForms(registry);
    banking::RegisterBankingForms(registry);
    receivables::RegisterInvoiceForms(registry);
    receivables::RegisterInvoicePostingForms(registry);
    receivables::RegisterReceivablesForms(registry);
    inventory::RegisterInventoryForms(registry);
    company::RegisterCompanyForms(registry);
    timebilling::RegisterTimeBillingForms(registry);
}

} // namespace corvane::program
