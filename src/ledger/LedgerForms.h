#pragma once

namespace corvane::shell {
class FormRegistry;
}

namespace corvane::ledger {

// The ledger's forms, by component name; each part of the ledger registers its own.
void RegisterLedgerForms(shell::FormRegistry& registry);

void RegisterPeriodForms(shell::FormRegistry& registry);
void RegisterAccountForms(shell::FormRegistry& registry);
void RegisterVoucherForms(shell::FormRegistry& registry);
void RegisterPostingForms(shell::FormRegistry& registry);
void RegisterInquiryForms(shell::FormRegistry& registry);

} // namespace corvane::ledger
