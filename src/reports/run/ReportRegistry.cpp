#include "reports/run/ReportRegistry.h"

#include "core/Exception.h"
#include "reports/run/TrptBase.h"
#include "store/Query.h"

#include <charconv>

namespace corvane::reports {

std::string ReportRequest::Option(std::string_view name) const {
    auto it = Options.find(name);
    return it == Options.end() ? std::string() : it->second;
}

std::optional<std::int64_t> ReportRequest::WholeOption(std::string_view name) const {
    const std::string text = Option(name);
    if (text.empty()) return std::nullopt;
    std::int64_t value = 0;
    auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error != std::errc() || end != text.data() + text.size())
        throw Exception("--" + std::string(name) + " takes a whole number, not '" + text + "'.");
    return value;
}

std::optional<Date> ReportRequest::DateOption(std::string_view name) const {
    const std::string text = Option(name);
    if (text.empty()) return std::nullopt;
    auto date = Date::FromIso(text);
    if (!date)
        throw Exception("--" + std::string(name) + " takes a date as yyyy-mm-dd, not '" + text +
                        "'.");
    return date;
}

std::optional<std::int64_t> ReportRequest::KeyOption(store::Database& db, std::string_view name,
                                                     const char* sql, const char* what) const {
    const std::string text = Option(name);
    if (text.empty()) return std::nullopt;
    store::Query q(db, sql);
    q.ParamByName("No").SetAsString(text);
    q.Open();
    if (q.IsEmpty()) throw Exception("There is no " + std::string(what) + " '" + text + "'.");
    return q.Fields()[0]->AsInteger();
}

void ReportRegistry::Register(std::string name, std::string description, ReportFactory factory) {
    reports_[std::move(name)] = Entry{std::move(description), std::move(factory)};
}

const ReportFactory* ReportRegistry::Find(std::string_view name) const {
    auto it = reports_.find(name);
    return it == reports_.end() ? nullptr : &it->second.Factory;
}

std::vector<std::pair<std::string, std::string>> ReportRegistry::Reports() const {
    std::vector<std::pair<std::string, std::string>> list;
    for (const auto& [name, entry] : reports_)
        list.emplace_back(name, entry.Description);
    return list;
}

} // namespace corvane::reports
