#pragma once

namespace corvane::shell {
class FormRegistry;
}

namespace corvane::cli::demo {

// The demonstration forms: "frmDemoUsers".
void RegisterDemoForms(shell::FormRegistry& registry);

} // namespace corvane::cli::demo
