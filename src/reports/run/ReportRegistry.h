#pragma once

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace corvane::store {
class Database;
}

namespace corvane::reports {

class TrptBase;

// What a report is asked for from the command line: its name and options ("--year 2017").
struct ReportRequest {
    std::map<std::string, std::string, std::less<>> Options;
    // The option's value; empty when not given.
    std::string Option(std::string_view name) const;
};

using ReportFactory =
    std::function<std::unique_ptr<TrptBase>(store::Database& db, const ReportRequest& request)>;

// The reports the program can make without a list form in front of them, by name ("GLAccounts"):
// the command line prints any of them to PDF or text. Each layer registers its own.
class ReportRegistry {
public:
    // A second factory under the same name replaces the first.
    void Register(std::string name, std::string description, ReportFactory factory);
    const ReportFactory* Find(std::string_view name) const;
    // Name and description of each, by name.
    std::vector<std::pair<std::string, std::string>> Reports() const;

private:
    struct Entry {
        std::string Description;
        ReportFactory Factory;
    };
    std::map<std::string, Entry, std::less<>> reports_;
};

} // namespace corvane::reports
