#pragma once

namespace corvane::shell {
class FormRegistry;
}

namespace corvane::timebilling {

// Time billing's forms, by component name.
void RegisterTimeBillingForms(shell::FormRegistry& registry);

} // namespace corvane::timebilling
