#pragma once

namespace corvane::shell {
class FormRegistry;
}

namespace corvane::receivables {

// The payment list, the payment, its invoice chooser and the payments' posting, by component
// name.
void RegisterPaymentForms(shell::FormRegistry& registry);

} // namespace corvane::receivables
