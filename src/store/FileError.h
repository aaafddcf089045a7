#pragma once

#include "store/EngineError.h"

#include <string>

namespace corvane::store {

// A failure of the company's files rather than of a statement: the disk full, an I/O error,
// damage. Besides its message it keeps what went wrong as a clause naming the company, "the
// disk is full (company '/data/acme')", for the commands that say what did not happen.
class FileError : public EngineError {
public:
    FileError(int code, const std::string& message, std::string reason)
        : EngineError(code, message), reason_(std::move(reason)) {}
    const std::string& Reason() const { return reason_; }

private:
    std::string reason_;
};

// "<Action> was not done: <reason>. Nothing was changed." for a failure of the company's files
// inside a command that rolls back whole; the message as it stands for any other failure.
std::string NotDoneMessage(const std::string& action, const EngineError& error);

// The message of a damaged company: what is damaged, and the way to repair it.
std::string CorruptMessage(const std::string& folder);

} // namespace corvane::store
