#include "cli/LedgerCommandsCapture.h"
#include "support/CompanyFixture.h"
#include "support/LedgerCompany.h"

#include "core/Date.h"
#include "core/Money.h"
#include "store/sql/Connection.h"

namespace corvane::testing {
namespace {

class LedgerCommandsTest : public CompanyTest {
protected:
    const std::string& Folder() const { return folder_.Path(); }

    std::int64_t Count(const std::string& fixedSql) {
        store::Statement s(db_.Conn(), fixedSql);
        s.Step();
        return s.ColumnInt(0);
    }

    // Rent 5100 and Accruals 2100 with one subaccount, and one auto-reversing voucher in the
    // last period of 2017 between them.
    void WriteKnownVoucher() {
        InsertRow("GLAccnt", {{"GLAccountID", 1},
                              {"GLAccount", "5100"},
                              {"AccountName", "Rent"},
                              {"AccountType", 4}});
        InsertRow("GLAccnt", {{"GLAccountID", 2},
                              {"GLAccount", "2100"},
                              {"AccountName", "Accruals"},
                              {"AccountType", 2}});
        InsertRow("GLAcSub2",
                  {{"SubAccountID", 7}, {"SubAccount", "EAST"}, {"SubAccountName", "East"}});
        InsertRow("JV", {{"JVID", 1},
                         {"GLYear", 2017},
                         {"GLPeriod", 12},
                         {"JVNumber", 41},
                         {"Source", "GL"},
                         {"TransType", "JV"},
                         {"TransDate", Date::FromYmd(2017, 12, 29)},
                         {"TransDescription", "Rent; December"},
                         {"JVAmount", Money::FromUnits(12345678)},
                         {"Posted", false},
                         {"AutoReverse", true}});
        InsertRow("JVDet", {{"JVID", 1},
                            {"Seq", 1},
                            {"GLAccountID", 1},
                            {"GLAmount", Money::FromUnits(12345678)}});
        InsertRow("JVDet", {{"JVID", 1},
                            {"Seq", 2},
                            {"GLAccountID", 2},
                            {"SubAccount2ID", 7},
                            {"GLAmount", Money::FromUnits(-12345678)}});
    }
};

TEST_F(LedgerCommandsTest, PostCountsWhatItPostsAndLeavesNothingForASecondRun) {
    LedgerCompanyShape shape;
    shape.Vouchers = 37;
    WriteUnpostedLedger(db_, shape);
    const std::int64_t lines = Count("SELECT count(*) FROM JVDet");
    const std::int64_t reversing = Count("SELECT count(*) FROM JVDet d JOIN JV v ON v.JVID = "
                                         "d.JVID WHERE v.AutoReverse = 1");
    ASSERT_GT(reversing, 0) << "the seed must give at least one reversing voucher";

    const CommandResult first = RunCaptured({"post", Folder()});
    EXPECT_EQ(first.Exit, 0);
    EXPECT_EQ(first.Out, "0 invoice(s) posted\n0 payment(s) posted\n37 JV(s) posted\n");
    EXPECT_EQ(Count("SELECT count(*) FROM JV WHERE Posted = 1"), 37);
    EXPECT_EQ(Count("SELECT count(*) FROM GLHist"), lines + reversing);

    const CommandResult second = RunCaptured({"post", Folder()});
    EXPECT_EQ(second.Exit, 0);
    EXPECT_EQ(second.Out, "0 invoice(s) posted\n0 payment(s) posted\n0 JV(s) posted\n");
    EXPECT_EQ(Count("SELECT count(*) FROM GLHist"), lines + reversing);
}

TEST_F(LedgerCommandsTest, PostThatCannotLockTheVouchersSaysSoAndPostsNothing) {
    WriteKnownVoucher();
    {
        store::Table held(db_, "JV");
        held.Open();
        held.LockTable();
        const CommandResult refused = RunCaptured({"post", Folder()});
        EXPECT_EQ(refused.Exit, 1);
        EXPECT_EQ(refused.Out, "0 invoice(s) posted\n0 payment(s) posted\n");
        EXPECT_EQ(refused.Err, "Unable to lock JVs table... this table is being updated by "
                               "another job.\n");
        EXPECT_EQ(Count("SELECT count(*) FROM GLHist"), 0);
        EXPECT_EQ(Count("SELECT count(*) FROM JV WHERE Posted = 1"), 0);
    }
    const CommandResult freed = RunCaptured({"post", Folder()});
    EXPECT_EQ(freed.Exit, 0);
    EXPECT_EQ(freed.Out, "0 invoice(s) posted\n0 payment(s) posted\n1 JV(s) posted\n");
}

TEST_F(LedgerCommandsTest, CheckPassesAPostedLedgerAndNamesATamperedTotal) {
    WriteKnownVoucher();
    ASSERT_EQ(RunCaptured({"post", Folder()}).Exit, 0);
    const CommandResult sound = RunCaptured({"check", Folder()});
    EXPECT_EQ(sound.Exit, 0);
    EXPECT_EQ(sound.Out, "ledger ok\nreceivables ok\n");

    // One ten-thousandth added to the rent's December through a cursor, as any program could.
    {
        store::Table actual(db_, "GLActual");
        actual.Open();
        bool found = false;
        for (actual.First(); !actual.Eof(); actual.Next()) {
            if (actual.FieldByName("GLAccountID").AsInteger() != 1 ||
                actual.FieldByName("GLYear").AsInteger() != 2017)
                continue;
            actual.Edit();
            actual.FieldByName("Amount12")
                .SetAsMoney(actual.FieldByName("Amount12").AsMoney() + Money::FromUnits(1));
            actual.Post();
            found = true;
        }
        ASSERT_TRUE(found);
    }
    const CommandResult tampered = RunCaptured({"check", Folder()});
    EXPECT_EQ(tampered.Exit, 1);
    EXPECT_EQ(tampered.Out, "account 1 (-/-/-) 12/2017: totals 1234.5679, history 1234.5678, "
                            "difference 0.0001\n");
}

TEST_F(LedgerCommandsTest, ExportOfAKnownVoucherIsExact) {
    WriteKnownVoucher();
    ASSERT_EQ(RunCaptured({"post", Folder()}).Exit, 0);
    const CommandResult exported = RunCaptured({"export-ledger", Folder()});
    EXPECT_EQ(exported.Exit, 0);
    // The reversal lands in the next year's first period but keeps the voucher's own date; the
    // empty first level keeps its place in the account.
    EXPECT_EQ(exported.Out, "2017-12-29 (41) GL JV 12/2017 Rent, December\n"
                            "    5100 Rent  1234.5678\n"
                            "    2100- -EAST Accruals - East  -1234.5678\n"
                            "\n"
                            "2017-12-29 (41) GL JVR 1/2018 Rent, December\n"
                            "    5100 Rent  -1234.5678\n"
                            "    2100- -EAST Accruals - East  1234.5678\n");
}

TEST_F(LedgerCommandsTest, ExportOfAnEmptyLedgerIsEmptyAndCheckIsOk) {
    const CommandResult exported = RunCaptured({"export-ledger", Folder()});
    EXPECT_EQ(exported.Exit, 0);
    EXPECT_EQ(exported.Out, "");
    EXPECT_EQ(RunCaptured({"check", Folder()}).Out, "ledger ok\nreceivables ok\n");
}

TEST_F(LedgerCommandsTest, LedgerCommandsWantExactlyOneFolder) {
    EXPECT_EQ(RunCaptured({"post"}).Exit, 2);
    EXPECT_EQ(RunCaptured({"check", Folder(), "extra"}).Exit, 2);
    EXPECT_EQ(RunCaptured({"export-ledger"}).Exit, 2);
}

} // namespace
} // namespace corvane::testing
