#include "shell/companies/CompanyShortcuts.h"

#include "store/Database.h"

#include <algorithm>
#include <cctype>

namespace corvane::shell {

std::string UpperCase(std::string_view text) {
    std::string upper(text);
    std::transform(upper.begin(), upper.end(), upper.begin(),
                   [](unsigned char c) { return static_cast<char>(std::toupper(c)); });
    return upper;
}

bool IsSampleDataName(std::string_view name) {
    return UpperCase(name) == UpperCase(kSampleData);
}

bool HoldsCompanyDatabase(const std::string& folder) {
    if (folder.empty()) return false;
    std::error_code error;
    return std::filesystem::is_regular_file(
        std::filesystem::path(folder) / store::Database::MarkFileName, error);
}

std::string SampleDataFolder(const std::filesystem::path& commonDataFolder) {
    return (commonDataFolder / "Data").string();
}

std::string FirstFreeDataFolder(const std::filesystem::path& commonDataFolder) {
    for (int n = 1; n <= 999; ++n) {
        std::filesystem::path candidate = commonDataFolder / ("Data" + std::to_string(n));
        std::error_code error;
        if (!std::filesystem::exists(candidate, error)) return candidate.string();
    }
    return {};
}

} // namespace corvane::shell
