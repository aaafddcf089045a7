#include "ui/Grid.h"
#include "HeadlessApp.h"
#include "store/Database.h"
#include "store/sql/Connection.h"
#include "ui/DBEdit.h"
#include "ui/Form.h"
#include "ui/FormDriver.h"
#include "ui/ScriptError.h"

#include <cstdio>

using namespace corvane;
using namespace corvane::ui;
using corvane::testing::UiCompanyTest;

namespace {

std::string VendorNo(int i) {
    char text[16];
    std::snprintf(text, sizeof text, "V%05d", i);
    return text;
}

class GridOverTable : public UiCompanyTest {
protected:
    static constexpr int VendorCount = 3000;

    void SetUp() override {
        UiCompanyTest::SetUp();
        store::Transaction tx(db_, {"Vendor"});
        store::Table t(db_, "Vendor");
        t.Open();
        for (int i = 1; i <= VendorCount; ++i) {
            t.Insert();
            t.FieldByName("VendorID").SetAsInteger(i);
            t.FieldByName("VendorNo").SetAsString(VendorNo(i));
            // Names run backwards, so that the name order differs from the number order.
            t.FieldByName("VendorName").SetAsString("Name " + VendorNo(VendorCount + 1 - i));
            t.FieldByName("CurrencyID").SetAsInteger(1);
            t.Post();
        }
        tx.Commit();
    }

    std::vector<std::string> Column(const RowWindow& w, std::size_t column) {
        std::vector<std::string> texts;
        for (const auto& row : w.Rows)
            texts.push_back(row.at(column));
        return texts;
    }
};

class VendorsForm : public Form {
public:
    VendorsForm(Application& app, store::Database& db)
        : Form(app, "frmVendors"), tblVendor(db, "Vendor") {
        tblVendor.SetIndexName("VendorNo");
        tblVendor.Open();
        grdVendors.AddColumn("VendorNo", "Vendor No", 80).AddColumn("VendorName", "Name", 200);
        SetLayout(Column{grdVendors});
        grdVendors.OnTitleClick = [this](GridColumn& column) {
            for (auto& c : grdVendors.Columns)
                c.TitleBold = &c == &column;
        };
    }
    store::Table tblVendor;
    Grid grdVendors{*this, "grdVendors", tblVendor};
    // A second control on the same cursor, which must not see the grid's reading.
    DBEdit editVendorNo{*this, "editVendorNo", tblVendor, "VendorNo"};
};

TEST_F(GridOverTable, RowsAroundTheCurrentOneAreReadAndTheCursorStaysPut) {
    VendorsForm form(app, db_);
    auto& grid = form.grdVendors;
    ASSERT_TRUE(form.tblVendor.Locate("VendorNo", {VendorNo(1500)}));
    int scrolls = 0, editChanges = 0;
    form.tblVendor.AfterScroll = [&](store::DataSet&) { ++scrolls; };
    form.editVendorNo.OnChange = [&] { ++editChanges; };

    RowWindow w = grid.Rows(3, 4);
    EXPECT_EQ(Column(w, 0), (std::vector<std::string>{
                                VendorNo(1497), VendorNo(1498), VendorNo(1499), VendorNo(1500),
                                VendorNo(1501), VendorNo(1502), VendorNo(1503), VendorNo(1504)}));
    EXPECT_EQ(w.Current, 3);
    EXPECT_EQ(w.Rows[3][1], "Name " + VendorNo(1501));
    EXPECT_EQ(form.tblVendor.FieldByName("VendorNo").AsString(), VendorNo(1500));
    EXPECT_EQ(form.editVendorNo.Text(), VendorNo(1500));
    EXPECT_EQ(scrolls, 0) << "reading rows is not the user scrolling";
    EXPECT_EQ(editChanges, 0) << "nor do other controls on the cursor follow the walk";
    form.tblVendor.Next();
    EXPECT_EQ(form.tblVendor.FieldByName("VendorNo").AsString(), VendorNo(1501));
}

TEST_F(GridOverTable, AtTheEdgesTheWindowIsShortAndTheEdgeFlagsSurvive) {
    VendorsForm form(app, db_);
    auto& t = form.tblVendor;
    t.First();
    RowWindow top = form.grdVendors.Rows(5, 2);
    EXPECT_EQ(top.Current, 0);
    EXPECT_EQ(Column(top, 0), (std::vector<std::string>{VendorNo(1), VendorNo(2), VendorNo(3)}));
    EXPECT_TRUE(t.Bof());

    t.Last();
    form.grdVendors.Rows(2, 5);
    RowWindow bottom = form.grdVendors.Rows(2, 0);
    EXPECT_EQ(bottom.Current, 2);
    EXPECT_EQ(Column(bottom, 0),
              (std::vector<std::string>{VendorNo(VendorCount - 2), VendorNo(VendorCount - 1),
                                        VendorNo(VendorCount)}));
    EXPECT_TRUE(t.Eof());
    EXPECT_EQ(t.FieldByName("VendorNo").AsString(), VendorNo(VendorCount));

    // A record being edited is shown as typed among the stored rows, and the cursor is not moved
    // off it.
    t.Edit();
    t.FieldByName("VendorName").SetAsString("Being typed");
    RowWindow editing = form.grdVendors.Rows(5, 5);
    ASSERT_EQ(editing.Rows.size(), 6u);
    EXPECT_EQ(editing.Current, 5);
    EXPECT_EQ(editing.Rows[5][1], "Being typed");
    EXPECT_EQ(editing.Rows[4][0], VendorNo(VendorCount - 1));
    EXPECT_EQ(t.State(), store::DataSetState::Edit);
}

TEST_F(GridOverTable, ReadingAWindowOfAHugeTableScansNothing) {
    VendorsForm form(app, db_);
    ASSERT_TRUE(form.tblVendor.Locate("VendorNo", {VendorNo(2000)}));
    auto& conn = db_.Conn();
    auto fullBefore = conn.FullScanSteps(), stepsBefore = conn.VmSteps();
    for (int paint = 0; paint < 5; ++paint)
        form.grdVendors.Rows(20, 20);
    EXPECT_EQ(conn.FullScanSteps() - fullBefore, 0);
    // A pass over the table reads each of its rows, a few steps for each column.
    EXPECT_LT(conn.VmSteps() - stepsBefore, 3 * VendorCount);
}

TEST_F(GridOverTable, TheRowIndexIsKnownAfterTheGridsOwnMoves) {
    VendorsForm form(app, db_);
    form.Show();
    FormDriver d(form);
    auto& grid = form.grdVendors;
    EXPECT_EQ(grid.RowIndex(), 0);
    d.SelectRow("grdVendors", 10);
    EXPECT_EQ(grid.RowIndex(), 10);
    EXPECT_EQ(d.GridRow("grdVendors")[0], VendorNo(11));
    d.PressKey(Key::Down);
    d.PressKey(Key::PageDown);
    EXPECT_EQ(grid.RowIndex(), 11 + grid.VisibleRows - 1);
    EXPECT_EQ(d.GridRow("grdVendors")[0], VendorNo(12 + grid.VisibleRows - 1));
    // Somebody else moved the cursor: the grid asks the cursor where it stands now.
    form.tblVendor.Locate("VendorNo", {VendorNo(700)});
    EXPECT_EQ(grid.RowIndex(), 699);
    EXPECT_EQ(d.Text("grdVendors"), VendorNo(700) + " | Name " + VendorNo(VendorCount + 1 - 700));
    d.PressKey(Key::Up);
    EXPECT_EQ(grid.RowIndex(), 698);
    d.PressKey(Key::Home);
    EXPECT_EQ(grid.RowIndex(), 0);
    EXPECT_EQ(d.GridRow("grdVendors")[0], VendorNo(1));
    grid.Rows(0, 30);
    EXPECT_EQ(grid.RowIndex(), 0);
}

TEST_F(GridOverTable, ARowMovedByCodeIsPlacedByCountingOnTheIndexWithoutAScan) {
    VendorsForm form(app, db_);
    form.Show();
    FormDriver d(form);
    auto& grid = form.grdVendors;
    auto& t = form.tblVendor;
    auto& conn = db_.Conn();
    auto fullBefore = conn.FullScanSteps();

    // In name order the numbers run backwards.
    t.SetIndexName("VendorName1");
    ASSERT_TRUE(t.Locate("VendorNo", {VendorNo(2900)}));
    EXPECT_EQ(grid.RowIndex(), 100);
    d.PressKey(Key::End);
    EXPECT_EQ(grid.RowIndex(), VendorCount - 1);
    t.First();
    EXPECT_EQ(grid.RowIndex(), 0);
    t.Last();
    t.MoveBy(-9);
    EXPECT_EQ(grid.RowIndex(), VendorCount - 10);
    EXPECT_EQ(conn.FullScanSteps() - fullBefore, 0);

    // Within a range the count starts at the range.
    t.SetIndexName("VendorNo");
    t.SetRange({VendorNo(1000)}, {VendorNo(1999)});
    ASSERT_TRUE(t.Locate("VendorNo", {VendorNo(1500)}));
    EXPECT_EQ(grid.RowIndex(), 500);
    t.CancelRange();

    // A filter handler decides row by row: the grid does not pretend to know. A record in edit
    // keeps its place.
    t.OnFilterRecord = [](store::DataSet& ds) {
        return ds.FieldByName("VendorID").AsInteger() > 1;
    };
    t.SetFiltered(true);
    ASSERT_TRUE(t.Locate("VendorNo", {VendorNo(1500)}));
    EXPECT_EQ(grid.RowIndex(), std::nullopt);
    t.SetFiltered(false);
    ASSERT_TRUE(t.Locate("VendorNo", {VendorNo(20)}));
    t.Edit();
    EXPECT_EQ(grid.RowIndex(), 19);
    t.Cancel();
    EXPECT_EQ(grid.RowIndex(), 19);
}

TEST_F(GridOverTable, TitleClicksReachTheFormAndUnknownColumnsAreNamed) {
    VendorsForm form(app, db_);
    form.Show();
    FormDriver d(form);
    d.ClickTitle("grdVendors", "VendorName");
    EXPECT_FALSE(form.grdVendors.Column("VendorNo").TitleBold);
    EXPECT_TRUE(form.grdVendors.Column("VendorName").TitleBold);
    try {
        d.ClickTitle("grdVendors", "City");
        FAIL() << "a column that is not there was clicked";
    } catch (const ScriptError& e) {
        EXPECT_STREQ(e.what(), "Grid 'grdVendors' on form 'frmVendors' has no column 'City'");
    }
}

TEST_F(GridOverTable, EnterAndTypedKeysReachTheGridsKeyPress) {
    VendorsForm form(app, db_);
    std::string pressed;
    int opened = 0;
    form.grdVendors.OnKeyPress = [&](char& ch) {
        if (ch == '\r')
            ++opened;
        else
            pressed += ch;
    };
    form.grdVendors.OnDblClick = [&] { ++opened; };
    form.EnterMovesFocus = true; // the grid keeps Enter even on such a form
    form.Show();
    FormDriver d(form);
    d.PressKey("grdVendors", Key::Enter);
    d.Type("v");
    d.DblClick("grdVendors");
    EXPECT_EQ(opened, 2);
    EXPECT_EQ(pressed, "v");
    EXPECT_EQ(d.FocusedName(), "grdVendors");
}

} // namespace
