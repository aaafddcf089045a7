#include "support/ChildProcess.h"

#include <cerrno>
#include <csignal>
#include <cstring>
#include <fcntl.h>
#include <poll.h>
#include <spawn.h>
#include <stdexcept>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

extern char** environ;

namespace corvane::tests {

namespace {

std::runtime_error SystemError(const std::string& what, int error) {
    return std::runtime_error(what + ": " + std::strerror(error));
}

} // namespace

ChildProcess::ChildProcess(const std::string& program, const std::vector<std::string>& args) {
    int pipeFds[2];
    if (::pipe2(pipeFds, O_CLOEXEC) != 0) throw SystemError("pipe2", errno);

    std::vector<std::string> argvStrings;
    argvStrings.push_back(program);
    argvStrings.insert(argvStrings.end(), args.begin(), args.end());
    std::vector<char*> argv;
    for (std::string& arg : argvStrings)
        argv.push_back(arg.data());
    argv.push_back(nullptr);

    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    // dup2 clears close-on-exec on the copy, so the child keeps its stdout and nothing else.
    posix_spawn_file_actions_adddup2(&actions, pipeFds[1], STDOUT_FILENO);
    const int error =
        ::posix_spawn(&pid_, program.c_str(), &actions, nullptr, argv.data(), environ);
    posix_spawn_file_actions_destroy(&actions);
    ::close(pipeFds[1]);
    if (error != 0) {
        ::close(pipeFds[0]);
        throw SystemError("posix_spawn " + program, error);
    }
    stdoutFd_ = pipeFds[0];
}

ChildProcess::~ChildProcess() {
    if (!reaped_) {
        Kill(SIGKILL);
        Wait(Duration(10000));
    }
    if (stdoutFd_ >= 0) ::close(stdoutFd_);
}

std::optional<std::string> ChildProcess::ReadLine(Duration timeout) {
    const auto deadline = std::chrono::steady_clock::now() + timeout;
    for (;;) {
        const auto newline = pending_.find('\n');
        if (newline != std::string::npos) {
            std::string line = pending_.substr(0, newline);
            pending_.erase(0, newline + 1);
            return line;
        }
        if (stdoutFd_ < 0) return std::nullopt;
        const auto left =
            std::chrono::duration_cast<Duration>(deadline - std::chrono::steady_clock::now());
        if (left.count() <= 0) return std::nullopt;
        pollfd watch{stdoutFd_, POLLIN, 0};
        const int ready = ::poll(&watch, 1, static_cast<int>(left.count()));
        if (ready < 0 && errno == EINTR) continue;
        if (ready <= 0) return std::nullopt;
        char buffer[4096];
        const ssize_t got = ::read(stdoutFd_, buffer, sizeof buffer);
        if (got < 0 && errno == EINTR) continue;
        if (got <= 0) {
            ::close(stdoutFd_);
            stdoutFd_ = -1;
            if (pending_.empty()) return std::nullopt;
            pending_ += '\n'; // the last line had no newline of its own
            continue;
        }
        pending_.append(buffer, static_cast<std::size_t>(got));
        output_.append(buffer, static_cast<std::size_t>(got));
    }
}

bool ChildProcess::WaitForLine(const std::string& line, Duration timeout) {
    const auto deadline = std::chrono::steady_clock::now() + timeout;
    for (;;) {
        const auto left =
            std::chrono::duration_cast<Duration>(deadline - std::chrono::steady_clock::now());
        const std::optional<std::string> next = ReadLine(left.count() > 0 ? left : Duration(0));
        if (!next) return false;
        if (*next == line) return true;
    }
}

void ChildProcess::Kill(int signal) {
    if (!reaped_) ::kill(pid_, signal);
}

std::optional<ChildProcess::ExitStatus> ChildProcess::Wait(Duration timeout) {
    if (reaped_) return status_;
    const auto deadline = std::chrono::steady_clock::now() + timeout;
    for (;;) {
        int raw = 0;
        const pid_t done = ::waitpid(pid_, &raw, WNOHANG);
        if (done == pid_) {
            ExitStatus status;
            status.exited = WIFEXITED(raw);
            status.code = status.exited ? WEXITSTATUS(raw) : 0;
            status.signal = WIFSIGNALED(raw) ? WTERMSIG(raw) : 0;
            reaped_ = true;
            status_ = status;
            return status_;
        }
        if (done < 0 && errno != EINTR) throw SystemError("waitpid", errno);
        if (std::chrono::steady_clock::now() >= deadline) return std::nullopt;
        std::this_thread::sleep_for(std::chrono::milliseconds(2));
    }
}

} // namespace corvane::tests
