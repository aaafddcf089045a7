#include "ledger/PostingFixture.h"

#include "ledger/posting/LedgerCheck.h"
#include "ledger/posting/PostingRun.h"
#include "store/Query.h"
#include "support/ChildProcess.h"

#include <cstdlib>
#include <fstream>
#include <string>

namespace corvane::testing {
namespace {

// How many vouchers the posting job carries: CORVANE_STRESS_VOUCHERS, or a size CI runs quickly.
int StressVouchers(int ciDefault) {
    const char* text = std::getenv("CORVANE_STRESS_VOUCHERS");
    const int n = text ? std::atoi(text) : 0;
    return n > 0 ? n : ciDefault;
}

class PostingReadersTest : public PostingTest {
protected:
    // Unposted vouchers of three lines each, written in one statement so that a large company
    // is made in a moment.
    void WriteVouchers(int count, int first = 1) {
        db_.Conn().Exec("BEGIN");
        db_.Conn().Exec("WITH RECURSIVE n(i) AS (SELECT " + std::to_string(first) +
                        " UNION ALL SELECT i + 1 FROM n WHERE i < " +
                        std::to_string(first + count - 1) +
                        ") INSERT INTO JV (JVID, GLYear, GLPeriod, JVNumber, Source, TransType, "
                        "TransDate, TransDescription, JVAmount, Posted, AutoReverse) SELECT i, "
                        "2018, 1 + i % 12, i, 'GL', 'JV', '2018-01-15', 'Voucher ' || i, "
                        "(i + 1) * 10000, 0, i % 5 = 0 FROM n");
        const std::string ours = " FROM JV WHERE JVID >= " + std::to_string(first);
        db_.Conn().Exec("INSERT INTO JVDet (JVID, Seq, GLAccountID, GLAmount) SELECT JVID, 1, 1, "
                        "JVID * 10000" +
                        ours);
        db_.Conn().Exec("INSERT INTO JVDet (JVID, Seq, GLAccountID, GLAmount) SELECT JVID, 2, 2, "
                        "10000" +
                        ours);
        db_.Conn().Exec("INSERT INTO JVDet (JVID, Seq, GLAccountID, GLAmount) SELECT JVID, 3, 3, "
                        "-(JVID + 1) * 10000" +
                        ours);
        db_.Conn().Exec("COMMIT");
    }

    std::unique_ptr<tests::ChildProcess> StartPosting(const std::string& start) {
        auto job = std::make_unique<tests::ChildProcess>(
            CORVANE_POSTING_RUNNER, std::vector<std::string>{folder_.Path(), start});
        EXPECT_TRUE(job->WaitForLine("ready")) << job->Output();
        std::ofstream(start).put('\n');
        return job;
    }

    // Runs one pass of the reading side again and again until the posting job has ended;
    // returns its last line.
    template <typename Pass> std::string WhilePosting(tests::ChildProcess& job, Pass pass) {
        std::string last;
        for (bool ended = false; !ended;) {
            pass();
            if (auto status = job.Wait(std::chrono::milliseconds(0))) {
                ended = true;
                if (!status->exited || status->code != 0)
                    ADD_FAILURE() << "the job ended with " << status->code << " or signal "
                                  << status->signal;
            }
            while (auto line = job.ReadLine(std::chrono::milliseconds(5)))
                last = *line;
        }
        return last;
    }
};

// While another process posts a large run and commits it, this one opens the company again and
// again and reads it: every open and every read waits out the commit and then succeeds, and
// each read sees the run either not at all or whole.
TEST_F(PostingReadersTest, OpensAndReadsDuringAPostingRunAllSucceed) {
    const int vouchers = StressVouchers(3000);
    WriteVouchers(vouchers);
    const std::int64_t historyAfter = 3 * vouchers + 3 * (vouchers / 5);
    db_.Close();

    auto job = StartPosting(folder_.Path() + "/start");
    int reads = 0;
    std::vector<std::string> failures;
    const std::string result = WhilePosting(*job, [&] {
        try {
            store::Session session;
            store::Database db(session);
            db.SetDirectory(folder_.Path());
            db.Open();
            store::Query q(db, "SELECT count(*) AS N FROM GLHist");
            q.Open();
            const std::int64_t rows = q.FieldByName("N").AsInteger();
            if (rows != 0 && rows != historyAfter)
                failures.push_back("a read saw " + std::to_string(rows) + " history rows");
            store::Table jv(db, "JV");
            jv.Open();
            jv.First();
            ++reads;
        } catch (const std::exception& e) {
            failures.push_back(e.what());
        }
    });
    ASSERT_EQ(result, "posted " + std::to_string(vouchers)) << job->Output();
    EXPECT_EQ(failures, std::vector<std::string>{}) << "after " << reads << " reads";
    EXPECT_GT(reads, 1);

    db_.Open();
    EXPECT_EQ(CountRows("GLHist"), historyAfter);
}

// The ledger check reads the history and the totals while another process posts into both: it
// never reports a difference, because it reads them from one moment of the company.
TEST_F(PostingReadersTest, CheckBesidePostingNeverReportsAFalseDifference) {
    // A ledger that already holds history, so that the check's reading of it takes long enough
    // for the other job's commit to fall between its reads if it can; then several runs, each
    // committing once while the checks go on.
    constexpr int Runs = 5;
    const int vouchers = StressVouchers(3000);
    WriteVouchers(vouchers);
    ledger::PostingRun(db_).Run([](const std::string&) { return false; });
    db_.Close();

    int checks = 0;
    std::vector<std::string> differences;
    for (int run = 1; run <= Runs && differences.empty(); ++run) {
        db_.Open();
        WriteVouchers(vouchers / Runs, vouchers + 1 + run * (vouchers / Runs));
        db_.Close();
        auto job = StartPosting(folder_.Path() + "/start" + std::to_string(run));
        store::Session session;
        store::Database db(session);
        db.SetDirectory(folder_.Path());
        db.Open();
        const std::string result = WhilePosting(*job, [&] {
            for (const auto& line : ledger::CheckLedger(db))
                differences.push_back(line);
            ++checks;
        });
        ASSERT_EQ(result, "posted " + std::to_string(vouchers / Runs)) << job->Output();
    }
    EXPECT_EQ(differences, std::vector<std::string>{}) << "after " << checks << " checks";
}

} // namespace
} // namespace corvane::testing
