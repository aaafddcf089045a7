#include "shell/main/HelpTopics.h"

#include "core/AppFolders.h"
#include "ui/Application.h"

#include <array>
#include <utility>

namespace corvane::shell {

namespace {

constexpr std::array<std::pair<std::string_view, std::string_view>, 28> kTopics{{
    {"frmCorvane", "getting-started"},
    {"frmWelcome", "getting-started"},
    {"frmGettingStarted", "getting-started"},
    {"frmCompanyDatabase", "companies"},
    {"frmOrganizeCompanies", "companies"},
    {"frmSelectCompany", "companies"},
    {"frmGLAccounts", "accounts"},
    {"frmGLAccount", "accounts"},
    {"frmGLAccountsFilter", "accounts"},
    {"frmJVs", "journal-vouchers"},
    {"frmJV", "journal-vouchers"},
    {"frmJVsFilter", "journal-vouchers"},
    {"frmJVsFind", "journal-vouchers"},
    {"frmImportJVData", "journal-vouchers"},
    {"frmJVsPost", "posting"},
    {"frmGLBalances", "gl-totals"},
    {"frmGLBalancesFilter", "gl-totals"},
    {"frmGLHistory", "gl-history"},
    {"frmGLHistoryFilter", "gl-history"},
    {"frmGLReports", "reports"},
    {"frmPreview", "reports"},
    {"frmCurrencies", "currencies"},
    {"frmCurrency", "currencies"},
    {"frmCompany", "your-company"},
    {"frmUsers", "users"},
    {"frmUser", "users"},
    {"frmLogin", "users"},
    {"frmAbout", "index"},
}};

} // namespace

std::string HelpTopicOf(std::string_view formName) {
    for (const auto& [form, topic] : kTopics)
        if (form == formName) return std::string(topic);
    return "index";
}

std::optional<std::filesystem::path> GuideFolder() {
    const std::filesystem::path program = AppFolders::ProgramFile().parent_path();
    for (const auto& folder : {program / "guide", program.parent_path() / "guide",
                               program.parent_path().parent_path() / "guide",
                               program.parent_path() / "share" / "corvane" / "guide"}) {
        std::error_code ignored;
        if (std::filesystem::exists(folder / "index.html", ignored)) return folder;
    }
    return std::nullopt;
}

void ShowHelpTopic(ui::Application& app, const std::string& topic) {
    auto folder = GuideFolder();
    if (!folder) {
        app.ShowMessage("The user's guide is not installed with this copy of the program.");
        return;
    }
    app.Desktop().OpenUrl("file://" + (*folder / (topic + ".html")).string());
}

} // namespace corvane::shell
