#include "ReportFixture.h"
#include "ledger/reports/TrptJVs.h"
#include "store/Query.h"
#include "support/ChildProcess.h"

#include <fstream>

using namespace corvane;
using corvane::testing::ReportTest;

namespace {

// A report of several pages while another workstation rewrites every row it shows.
class ReportSnapshot : public ReportTest {
protected:
    static constexpr int Vouchers = 300;

    void SetUp() override {
        ReportTest::SetUp();
        db_.Conn().Exec(
            "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < " +
            std::to_string(Vouchers) +
            ") INSERT INTO JV (JVID, GLYear, GLPeriod, JVNumber, Source, TransType, "
            "TransDate, TransDescription, JVAmount, Posted, AutoReverse) SELECT i, "
            "2017, 3, i, 'GL', 'JV', '2017-03-15', 'Before ' || i, 10000, 0, 0 FROM n");
    }

    std::string Stored(const std::string& sql) {
        store::Query q(db_, sql);
        q.Open();
        return q.Fields().front()->AsString();
    }
};

// Page 1 is made, then the other process commits its change, then the rest is made: every page
// shows the company as it was at page 1, and the other commit goes through once the report is
// done (it waited for the report, it was not refused).
TEST_F(ReportSnapshot, ACommitBetweenPagesNeverShowsInTheRestOfTheReport) {
    const std::string start = folder_.Path() + "/start";
    tests::ChildProcess writer(
        CORVANE_SQL_WRITER,
        {folder_.Path(), start, "UPDATE JV SET TransDescription = 'After ' || JVID"});
    ASSERT_TRUE(writer.WaitForLine("ready")) << writer.Output();

    ledger::TrptJVs report(db_);
    report.QuickReport.PrintedAt = reports::ReportTimestamp{Date::FromYmd(2017, 6, 30), 9, 15, 0};
    reports::ReportDocument document;
    bool committedMeanwhile = false;
    document.OnPageAvailable = [&](int page) {
        if (page != 1) return;
        std::ofstream(start).put('\n');
        // Time enough for the other process to commit, were it let through.
        committedMeanwhile = writer.WaitForLine("committed", std::chrono::milliseconds(1500));
    };
    report.Produce(document);
    ASSERT_GE(document.PageCount(), 3);
    EXPECT_FALSE(committedMeanwhile) << "the other process committed while the report was read";

    const std::string text =
        reports::TextRenderer(reports::TextRenderer::PageBreak::PageMarker).Render(document);
    EXPECT_EQ(LinesWith(text, "Before "), Vouchers);
    EXPECT_EQ(LinesWith(text, "After "), 0);

    if (!committedMeanwhile) {
        EXPECT_TRUE(writer.WaitForLine("committed")) << writer.Output();
    }
    auto status = writer.Wait();
    ASSERT_TRUE(status && status->exited);
    EXPECT_EQ(status->code, 0);
    EXPECT_EQ(Stored("SELECT COUNT(*) FROM JV WHERE TransDescription LIKE 'After %'"),
              std::to_string(Vouchers));
}

} // namespace
