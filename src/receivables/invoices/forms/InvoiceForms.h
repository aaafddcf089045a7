#pragma once

namespace corvane::shell {
class FormRegistry;
}

namespace corvane::receivables {

// The invoice list, the invoice and its point-of-sale payment pop-up, by component name.
void RegisterInvoiceForms(shell::FormRegistry& registry);

} // namespace corvane::receivables
