#include "reports/system/TrptUsers.h"
#include "EngineTestTables.h"
#include "PreviewFixture.h"
#include "core/FormatSettings.h"
#include "reports/page/ReportDocument.h"
#include "reports/preview/PrinterCheck.h"
#include "reports/preview/TfrmPreview.h"
#include "reports/render/TextRenderer.h"
#include "reports/system/SystemReports.h"
#include "shell/main/FormRegistry.h"
#include "shell/users/TfrmUsers.h"
#include "support/GoldenFile.h"
#include "ui/HeadlessApp.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <sstream>

namespace corvane::testing {
namespace {

using namespace corvane::reports;
namespace fs = std::filesystem;

class TrptUsersTest : public UiCompanyTest {
protected:
    void SetUp() override {
        UiCompanyTest::SetUp();
        saved_ = ProcessFormatSettings();
        ProcessFormatSettings() = FormatSettings{};
        InsertRow(
            "Company",
            {{"CompanyNo", 1}, {"CompanyName", "Harbour Lights Trading"}, {"FiscalYear", 2017}});
    }
    void TearDown() override {
        ProcessFormatSettings() = saved_;
        UiCompanyTest::TearDown();
    }
    void AddUser(const std::string& name, bool security, const std::string& password = "pw") {
        InsertRow("Users", {{"UserName", name}, {"Password", password}, {"Security", security}});
    }
    // Users "user01".. in name order, every third one with the right to security.
    void AddUsers(int count) {
        for (int i = 1; i <= count; ++i) {
            std::string name = std::to_string(i);
            AddUser("user" + std::string(name.size() < 2 ? "0" : "") + name, i % 3 == 0,
                    "Tr0ub4dor" + name);
        }
    }
    static std::string PagesOf(TrptUsers& report) {
        report.QuickReport.PrintedAt = ReportTimestamp{Date::FromYmd(2017, 4, 3), 14, 5, 9};
        report.Open();
        ReportDocument doc;
        report.QuickReport.Prepare(doc);
        return TextRenderer(TextRenderer::PageBreak::PageMarker).Render(doc);
    }
    static int PageCount(TrptUsers& report) {
        report.Open();
        ReportDocument doc;
        report.QuickReport.Prepare(doc);
        return doc.PageCount();
    }

    FormatSettings saved_;
};

// Two pages: the title once, the column titles on each page, the footer's page of pages, and
// never a password.
TEST_F(TrptUsersTest, PagesMatchTheStoredOnes) {
    AddUsers(80);
    TrptUsers report(db_);
    const std::string pages = PagesOf(report);
    ASSERT_NE(pages.find("---- page 2 ----"), std::string::npos) << pages;
    EXPECT_EQ(pages.find("Tr0ub4dor"), std::string::npos) << pages;
    CompareWithGolden("reports", "users.txt", pages);
}

TEST_F(TrptUsersTest, NoUsersMakeNoPageAndFilteredRowsStayOut) {
    {
        TrptUsers empty(db_);
        EXPECT_EQ(PageCount(empty), 0);
    }
    AddUsers(80);
    TrptUsers report(db_);
    report.tblUsers.SetFilter("Security = true");
    report.tblUsers.SetFiltered(true);
    const std::string pages = PagesOf(report);
    EXPECT_NE(pages.find("user03"), std::string::npos);
    EXPECT_EQ(pages.find("user01"), std::string::npos);
    // Twenty-six rows fit on one page.
    EXPECT_EQ(pages.find("---- page 2 ----"), std::string::npos);
}

// The Print of the users list, as the program registers it: the preview shows the rows the
// list shows, by the list's filter and its Filtered flag.
class UsersListPrinterTest : public TrptUsersTest {
protected:
    void SetUp() override {
        TrptUsersTest::SetUp();
        RegisterSystemListPrinters(registry_);
        ReportOutput::Install(&printer_);
        desktop.Printer = "Office laser";
        AddUser("alice", true);
        AddUser("bob", false);
        AddUser("carol", true);
    }
    void TearDown() override {
        ReportOutput::Install(nullptr);
        TrptUsersTest::TearDown();
    }
    // The text of the first page of the preview the list's printer opened.
    std::string PrintList(shell::TfrmUsers& list) {
        const shell::ListPrinter* print = registry_.FindListPrinter("frmUsers");
        if (!print) return "<no printer for frmUsers>";
        app.Run([&] { (*print)(list); });
        auto* preview = dynamic_cast<TfrmPreview*>(app.FindForm("frmPreview"));
        if (!preview) return "<no preview: " + dialogs.LastText() + ">";
        std::string text = preview->pageView.Text();
        app.Run([&] { preview->Close(); });
        return text;
    }

    shell::FormRegistry registry_;
    RecordingReportOutput printer_;
};

TEST_F(UsersListPrinterTest, TakesTheListsFilterWhileItIsOn) {
    auto& list = app.CreateForm<shell::TfrmUsers>(db_);
    list.tblUsers.SetFilter("Security <> true");
    list.tblUsers.SetFiltered(true);
    std::string text = PrintList(list);
    EXPECT_NE(text.find("bob"), std::string::npos) << text;
    EXPECT_EQ(text.find("alice"), std::string::npos) << text;
    EXPECT_EQ(text.find("carol"), std::string::npos) << text;

    // The filter text stays, switched off: every user prints.
    list.tblUsers.SetFiltered(false);
    text = PrintList(list);
    EXPECT_NE(text.find("alice"), std::string::npos) << text;
    EXPECT_NE(text.find("bob"), std::string::npos) << text;
    EXPECT_NE(text.find("carol"), std::string::npos) << text;
    // In the list's order.
    EXPECT_LT(text.find("alice"), text.find("bob"));
    EXPECT_LT(text.find("bob"), text.find("carol"));
}

TEST_F(UsersListPrinterTest, NoPrinterAndNoAnswerYesShowsNoPreview) {
    desktop.Printer.clear();
    auto& list = app.CreateForm<shell::TfrmUsers>(db_);
    dialogs.Answer(ui::mbNo);
    const std::string text = PrintList(list);
    EXPECT_EQ(text, "<no preview: " + std::string(kNoPrinterMessage) + ">");
}

} // namespace
} // namespace corvane::testing
