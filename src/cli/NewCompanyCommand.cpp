#include "cli/NewCompanyCommand.h"

#include "company/sample/SampleCompany.h"
#include "company/wizard/StarterChecks.h"
#include "company/wizard/StarterCompany.h"
#include "core/Date.h"
#include "store/Database.h"
#include "store/Session.h"
#include "store/tables/CompanyDatabase.h"

#include <cmath>
#include <cstdlib>
#include <exception>
#include <filesystem>
#include <optional>
#include <set>

namespace corvane::cli {

namespace fs = std::filesystem;

namespace {

const char* const kUsage =
    "usage: corvane-cli new-company FOLDER [--shared] [--name NAME] [--year YEAR]\n"
    "                               [--currency CURRENCY] [--bank BANK] [--tax NAME:RATE]\n"
    "       corvane-cli new-company FOLDER [--shared] --sample [--size VOUCHERS]\n";

struct NewCompanyLine {
    std::string Folder;
    company::StarterAnswers Answers;
    // The rate as typed, checked as the tax page checks it.
    std::string RateText;
    // The sample company instead of the wizard's answers, of this many vouchers when given.
    bool Sample = false;
    std::optional<int> SampleVouchers;
    // Readable and writable by the user's group as well as the user.
    bool Shared = false;
};

int YearOf(const std::string& text) {
    char* end = nullptr;
    const long year = std::strtol(text.c_str(), &end, 10);
    // Not a whole year: the range check refuses it with the page's own message.
    if (text.empty() || *end != '\0' || year < 0 || year > 9999) return 0;
    return static_cast<int>(year);
}

std::optional<NewCompanyLine> ParseLine(const std::vector<std::string>& args) {
    NewCompanyLine line;
    line.Answers.CompanyName = "New Company";
    line.Answers.FiscalYear = Date::Today().Year();
    for (std::size_t i = 0; i < args.size(); ++i) {
        const std::string& word = args[i];
        if (word.rfind("--", 0) != 0) {
            if (!line.Folder.empty()) return std::nullopt;
            line.Folder = word;
            continue;
        }
        if (word == "--sample") {
            line.Sample = true;
            continue;
        }
        if (word == "--shared") {
            line.Shared = true;
            continue;
        }
        if (i + 1 >= args.size()) return std::nullopt;
        const std::string& value = args[++i];
        if (word == "--name") {
            line.Answers.CompanyName = value;
        } else if (word == "--year") {
            line.Answers.FiscalYear = YearOf(value);
        } else if (word == "--currency") {
            line.Answers.CurrencyName = value;
        } else if (word == "--bank") {
            line.Answers.BankName = value;
        } else if (word == "--size") {
            char* end = nullptr;
            const long vouchers = std::strtol(value.c_str(), &end, 10);
            if (value.empty() || *end != '\0' || vouchers < 1 || vouchers > 10000000)
                return std::nullopt;
            line.SampleVouchers = static_cast<int>(vouchers);
        } else if (word == "--tax") {
            // The rate follows the last colon, so a tax name may hold one.
            const auto colon = value.rfind(':');
            line.Answers.TaxName = value.substr(0, colon);
            line.RateText = colon == std::string::npos ? std::string() : value.substr(colon + 1);
        } else {
            return std::nullopt;
        }
    }
    if (line.Folder.empty()) return std::nullopt;
    if (line.SampleVouchers && !line.Sample) return std::nullopt;
    return line;
}

// The page's refusal of a rate that is no number; else sets the answer.
std::optional<std::string> ReadRate(NewCompanyLine& line) {
    if (line.RateText.empty()) return std::nullopt;
    char* end = nullptr;
    const double rate = std::strtod(line.RateText.c_str(), &end);
    if (*end != '\0' || !std::isfinite(rate))
        return "'" + line.RateText + "' is not a valid floating point value for field 'Rate'";
    line.Answers.TaxRate = rate;
    return std::nullopt;
}

bool HoldsDatabase(const fs::path& folder) {
    std::error_code ec;
    for (const fs::directory_entry& entry : fs::directory_iterator(folder, ec))
        if (entry.path().filename() == store::Database::MarkFileName) return true;
    return false;
}

std::set<fs::path> EntriesOf(const fs::path& folder) {
    std::set<fs::path> entries;
    std::error_code ec;
    for (const fs::directory_entry& entry : fs::directory_iterator(folder, ec))
        entries.insert(entry.path());
    return entries;
}

// Takes back what a failed run made: the folder when it made it, else what appeared in it.
void RemoveMade(const fs::path& folder, bool folderExisted, const std::set<fs::path>& before) {
    std::error_code ec;
    if (!folderExisted) {
        fs::remove_all(folder, ec);
        return;
    }
    for (const fs::path& entry : EntriesOf(folder))
        if (!before.count(entry)) fs::remove_all(entry, ec);
}

void MakeCompany(const NewCompanyLine& line, std::ostream& out) {
    store::tables::CreateCompanyDatabase(line.Folder, line.Shared);
    store::Session session;
    store::Database db(session);
    db.SetDirectory(line.Folder);
    db.Open();
    if (!line.Sample) {
        company::CreateStarterCompany(db, line.Answers);
        return;
    }
    company::SampleShape shape;
    if (line.SampleVouchers) shape.Vouchers = *line.SampleVouchers;
    const company::SampleSummary made = company::GenerateSampleCompany(db, shape);
    out << made.Vouchers << " vouchers (" << made.Unposted << " unposted), " << made.HistoryRows
        << " history rows\n";
}

} // namespace

int NewCompany(const std::vector<std::string>& args, std::ostream& out, std::ostream& err) {
    std::optional<NewCompanyLine> line = ParseLine(args);
    if (!line) {
        err << kUsage;
        return 2;
    }
    std::optional<company::StarterRefusal> refusal;
    if (!line->Sample) refusal = company::CheckCompanyPage(line->Answers);
    if (!refusal && !line->Sample) refusal = company::CheckCurrencyPage(line->Answers);
    if (!refusal && !line->Sample) {
        if (auto badRate = ReadRate(*line)) {
            err << *badRate << "\n";
            return 1;
        }
        refusal = company::CheckTaxPage(line->Answers);
    }
    if (refusal) {
        err << refusal->Message << "\n";
        return 1;
    }

    const fs::path folder(line->Folder);
    const bool folderExisted = fs::exists(folder);
    if (folderExisted && HoldsDatabase(folder)) {
        err << "The folder '" << line->Folder << "' already contains a database.\n";
        return 1;
    }
    const std::set<fs::path> before = EntriesOf(folder);
    try {
        MakeCompany(*line, out);
    } catch (const std::exception& e) {
        RemoveMade(folder, folderExisted, before);
        err << e.what() << "\n";
        return 1;
    }
    out << "Company '" << (line->Sample ? company::kSampleCompanyName : line->Answers.CompanyName)
        << "' made in " << line->Folder << "\n";
    return 0;
}

} // namespace corvane::cli
