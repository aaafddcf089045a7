#pragma once

#include "ui/DesktopServices.h"

#include <future>
#include <optional>
#include <string>

namespace corvane::ui {
class Application;
}

namespace corvane::shell {

// After a company opens, its file is read through for damage on a thread of its own, with a
// connection of its own, so that the user can work meanwhile. When the check finds damage, the
// user is told with the corrupt-table message and the way to repair; a sound company says
// nothing. A new check replaces one still running, whose result no longer matters.
class BackgroundIntegrity {
public:
    explicit BackgroundIntegrity(ui::Application& app) : app_(app) {}
    ~BackgroundIntegrity();
    BackgroundIntegrity(const BackgroundIntegrity&) = delete;
    BackgroundIntegrity& operator=(const BackgroundIntegrity&) = delete;

    void Start(const std::string& folder);
    // Forgets a check still running (the company closed); its thread ends on its own.
    void Stop();
    // Waits for the check and shows its finding now; for tests and for the end of the program.
    void Finish();

private:
    void Poll();

    ui::Application& app_;
    std::future<std::string> finding_;
    std::optional<ui::TimerId> timer_;
};

} // namespace corvane::shell
