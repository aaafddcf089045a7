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

} // namespace
