#include "support/CompanyFixture.h"

using namespace corvane;
using namespace corvane::store;
using corvane::testing::CompanyTest;

namespace {

class MasterDetail : public CompanyTest {
protected:
    void SetUp() override {
        CompanyTest::SetUp();
        Table jv(db_, "JV"), det(db_, "JVDet");
        jv.Open();
        det.Open();
        for (int id = 1; id <= 3; ++id) {
            jv.Insert();
            jv.FieldByName("JVID").SetAsInteger(id);
            jv.FieldByName("GLYear").SetAsInteger(2017);
            jv.FieldByName("GLPeriod").SetAsInteger(1);
            jv.FieldByName("JVNumber").SetAsInteger(100 + id);
            jv.FieldByName("Source").SetAsString("GL");
            jv.FieldByName("TransDate").SetAsDate(Date::FromYmd(2017, 1, id));
            jv.FieldByName("TransDescription").SetAsString("Voucher " + std::to_string(id));
            jv.Post();
            // Voucher n has n lines.
            for (int seq = 1; seq <= id; ++seq) {
                det.Insert();
                det.FieldByName("JVID").SetAsInteger(id);
                det.FieldByName("Seq").SetAsInteger(seq);
                det.FieldByName("GLAmount").SetAsMoney(Money::FromWhole(seq));
                det.Post();
            }
        }
    }
};

TEST_F(MasterDetail, TheDetailFollowsEveryMoveOfTheMaster) {
    Table jv(db_, "JV"), det(db_, "JVDet");
    jv.Open();
    det.SetMasterSource(&jv, "JVID");
    det.Open();
    for (jv.First(); !jv.Eof(); jv.Next()) {
        auto id = jv.FieldByName("JVID").AsInteger();
        EXPECT_EQ(det.RecordCount(), id);
        int lines = 0;
        for (det.First(); !det.Eof(); det.Next(), ++lines)
            EXPECT_EQ(det.FieldByName("JVID").AsInteger(), id);
        EXPECT_EQ(lines, id);
    }
    ASSERT_TRUE(jv.Locate("JVNumber", {Value(102)}));
    EXPECT_EQ(det.RecordCount(), 2);
}

TEST_F(MasterDetail, ANewLineTakesTheMastersKey) {
    Table jv(db_, "JV"), det(db_, "JVDet");
    jv.Open();
    det.SetMasterSource(&jv, "JVID");
    det.Open();
    jv.Last();
    det.Insert();
    EXPECT_EQ(det.FieldByName("JVID").AsInteger(), 3);
    det.FieldByName("Seq").SetAsInteger(4);
    det.Post();
    EXPECT_EQ(det.RecordCount(), 4);
    jv.First();
    EXPECT_EQ(det.RecordCount(), 1);
}

TEST_F(MasterDetail, MovingTheMasterResetsARangeOfTheDetail) {
    Table jv(db_, "JV"), det(db_, "JVDet");
    jv.Open();
    det.SetMasterSource(&jv, "JVID");
    det.Open();
    jv.Last();
    det.SetRange({Value(3), Value(2)}, {Value(3), Value(3)});
    EXPECT_EQ(det.RecordCount(), 2);
    jv.Prior();
    EXPECT_EQ(det.RecordCount(), 2);
    for (det.First(); !det.Eof(); det.Next())
        EXPECT_EQ(det.FieldByName("JVID").AsInteger(), 2);
}

} // namespace
