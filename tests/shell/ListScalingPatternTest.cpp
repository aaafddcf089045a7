#include "shell/users/TfrmUserSearch.h"
#include "shell/users/TfrmUsers.h"
#include "ui/HeadlessApp.h"

using namespace corvane;
using namespace corvane::ui;

namespace {

// The program on a screen of 144 pixels per inch: every size set in code grows by half.
class ListScaling : public corvane::testing::UiCompanyTest {
protected:
    void SetUp() override {
        UiCompanyTest::SetUp();
        app.ScaleFactor = 1.5;
    }
};

TEST_F(ListScaling, ColumnsWidthAndPlaceFollowTheScaleAndTheScreen) {
    Form bar(app, "frmBar");
    bar.Left = 37;
    app.SetMainForm(bar);
    auto& list = app.CreateForm<shell::TfrmUsers>(db_);
    EXPECT_EQ(list.grdList.Column("UserName").Width, 300);
    EXPECT_EQ(list.grdList.Column("Security").Width, 96);
    // Beside the columns: the indicator and scroll bar (16, scaled), the frame and a gap (4 + 1).
    EXPECT_EQ(list.ClientWidth, 300 + 96 + 24 + 4 + 1);
    EXPECT_EQ(list.Top, 0);
    EXPECT_EQ(list.Left, 37) << "under the main form's left edge";
    EXPECT_EQ(app.CreateForm<shell::TfrmUserSearch>(db_).grdSearch.Column("UserName").Width, 300);

    app.FreeForm(list);
    host.Screen = ScreenRect{0, 0, 400, 300};
    EXPECT_EQ(app.CreateForm<shell::TfrmUsers>(db_).ClientWidth, 400) << "cut to the screen";
}

TEST_F(ListScaling, FirstShowFitsTwelveRowsAndAToolbarDoubleClickReturnsToThatSize) {
    auto& list = app.CreateForm<shell::TfrmUsers>(db_);
    list.Show();
    int width = list.ClientWidth, height = list.ClientHeight;
    EXPECT_GE(height, 13 * 27) << "twelve rows and the titles, 18 pixels each at 96 per inch";
    EXPECT_LT(height, 20 * 27);
    list.ClientWidth = 900;
    list.ClientHeight = 120;
    list.Hide();
    list.Show();
    EXPECT_EQ(list.ClientHeight, 120) << "only the first show sets the height";
    app.Run([&] { list.tlbList.OnDblClick(); });
    EXPECT_EQ(list.ClientWidth, width);
    EXPECT_EQ(list.ClientHeight, height);
    EXPECT_EQ(list.grdList.Column("UserName").Width, 300) << "scaled once, not at each show";
}

} // namespace
