#include "ReportFixture.h"
#include "ledger/inquiry/TfrmGLBalances.h"
#include "ledger/inquiry/TfrmGLHistory.h"
#include "reports/preview/RecordingReportOutput.h"
#include "reports/preview/ReportOutput.h"
#include "support/SheetXml.h"

#include <filesystem>
#include <fstream>
#include <set>
#include <sstream>

using namespace corvane;
using namespace corvane::testing;

namespace {

// The Export commands of the ledger's inquiry lists: the grid's columns, every row under the
// list's filter and order, to the workbook or text file the save dialog names.
class ListExport : public ReportTest {
protected:
    void SetUp() override {
        ReportTest::SetUp();
        reports::ReportOutput::Install(&output);
        AddVoucher(1, 2017, 3, {{Cash, M(100)}, {Sales, M(-100)}});
        AddVoucher(2, 2017, 4, {{Rent, M(1234)}, {Accruals, M(-1234)}});
        PostAll();
    }
    void TearDown() override {
        reports::ReportOutput::Install(nullptr);
        ReportTest::TearDown();
    }
    void Click(ui::Form& form, const char* name) { ui::FormDriver(form).Click(name); }

    reports::RecordingReportOutput output;
    TempFolder folder;
};

TEST_F(ListExport, HistoryWritesItsGridColumnsWithAmountsAndDatesInTheirKinds) {
    auto& list = app.CreateForm<ledger::TfrmGLHistory>(db_);
    list.Show();
    list.ApplyFilter("GLPeriod = 4", false, 0);
    list.ShowList();
    list.grdList.DataSet().Last();
    const std::string before = list.tblGLHist.FieldByName("GLHistID").AsString();
    const std::string path = folder.Path() + "/history.xlsx";
    output.AnswerSaveFile(path);
    Click(list, "mnuExport");
    EXPECT_EQ(output.Calls().back(), "SaveFileName Export|GLHistory.xlsx|Excel files "
                                     "(*.xlsx)|*.xlsx|Text files (*.txt)|*.txt");

    const auto cells = SheetCells(path);
    const char* headings[] = {"Period",      "Date",        "JV no.", "Source",
                              "Description", "Account no.", "Name",   "Amount"};
    for (int i = 0; i < 8; ++i)
        EXPECT_EQ(cells.at(std::string(1, static_cast<char>('A' + i)) + "1").value, headings[i]);
    // Only the filtered voucher's two lines.
    EXPECT_EQ(cells.count("A3"), 1u);
    EXPECT_EQ(cells.count("A4"), 0u);
    EXPECT_EQ(cells.at("A2").value, "04/2017");
    EXPECT_TRUE(cells.at("B2").number);
    EXPECT_EQ(cells.at("B2").value, "42840"); // 15 April 2017
    EXPECT_TRUE(cells.at("C2").number);
    EXPECT_EQ(cells.at("C2").value, "1002");
    std::set<std::string> amounts{cells.at("H2").value, cells.at("H3").value};
    EXPECT_EQ(amounts, (std::set<std::string>{"1234", "-1234"}));
    EXPECT_TRUE(cells.at("H2").number);
    EXPECT_FALSE(cells.at("H2").format.empty());
    // The list stays on the row it was on.
    EXPECT_EQ(list.tblGLHist.FieldByName("GLHistID").AsString(), before);

    // Cancelled, nothing is written.
    output.AnswerSaveFile(std::nullopt);
    Click(list, "mnuExport");
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder.Path()), {}), 1);
}

TEST_F(ListExport, TotalsGoToTabSeparatedTextAsTheListShowsThem) {
    auto& list = app.CreateForm<ledger::TfrmGLBalances>(db_);
    list.Show();
    const std::string path = folder.Path() + "/totals.txt";
    output.AnswerSaveFile(path);
    Click(list, "mnuExport");
    std::ifstream in(path, std::ios::binary);
    std::stringstream text;
    text << in.rdbuf();
    std::vector<std::string> lines;
    for (std::string line; std::getline(text, line);)
        lines.push_back(line);
    ASSERT_GE(lines.size(), 2u);
    EXPECT_EQ(lines[0].rfind("Account no.\tName\tYear\tOpening Balance\t", 0), 0u) << lines[0];
    // Rent, with its 1,234.00 from period 4 on, in a line of its own.
    bool rent = false;
    for (const std::string& line : lines)
        if (line.rfind("5100\tRent\t2017\t", 0) == 0) {
            rent = true;
            EXPECT_NE(line.find("1,234.00"), std::string::npos) << line;
        }
    EXPECT_TRUE(rent) << text.str();
}

} // namespace
