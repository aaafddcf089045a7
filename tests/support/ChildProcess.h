#pragma once

#include <chrono>
#include <csignal>
#include <optional>
#include <string>
#include <sys/types.h>
#include <vector>

namespace corvane::tests {

// Another program run by a test, typically a second process that holds a lock. It is started
// with posix_spawn rather than a bare fork, so that it shares none of the test's open file
// descriptions (and thus none of its locks). Its stdout comes back through a pipe, line by line;
// its stderr goes to the test's. A child still running when the object goes is killed.
class ChildProcess {
public:
    using Duration = std::chrono::milliseconds;

    struct ExitStatus {
        bool exited = false; // ended by exit(): code is set
        int code = 0;
        int signal = 0; // ended by this signal
    };

    // Throws std::runtime_error when the program cannot be started.
    ChildProcess(const std::string& program, const std::vector<std::string>& args);
    ~ChildProcess();
    ChildProcess(const ChildProcess&) = delete;
    ChildProcess& operator=(const ChildProcess&) = delete;

    pid_t Pid() const { return pid_; }

    // The next line of its stdout without the newline; nothing once it closed its stdout, or
    // when the timeout passed first.
    std::optional<std::string> ReadLine(Duration timeout = Duration(10000));
    // Reads lines until one equals line; false at the end of its output or on timeout.
    bool WaitForLine(const std::string& line, Duration timeout = Duration(10000));
    // Everything read from its stdout so far.
    const std::string& Output() const { return output_; }

    void Kill(int signal = SIGKILL);
    // Nothing when it is still running after the timeout.
    std::optional<ExitStatus> Wait(Duration timeout = Duration(10000));

private:
    pid_t pid_ = -1;
    int stdoutFd_ = -1;
    bool reaped_ = false;
    std::optional<ExitStatus> status_;
    std::string pending_;
    std::string output_;
};

} // namespace corvane::tests
