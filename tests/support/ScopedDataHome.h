#pragma once

#include <cstdlib>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace corvane::testing {

// Points the program's data and temporary folders into a folder of the test for its lifetime,
// so that the main form's settings stay out of the user's; the old values come back after.
class ScopedDataHome {
public:
    explicit ScopedDataHome(const std::string& root) {
        for (const char* name : {"XDG_DATA_HOME", "TMPDIR"}) {
            const char* old = std::getenv(name);
            saved_.emplace_back(name, old ? std::optional<std::string>(old) : std::nullopt);
            setenv(name, root.c_str(), 1);
        }
    }
    ~ScopedDataHome() {
        for (const auto& [name, value] : saved_)
            value ? setenv(name.c_str(), value->c_str(), 1) : unsetenv(name.c_str());
    }
    ScopedDataHome(const ScopedDataHome&) = delete;
    ScopedDataHome& operator=(const ScopedDataHome&) = delete;

private:
    std::vector<std::pair<std::string, std::optional<std::string>>> saved_;
};

} // namespace corvane::testing
