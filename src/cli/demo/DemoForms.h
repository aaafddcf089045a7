#pragma once

namespace corvane::cli {
class FormRegistry;
}

namespace corvane::cli::demo {

// The demonstration forms: "frmDemoUsers", also under the menu entry "Security, Users (demo)".
void RegisterDemoForms(FormRegistry& registry);

} // namespace corvane::cli::demo
