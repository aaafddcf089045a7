#pragma once

#include <stdexcept>
#include <string>

namespace corvane::ui {

// A mistake of whoever drives the forms (a test or a scenario script): a component name that is not
// there, a click on a disabled button, a question nobody scripted an answer for. It is not a
// failure of the program, so the message loop lets it through instead of showing it to the user.
class ScriptError : public std::logic_error {
public:
    explicit ScriptError(const std::string& message) : std::logic_error(message) {}
};

} // namespace corvane::ui
