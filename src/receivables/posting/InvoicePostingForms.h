#pragma once

namespace corvane::shell {
class FormRegistry;
}

namespace corvane::receivables {

void RegisterInvoicePostingForms(shell::FormRegistry& registry);

} // namespace corvane::receivables
