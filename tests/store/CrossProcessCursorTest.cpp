#include "store/TableHold.h"
#include "support/ChildProcess.h"
#include "support/CompanyFixture.h"

using namespace corvane;
using namespace corvane::store;
using corvane::testing::CompanyTest;
using corvane::tests::ChildProcess;

namespace {

// Another copy of the program on the same company folder holds something through its cursors;
// this one is refused until that process dies, and then gets it at once.
class CrossProcess : public CompanyTest {
protected:
    void SetUp() override {
        CompanyTest::SetUp();
        InsertRow(
            "Vendor",
            {{"VendorID", 1}, {"VendorNo", "100"}, {"VendorName", "Acme"}, {"CurrencyID", 1}});
    }

    std::unique_ptr<ChildProcess> Hold(const std::string& command, const std::string& table) {
        auto child = std::make_unique<ChildProcess>(
            CORVANE_CURSOR_HOLDER, std::vector<std::string>{folder_.Path(), command, table});
        EXPECT_TRUE(child->WaitForLine("ready")) << child->Output();
        return child;
    }

    static int CodeOf(const std::function<void()>& f) {
        try {
            f();
        } catch (const EngineError& e) {
            return e.ErrorCode();
        }
        return 0;
    }
};

TEST_F(CrossProcess, ARecordInEditBlocksAnotherProcessUntilItDies) {
    auto other = Hold("edit", "Vendor");
    Table t(db_, "Vendor");
    t.Open();
    EXPECT_EQ(CodeOf([&] { t.Edit(); }), errRecordLocked);
    EXPECT_EQ(CodeOf([&] { t.Delete(); }), errRecordLocked);
    // New rows are not held up by a record lock.
    InsertRow("Vendor",
              {{"VendorID", 2}, {"VendorNo", "200"}, {"VendorName", "Bolt"}, {"CurrencyID", 1}});
    other->Kill();
    other->Wait();
    t.Edit();
    t.FieldByName("VendorName").SetAsString("Acme Ltd");
    t.Post();
}

TEST_F(CrossProcess, ATableLockBlocksWritesOfAnotherProcessUntilItDies) {
    auto other = Hold("locktable", "Vendor");
    Table t(db_, "Vendor");
    t.Open();
    EXPECT_EQ(CodeOf([&] { t.Edit(); }), errRecordLocked);
    EXPECT_EQ(CodeOf([&] {
                  InsertRow("Vendor", {{"VendorID", 2},
                                       {"VendorNo", "200"},
                                       {"VendorName", "B"},
                                       {"CurrencyID", 1}});
              }),
              errTableLocked);
    EXPECT_EQ(CodeOf([&] { t.LockTable(); }), errTableLocked);
    // Reading goes on.
    EXPECT_EQ(t.RecordCount(), 1);
    other->Kill();
    other->Wait();
    t.LockTable();
    InsertRow("Vendor",
              {{"VendorID", 2}, {"VendorNo", "200"}, {"VendorName", "Bolt"}, {"CurrencyID", 1}});
    t.UnlockTable();
    EXPECT_EQ(CountRows("Vendor"), 2);
}

TEST_F(CrossProcess, AnExclusiveOpenKeepsEveryoneElseOut) {
    auto other = Hold("exclusive", "JVCtl");
    Table t(db_, "JVCtl");
    EXPECT_EQ(CodeOf([&] { t.Open(); }), errTableInUse);
    other->Kill();
    other->Wait();
    t.Open();
    // And the other way round: with this process's cursor open, an exclusive open elsewhere fails.
    ChildProcess refused(CORVANE_CURSOR_HOLDER, {folder_.Path(), "exclusive", "JVCtl"});
    auto line = refused.ReadLine();
    ASSERT_TRUE(line.has_value());
    EXPECT_EQ(line->rfind("error 11013", 0), 0u) << *line;
}

// A lock held for a scope asks after each refusal by the other process; giving up leaves nothing
// held, a retry once the other is gone gets it, and the end of the scope gives it back.
TEST_F(CrossProcess, AScopedTableLockAsksWhileRefusedAndGivesItsLockBack) {
    auto other = Hold("locktable", "Vendor");
    std::vector<std::string> asked;
    Table vendors(db_, "Vendor");
    EXPECT_EQ(CodeOf([&] {
                  TableLock lock(vendors, "Vendors are locked", [&](const std::string& m) {
                      asked.push_back(m);
                      return asked.size() < 3;
                  });
              }),
              errTableLocked);
    EXPECT_EQ(asked, std::vector<std::string>(3, "Vendors are locked"));
    EXPECT_FALSE(vendors.Active()) << "a refused lock leaves its table as it found it";

    asked.clear();
    {
        TableLock lock(vendors, "Vendors are locked", [&](const std::string& m) {
            asked.push_back(m);
            other->Kill();
            other->Wait();
            return true;
        });
        EXPECT_EQ(asked.size(), 1u);
        EXPECT_TRUE(vendors.TableLocked());
        // Held for the scope: a second workstation is kept out.
        ChildProcess refused(CORVANE_CURSOR_HOLDER, {folder_.Path(), "locktable", "Vendor"});
        auto line = refused.ReadLine();
        ASSERT_TRUE(line.has_value());
        EXPECT_EQ(line->rfind("error", 0), 0u) << *line;
    }
    EXPECT_FALSE(vendors.Active());
    auto after = Hold("locktable", "Vendor");
}

TEST_F(CrossProcess, AScopedExclusiveOpenClosesWhenItsScopeEndsEvenByAFailure) {
    Table control(db_, "JVCtl");
    EXPECT_THROW(
        {
            ExclusiveOpen held(control, "busy", {});
            EXPECT_TRUE(control.Active());
            throw std::runtime_error("the run failed");
        },
        std::runtime_error);
    EXPECT_FALSE(control.Active());
    auto other = Hold("exclusive", "JVCtl");
    // Refused with no question to ask: the refusal itself comes back.
    EXPECT_EQ(CodeOf([&] { ExclusiveOpen again(control, "busy", {}); }), errTableInUse);
}

} // namespace
