#pragma once

#include "core/Date.h"

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <optional>
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
    // The option read as a whole number, or as a date written yyyy-mm-dd; nothing when it was
    // not given. Other text raises a message naming the option.
    std::optional<std::int64_t> WholeOption(std::string_view name) const;
    std::optional<Date> DateOption(std::string_view name) const;
    // A master named by the text a person knows it by (its number, its name) to its key: sql
    // reads the key with the text as :No. A text no row has raises "There is no <what> '<text>'.".
    std::optional<std::int64_t> KeyOption(store::Database& db, std::string_view name,
                                          const char* sql, const char* what) const;
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
