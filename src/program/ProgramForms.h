#pragma once

namespace corvane::shell {
class FormRegistry;
}

namespace corvane::program {

// Every form the program has, from every layer: both programs call it at start.
void RegisterProgramForms(shell::FormRegistry& registry);

} // namespace corvane::program
