#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace corvane::shell {

// The company list is the section Companies of Corvane.ini: key = the name the user gave the
// company, value = its folder (or, on a database server, its database name).
inline constexpr std::string_view kCompaniesSection = "Companies";
// The entry of the sample company, made at every start when it is missing.
inline constexpr std::string_view kSampleData = "Sample Data";

std::string UpperCase(std::string_view text);
// The sample company's entry, however its letters were typed into the settings file.
bool IsSampleDataName(std::string_view name);
// A folder holds a company when its mark file is there; nothing else is looked at.
bool HoldsCompanyDatabase(const std::string& folder);
// Where the sample company lives: "<common>/Data".
std::string SampleDataFolder(const std::filesystem::path& commonDataFolder);
// The first of "<common>/Data1" to "<common>/Data999" that does not exist; empty when all do.
std::string FirstFreeDataFolder(const std::filesystem::path& commonDataFolder);

} // namespace corvane::shell
