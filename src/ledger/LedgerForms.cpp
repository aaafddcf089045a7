#include "ledger/LedgerForms.h"

namespace corvane::ledger {

void RegisterLedgerForms(shell::FormRegistry& registry) {
    RegisterPeriodForms(registry);
    RegisterAccountForms(registry);
    RegisterVoucherForms(registry);
    RegisterPostingForms(registry);
    RegisterInquiryForms(registry);
}

} // namespace corvane::ledger
