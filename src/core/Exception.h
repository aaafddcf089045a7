#pragma once

#include <stdexcept>
#include <string>

namespace corvane {

// A failure that reaches the user: the message is a finished sentence, shown as it stands.
class Exception : public std::runtime_error {
public:
    explicit Exception(const std::string& message) : std::runtime_error(message) {}
};

// Ends the current handler without a message: a Before event that refuses silently,
// or a command the user cancelled.
class EAbort : public Exception {
public:
    EAbort() : Exception("Operation aborted") {}
};

[[noreturn]] inline void Abort() {
    throw EAbort();
}

} // namespace corvane
