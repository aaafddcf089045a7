#include "reports/run/ReportRegistry.h"

#include "reports/run/TrptBase.h"

namespace corvane::reports {

std::string ReportRequest::Option(std::string_view name) const {
    auto it = Options.find(name);
    return it == Options.end() ? std::string() : it->second;
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
