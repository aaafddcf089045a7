#pragma once

namespace corvane::shell {
class FormRegistry;

// The shell's own working forms, by component name.
void RegisterShellForms(FormRegistry& registry);

} // namespace corvane::shell
