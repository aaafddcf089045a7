#include "store/LockManager.h"
#include "store/EngineError.h"
#include "support/ChildProcess.h"

#include <gtest/gtest.h>

#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <memory>
#include <string>
#include <thread>
#include <vector>

namespace corvane::store {
namespace {

using namespace std::chrono_literals;
using corvane::tests::ChildProcess;
using Clock = std::chrono::steady_clock;

constexpr LockPolicy ShortPolicy{3, 10};
constexpr LockPolicy SingleTry{1, 0};

// The error code a call fails with, 0 when it succeeds.
template <typename Call> int CodeOf(Call call) {
    try {
        call();
    } catch (const EngineError& e) {
        return e.ErrorCode();
    }
    return 0;
}

template <typename Call> std::string MessageOf(Call call) {
    try {
        call();
    } catch (const EngineError& e) {
        return e.what();
    }
    return {};
}

// Two LockManagers on one file are two open file descriptions: towards each other they behave
// as two processes would, which lets most rules between processes be tested in one.
class LockManagerTest : public ::testing::Test {
protected:
    void SetUp() override {
        std::string pattern = (std::filesystem::temp_directory_path() / "corvane-locks-XXXXXX");
        ASSERT_NE(mkdtemp(pattern.data()), nullptr);
        dir_ = pattern;
        lockFile_ = dir_ + "/corvane.LCK";
    }
    void TearDown() override { std::filesystem::remove_all(dir_); }

    std::unique_ptr<LockManager> Manager(LockPolicy policy = ShortPolicy) {
        return std::make_unique<LockManager>(lockFile_, policy);
    }

    std::string dir_;
    std::string lockFile_;
    const int cursorA_ = 0, cursorB_ = 0, cursorC_ = 0;
    const void* const a_ = &cursorA_;
    const void* const b_ = &cursorB_;
    const void* const c_ = &cursorC_;
};

TEST_F(LockManagerTest, ExclusiveOpenRefusedWhileAnyOtherCursorHasTheTableOpen) {
    auto locks = Manager();
    locks->AcquireOpen(3, "JVCtl", a_, false);
    EXPECT_EQ(CodeOf([&] { locks->AcquireOpen(3, "JVCtl", b_, true); }), errTableInUse);
    EXPECT_NE(MessageOf([&] { locks->AcquireOpen(3, "JVCtl", b_, true); }).find("'JVCtl'"),
              std::string::npos);
    locks->AcquireOpen(4, "ARInvCtl", b_, true); // another table is another matter

    locks->ReleaseOpen(3, a_);
    locks->AcquireOpen(3, "JVCtl", b_, true);
    EXPECT_EQ(CodeOf([&] { locks->AcquireOpen(3, "JVCtl", c_, false); }), errTableInUse);
    EXPECT_EQ(CodeOf([&] { locks->AcquireOpen(3, "JVCtl", c_, true); }), errTableInUse);
    locks->ReleaseOpen(3, b_);
    locks->AcquireOpen(3, "JVCtl", c_, false);
}

TEST_F(LockManagerTest, SharedOpenLastsUntilTheProcessLastCursorCloses) {
    auto mine = Manager();
    auto other = Manager();
    mine->AcquireOpen(1, "JVCtl", a_, false);
    mine->AcquireOpen(1, "JVCtl", b_, false);
    mine->ReleaseOpen(1, a_);
    EXPECT_EQ(CodeOf([&] { other->AcquireOpen(1, "JVCtl", c_, true); }), errTableInUse);
    mine->ReleaseOpen(1, b_);
    other->AcquireOpen(1, "JVCtl", c_, true);
    EXPECT_EQ(CodeOf([&] { mine->AcquireOpen(1, "JVCtl", a_, false); }), errTableInUse);
}

TEST_F(LockManagerTest, SoleCursorChangesBetweenSharedAndExclusive) {
    auto mine = Manager();
    auto other = Manager();
    mine->AcquireOpen(1, "Item", a_, false);
    mine->AcquireOpen(1, "Item", a_, true);
    EXPECT_EQ(CodeOf([&] { other->AcquireOpen(1, "Item", c_, false); }), errTableInUse);
    mine->AcquireOpen(1, "Item", a_, false);
    other->AcquireOpen(1, "Item", c_, false);
    EXPECT_EQ(CodeOf([&] { mine->AcquireOpen(1, "Item", a_, true); }), errTableInUse);
}

TEST_F(LockManagerTest, RecordLockRefusedToAnyOtherCursor) {
    auto mine = Manager();
    auto other = Manager();
    mine->LockRecord(1, 42, a_);
    mine->LockRecord(1, 42, a_); // again by its holder: still one lock
    EXPECT_EQ(CodeOf([&] { mine->LockRecord(1, 42, b_); }), errRecordLocked);
    EXPECT_EQ(MessageOf([&] { other->LockRecord(1, 42, c_); }), "Record locked by another user");
    mine->LockRecord(1, 43, b_);
    mine->LockRecord(2, 42, b_);

    mine->UnlockRecord(1, 42, b_); // not b's lock: nothing changes
    EXPECT_EQ(CodeOf([&] { other->LockRecord(1, 42, c_); }), errRecordLocked);
    mine->UnlockRecord(1, 42, a_);
    other->LockRecord(1, 42, c_);

    // Row ids outside the record span still lock their row.
    mine->LockRecord(1, -5, a_);
    EXPECT_EQ(CodeOf([&] { other->LockRecord(1, -5, c_); }), errRecordLocked);
}

TEST_F(LockManagerTest, ClosingACursorReleasesOnlyItsOwnLocks) {
    auto mine = Manager();
    auto other = Manager();
    mine->LockRecord(1, 1, a_);
    mine->LockRecord(2, 2, a_);
    mine->LockRecord(1, 3, b_);
    mine->UnlockAllRecords(a_);
    other->LockRecord(1, 1, c_);
    other->LockRecord(2, 2, c_);
    EXPECT_EQ(CodeOf([&] { other->LockRecord(1, 3, c_); }), errRecordLocked);

    mine->AcquireOpen(5, "ARInv", a_, false);
    mine->LockTable(5, "ARInv", a_);
    mine->LockRecord(5, 9, a_);
    mine->ReleaseOpen(5, a_);
    EXPECT_FALSE(mine->HoldsTableLock(5));
    other->LockTable(5, "ARInv", c_);
}

TEST_F(LockManagerTest, TableLockBindsOtherProcessesOnly) {
    auto mine = Manager();
    auto other = Manager();
    mine->LockTable(1, "GLActual", a_);
    EXPECT_TRUE(mine->HoldsTableLock(1));
    mine->LockRecord(1, 9, b_);
    { auto write = mine->GuardWrite(1, "GLActual"); }
    mine->LockTable(1, "GLActual", b_);

    EXPECT_EQ(MessageOf([&] { other->GuardWrite(1, "GLActual"); }),
              "Table 'GLActual' is locked by another user");
    EXPECT_EQ(CodeOf([&] { other->GuardWrite(1, "GLActual"); }), errTableLocked);
    EXPECT_EQ(CodeOf([&] { other->LockRecord(1, 10, c_); }), errRecordLocked);
    EXPECT_EQ(MessageOf([&] { other->LockTable(1, "GLActual", c_); }),
              "Unable to lock table 'GLActual'");
    EXPECT_FALSE(other->HoldsTableLock(1));
    { auto write = other->GuardWrite(2, "JV"); }

    mine->UnlockTable(1, a_); // b still holds it
    EXPECT_EQ(CodeOf([&] { other->GuardWrite(1, "GLActual"); }), errTableLocked);
    mine->UnlockTable(1, b_);
    EXPECT_FALSE(mine->HoldsTableLock(1));
    { auto write = other->GuardWrite(1, "GLActual"); }
}

TEST_F(LockManagerTest, TableLockWaitsForOthersWritesAndRecordLocks) {
    auto mine = Manager();
    auto other = Manager();
    {
        auto write = other->GuardWrite(1, "JV");
        EXPECT_EQ(CodeOf([&] { mine->LockTable(1, "JV", a_); }), errTableLocked);
    }
    other->LockRecord(1, 4, c_);
    EXPECT_EQ(CodeOf([&] { mine->LockTable(1, "JV", a_); }), errTableLocked);
    other->UnlockRecord(1, 4, c_);
    mine->LockTable(1, "JV", a_);
}

// The process keeps one OS lock per byte: the next cases guard against one of its locks
// punching a hole into another.
TEST_F(LockManagerTest, UnlockingTheTableKeepsTheProcessRecordLocks) {
    auto mine = Manager();
    auto other = Manager();
    mine->LockRecord(1, 9, b_);
    mine->LockTable(1, "APInv", a_);
    mine->LockRecord(1, 10, b_);
    mine->UnlockTable(1, a_);
    EXPECT_EQ(CodeOf([&] { other->LockRecord(1, 9, c_); }), errRecordLocked);
    EXPECT_EQ(CodeOf([&] { other->LockRecord(1, 10, c_); }), errRecordLocked);
    other->LockRecord(1, 11, c_);
    { auto write = other->GuardWrite(1, "APInv"); }
}

TEST_F(LockManagerTest, RecordLocksAndWritesUnderTheTableLockLeaveItWhole) {
    auto mine = Manager();
    auto other = Manager();
    auto before = std::make_unique<LockManager::WriteGuard>(mine->GuardWrite(1, "VBalance"));
    mine->LockTable(1, "VBalance", a_);
    before.reset();
    { auto write = mine->GuardWrite(1, "VBalance"); }
    mine->LockRecord(1, 9, b_);
    mine->UnlockRecord(1, 9, b_);
    mine->LockRecord(1, 10, b_);
    mine->UnlockAllRecords(b_);
    EXPECT_EQ(CodeOf([&] { other->GuardWrite(1, "VBalance"); }), errTableLocked);
    EXPECT_EQ(CodeOf([&] { other->LockRecord(1, 9, c_); }), errRecordLocked);
    EXPECT_EQ(CodeOf([&] { other->LockRecord(1, 10, c_); }), errRecordLocked);
}

TEST_F(LockManagerTest, UnlockingTheTableDuringAWriteKeepsTheWriteGuarded) {
    auto mine = Manager();
    auto other = Manager();
    auto write = std::make_unique<LockManager::WriteGuard>(mine->GuardWrite(1, "IBalance"));
    mine->LockTable(1, "IBalance", a_);
    mine->UnlockTable(1, a_);
    EXPECT_EQ(CodeOf([&] { other->LockTable(1, "IBalance", c_); }), errTableLocked);
    { auto otherWrite = other->GuardWrite(1, "IBalance"); }
    write.reset();
    other->LockTable(1, "IBalance", c_);
}

TEST_F(LockManagerTest, DestroyingTheManagerReleasesEverything) {
    auto mine = Manager();
    {
        auto other = Manager();
        other->AcquireOpen(1, "JVCtl", c_, true);
        other->LockTable(2, "JV", c_);
        other->LockRecord(3, 1, c_);
    }
    mine->AcquireOpen(1, "JVCtl", a_, true);
    mine->LockTable(2, "JV", a_);
    mine->LockRecord(3, 1, a_);
}

TEST_F(LockManagerTest, RetriesWaitBetweenTries) {
    auto mine = Manager(LockPolicy{4, 40});
    auto other = Manager();
    other->LockRecord(1, 1, c_);
    const auto start = Clock::now();
    EXPECT_EQ(CodeOf([&] { mine->LockRecord(1, 1, a_); }), errRecordLocked);
    EXPECT_GE(Clock::now() - start, 120ms); // three waits between four tries

    std::thread release([&] {
        std::this_thread::sleep_for(60ms);
        other->UnlockRecord(1, 1, c_);
    });
    mine->SetPolicy(LockPolicy{100, 10});
    EXPECT_EQ(CodeOf([&] { mine->LockRecord(1, 1, a_); }), 0);
    release.join();
}

// The same rules with a real second process, which also shows that its locks die with it.
class LockManagerAcrossProcessesTest : public LockManagerTest {
protected:
    std::unique_ptr<ChildProcess> StartHolder(std::vector<std::string> args) {
        std::vector<std::string> all;
        if (holdMs_ > 0) all = {"--hold-ms", std::to_string(holdMs_)};
        all.push_back(lockFile_);
        all.insert(all.end(), args.begin(), args.end());
        return std::make_unique<ChildProcess>(CORVANE_LOCK_HOLDER, all);
    }

    // The holder's refusal: its exit code 2 and the engine code it printed.
    std::string RefusalOf(std::vector<std::string> args) {
        auto holder = StartHolder(std::move(args));
        holder->ReadLine();
        const auto status = holder->Wait();
        if (!status || !status->exited || status->code != 2)
            return "not refused: " + holder->Output();
        return holder->Output();
    }

    static void KillHolder(ChildProcess& holder) {
        holder.Kill(SIGKILL);
        const auto status = holder.Wait();
        ASSERT_TRUE(status.has_value());
        EXPECT_EQ(status->signal, SIGKILL);
    }

    int holdMs_ = 0;
};

TEST_F(LockManagerAcrossProcessesTest, RecordLockHoldsUntilItsProcessDies) {
    auto holder = StartHolder({"record", "1", "42"});
    ASSERT_TRUE(holder->WaitForLine("ready")) << holder->Output();
    auto mine = Manager();
    EXPECT_EQ(CodeOf([&] { mine->LockRecord(1, 42, a_); }), errRecordLocked);
    mine->LockRecord(1, 43, a_);
    { auto write = mine->GuardWrite(1, "Customer"); }
    EXPECT_EQ(CodeOf([&] { mine->LockTable(1, "Customer", b_); }), errTableLocked);

    KillHolder(*holder);
    mine->SetPolicy(SingleTry);
    mine->LockRecord(1, 42, a_);
    mine->LockTable(1, "Customer", b_);
}

TEST_F(LockManagerAcrossProcessesTest, TableLockStopsWritesAndRecordLocksUntilItsProcessDies) {
    auto holder = StartHolder({"table", "1"});
    ASSERT_TRUE(holder->WaitForLine("ready")) << holder->Output();
    auto mine = Manager();
    EXPECT_EQ(CodeOf([&] { mine->GuardWrite(1, "JV"); }), errTableLocked);
    EXPECT_EQ(CodeOf([&] { mine->LockRecord(1, 7, a_); }), errRecordLocked);
    EXPECT_EQ(CodeOf([&] { mine->LockTable(1, "JV", a_); }), errTableLocked);
    { auto write = mine->GuardWrite(2, "JVDet"); }

    KillHolder(*holder);
    mine->SetPolicy(SingleTry);
    { auto write = mine->GuardWrite(1, "JV"); }
    mine->LockRecord(1, 7, a_);
    mine->LockTable(1, "JV", a_);
}

TEST_F(LockManagerAcrossProcessesTest, ExclusiveOpenAndSharedOpenExcludeEachOther) {
    auto mine = Manager();
    {
        auto holder = StartHolder({"exclusive", "1"});
        ASSERT_TRUE(holder->WaitForLine("ready")) << holder->Output();
        EXPECT_EQ(CodeOf([&] { mine->AcquireOpen(1, "JVCtl", a_, false); }), errTableInUse);
        EXPECT_EQ(CodeOf([&] { mine->AcquireOpen(1, "JVCtl", a_, true); }), errTableInUse);
        KillHolder(*holder);
        mine->AcquireOpen(1, "JVCtl", a_, true);
        mine->ReleaseOpen(1, a_);
    }
    auto holder = StartHolder({"open", "1"});
    ASSERT_TRUE(holder->WaitForLine("ready")) << holder->Output();
    EXPECT_EQ(CodeOf([&] { mine->AcquireOpen(1, "JVCtl", a_, true); }), errTableInUse);
    mine->AcquireOpen(1, "JVCtl", b_, false);
    KillHolder(*holder);
    mine->ReleaseOpen(1, b_);
    mine->AcquireOpen(1, "JVCtl", a_, true);
}

TEST_F(LockManagerAcrossProcessesTest, OtherProcessIsRefusedWhatThisOneHolds) {
    auto mine = Manager();
    mine->LockRecord(1, 7, a_);
    EXPECT_NE(RefusalOf({"record", "1", "7"}).find("error 10258"), std::string::npos);
    EXPECT_NE(RefusalOf({"table", "1"}).find("error 10259: Unable to lock table"),
              std::string::npos);
    mine->UnlockRecord(1, 7, a_);
    {
        auto write = mine->GuardWrite(1, "ARPmt");
        EXPECT_NE(RefusalOf({"table", "1"}).find("error 10259"), std::string::npos);
    }
    mine->LockTable(1, "ARPmt", a_);
    EXPECT_NE(RefusalOf({"write", "1"}).find("error 10259"), std::string::npos);
    EXPECT_NE(RefusalOf({"write", "1"}).find("is locked by another user"), std::string::npos);
    mine->AcquireOpen(2, "ARPmtCtl", a_, true);
    EXPECT_NE(RefusalOf({"open", "2"}).find("error 11013"), std::string::npos);
}

TEST_F(LockManagerAcrossProcessesTest, RetriesObtainALockFreedMeanwhile) {
    holdMs_ = 300;
    auto mine = Manager(ShortPolicy);
    {
        auto holder = StartHolder({"record", "1", "42"});
        ASSERT_TRUE(holder->WaitForLine("ready")) << holder->Output();
        const auto start = Clock::now();
        EXPECT_EQ(CodeOf([&] { mine->LockRecord(1, 42, a_); }), errRecordLocked);
        EXPECT_GE(Clock::now() - start, 20ms);
        mine->SetPolicy(LockPolicy{200, 10});
        mine->LockRecord(1, 42, a_);
        const auto status = holder->Wait();
        ASSERT_TRUE(status.has_value());
        EXPECT_TRUE(status->exited);
        EXPECT_EQ(status->code, 0);
    }
    auto holder = StartHolder({"table", "2"});
    ASSERT_TRUE(holder->WaitForLine("ready")) << holder->Output();
    EXPECT_EQ(CodeOf([&] { mine->GuardWrite(2, "JV"); }), 0);
}

TEST_F(LockManagerAcrossProcessesTest, ChildProcessesDoNotInheritTheLocks) {
    auto mine = Manager();
    mine->LockTable(1, "JV", a_);
    auto holder = StartHolder({"open", "2"}); // lives on after mine is gone
    ASSERT_TRUE(holder->WaitForLine("ready")) << holder->Output();
    mine.reset();
    auto again = Manager(SingleTry);
    again->LockTable(1, "JV", a_);
}

} // namespace
} // namespace corvane::store
