#pragma once

namespace corvane::cli {
class FormRegistry;

// The forms of the shell layer, which cannot register themselves: the shell sits below the
// program and knows nothing of its registry.
void RegisterShellForms(FormRegistry& registry);

} // namespace corvane::cli
