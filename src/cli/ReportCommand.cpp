#include "cli/ReportCommand.h"

#include "cli/CommandCompany.h"

#include "core/Exception.h"
#include "program/ProgramReports.h"
#include "reports/run/PreviewReport.h"
#include "reports/run/ReportRegistry.h"
#include "reports/run/TrptBase.h"
#include "store/CompanyFile.h"
#include "store/Database.h"
#include "store/EngineError.h"
#include "store/Session.h"

#include <algorithm>
#include <cstddef>
#include <filesystem>
#include <fstream>
#include <iomanip>
#include <map>
#include <memory>
#include <optional>
#include <stdexcept>
#include <utility>

#include <unistd.h>

namespace corvane::cli {

namespace {

const char* const kUsage = "usage: corvane-cli report COMPANY NAME [--OPTION VALUE]... "
                           "(--pdf FILE | --text FILE | --xlsx FILE)\n"
                           "       (FILE - is standard output)\n"
                           "       corvane-cli report --list\n";

struct ReportLine {
    std::string Folder;
    std::string Name;
    reports::ReportRequest Request;
    reports::ReportFileKind Kind = reports::ReportFileKind::Pdf;
    std::string File;
};

// The file name that stands for standard output.
constexpr const char* kStandardOutput = "-";

std::filesystem::path ScratchFile() {
    static int made = 0;
    return std::filesystem::temp_directory_path() /
           ("corvane-report-" + std::to_string(::getpid()) + "-" + std::to_string(++made));
}

bool IsOption(const std::string& word) {
    return word.size() > 2 && word.rfind("--", 0) == 0;
}

// Nothing when the line is malformed: no name, an option without its value or given twice, a
// word out of place, no output file or two.
std::optional<ReportLine> ParseLine(const std::vector<std::string>& args) {
    if (args.size() < 2 || IsOption(args[0]) || IsOption(args[1])) return std::nullopt;
    ReportLine line;
    line.Folder = args[0];
    line.Name = args[1];
    bool haveFile = false;
    for (std::size_t i = 2; i < args.size(); i += 2) {
        if (!IsOption(args[i]) || i + 1 >= args.size()) return std::nullopt;
        const std::string key = args[i].substr(2);
        const std::string& value = args[i + 1];
        if (key == "pdf" || key == "text" || key == "xlsx") {
            if (haveFile || value.empty()) return std::nullopt;
            haveFile = true;
            line.Kind = key == "pdf"    ? reports::ReportFileKind::Pdf
                        : key == "text" ? reports::ReportFileKind::Text
                                        : reports::ReportFileKind::Workbook;
            line.File = value;
            continue;
        }
        if (!line.Request.Options.emplace(key, value).second) return std::nullopt;
    }
    if (!haveFile) return std::nullopt;
    return line;
}

// The right a person needs at the menus to reach the list that prints the report, and its
// caption; a report of no list asks for Security.
std::pair<std::string, std::string> RightOfReport(const std::string& name) {
    static const std::map<std::string, std::pair<std::string, std::string>> rights{
        {"GLAccounts", {"GLAccounts", "GL Accounts"}},
        {"JVs", {"JVs", "JVs"}},
        {"JV", {"JVs", "JVs"}},
        {"GLBalances", {"GLBalances", "GL Totals"}},
        {"GLHistory", {"GLHistory", "GL History"}},
        {"Users", {"Security", "Security"}}};
    auto it = rights.find(name);
    return it != rights.end() ? it->second
                              : std::pair<std::string, std::string>{"Security", "Security"};
}

void ListReports(const reports::ReportRegistry& registry, std::ostream& out) {
    std::size_t width = 0;
    const auto list = registry.Reports();
    for (const auto& [name, description] : list)
        width = std::max(width, name.size());
    for (const auto& [name, description] : list)
        out << std::left << std::setw(static_cast<int>(width)) << name << "  " << description
            << "\n";
}

} // namespace

int ReportCommand(const std::vector<std::string>& args, const reports::ReportRegistry& registry,
                  std::ostream& out, std::ostream& err) {
    if (args.empty() || (args.size() == 1 && (args[0] == "--list" || !IsOption(args[0])))) {
        ListReports(registry, out);
        return 0;
    }
    const std::optional<ReportLine> line = ParseLine(args);
    if (!line) {
        err << kUsage;
        return 2;
    }
    const reports::ReportFactory* factory = registry.Find(line->Name);
    if (!factory) {
        err << "There is no report '" << line->Name << "'. The reports are:\n";
        ListReports(registry, err);
        return 1;
    }

    store::Session session;
    store::Database db(session);
    const auto [right, caption] = RightOfReport(line->Name);
    OpenForCommand(db, line->Folder, right, caption);
    // The whole report from one moment of the company, whatever commits meanwhile.
    store::ReadSnapshot snapshot(db);
    std::unique_ptr<reports::TrptBase> report;
    try {
        report = (*factory)(db, line->Request);
    } catch (const store::EngineError&) {
        throw;
    } catch (const std::invalid_argument& e) {
        err << e.what() << "\n" << kUsage;
        return 2;
    } catch (const Exception& e) {
        // The factory reads the options: what it refuses is a mistake of the command line.
        err << e.what() << "\n" << kUsage;
        return 2;
    }
    if (line->File != kStandardOutput) {
        const int pages = reports::ReportToFile(*report, line->Kind, line->File);
        err << pages << " page(s) written to " << line->File << "\n";
        return 0;
    }
    // The writers write files; standard output gets the finished file, so that a redirection
    // holds the report alone, from its first line.
    const std::filesystem::path scratch = ScratchFile();
    struct Remove {
        const std::filesystem::path& path;
        ~Remove() {
            std::error_code ignored;
            std::filesystem::remove(path, ignored);
        }
    } remove{scratch};
    const int pages = reports::ReportToFile(*report, line->Kind, scratch.string());
    std::ifstream in(scratch, std::ios::binary);
    out << in.rdbuf();
    out.flush();
    err << pages << " page(s) written to standard output\n";
    return 0;
}

int RunReport(const std::vector<std::string>& args, std::ostream& out, std::ostream& err) {
    reports::ReportRegistry registry;
    program::RegisterProgramReports(registry);
    return ReportCommand(args, registry, out, err);
}

} // namespace corvane::cli
