#pragma once

#include "store/LockManager.h"

#include <string>

namespace corvane::store {

// One per process ("mySession"): the settings every database of the process shares.
class Session {
public:
    explicit Session(std::string name = "mySession") : name_(std::move(name)) {}

    const std::string& SessionName() const { return name_; }
    std::string PrivateDir;
    // Record and table locks are tried this often, this far apart, before they fail.
    int LockRetryCount = 15;
    int LockWaitTime = 100; // ms
    // How long a write waits while another process commits a transaction.
    int BusyTimeoutMs = 10000;

    LockPolicy Policy() const { return LockPolicy{LockRetryCount, LockWaitTime}; }

private:
    std::string name_;
};

} // namespace corvane::store
