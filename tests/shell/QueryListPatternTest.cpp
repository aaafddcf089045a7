#include "UsersFixture.h"
#include "shell/users/TfrmUserSearch.h"

using namespace corvane;
using namespace corvane::ui;

namespace {

// A list whose rows come from a query, as the balances and totals lists have them.
class UsersByQuery : public shell::ListForm {
public:
    UsersByQuery(Application& app, store::Database& db)
        : ListForm(app, "frmUsersByQuery", "Users by query", db,
                   QuerySource{"SELECT UserName, Security FROM Users", "qryUsers"}, "UserName"),
          mnuSortUserName(
              AddQuerySortEntry("mnuSortUserName", "&User name", "UserName", "UserName")),
          mnuSortSecurity(
              AddQuerySortEntry("mnuSortSecurity", "&Security", "Security", "Security, UserName")) {
        grdList.AddColumn("UserName", "User name", 200);
        grdList.AddColumn("Security", "Security", 64);
        mnuSortUserName.Click();
    }
    MenuItem& mnuSortUserName;
    MenuItem& mnuSortSecurity;

protected:
    shell::EntryForm& Entry() override { return App().SingleForm<shell::TfrmUser>(Db()); }
    shell::SearchForm* Search() override { return &App().SingleForm<shell::TfrmUserSearch>(Db()); }
};

class QueryList : public corvane::testing::UsersFormsTest {
protected:
    void SetUp() override {
        UsersFormsTest::SetUp();
        // The fixture's table list stays; this one shows the same users through a query.
        query = &app.CreateForm<UsersByQuery>(db_);
        query->Show();
    }
    std::string QueryUser() { return query->MainQuery.FieldByName("UserName").AsString(); }

    UsersByQuery* query = nullptr;
};

TEST_F(QueryList, ASortEntryReadsTheQueryAgainInItsOrder) {
    FormDriver d(*query);
    EXPECT_EQ(QueryUser(), "alice");
    d.SelectRow("grdList", 2);
    d.ClickTitle("grdList", "Security");
    EXPECT_TRUE(query->mnuSortSecurity.Checked());
    EXPECT_TRUE(query->grdList.Column("Security").TitleBold);
    EXPECT_FALSE(query->grdList.Column("UserName").TitleBold);
    EXPECT_EQ(QueryUser(), "bob") << "the first row of the new order";
    d.PressKey("grdList", Key::Down);
    EXPECT_EQ(QueryUser(), "carol");
    d.ClickTitle("grdList", "UserName");
    EXPECT_EQ(QueryUser(), "alice");
}

TEST_F(QueryList, RefreshReadsNewRowsAndStaysOnTheSameRecord) {
    FormDriver d(*query);
    d.SelectRow("grdList", 1);
    ASSERT_EQ(QueryUser(), "bob");
    InsertRow("Users", {{"UserName", "aaron"}, {"Password", "pw"}, {"Security", false}});
    EXPECT_EQ(query->MainQuery.RecordCount(), 3) << "a query holds its rows as read";
    d.Click("mnuRefresh");
    EXPECT_EQ(query->MainQuery.RecordCount(), 4);
    EXPECT_EQ(QueryUser(), "bob") << "the row moved down one place; the list follows it";
    EXPECT_EQ(d.GridRows("grdList", 1, 0).Rows.at(0).at(0), "alice");

    // The record gone: the list stays at its place.
    store::Table users(db_, "Users");
    users.Open();
    ASSERT_TRUE(users.Locate("UserName", {std::string("bob")}));
    users.Delete();
    d.Click("mnuRefresh");
    EXPECT_EQ(query->MainQuery.RecordCount(), 3);
    EXPECT_EQ(QueryUser(), "carol");
}

TEST_F(QueryList, RecordsAreWrittenThroughTheEntryFormAndTheListFollowsThem) {
    FormDriver d(*query);
    d.SelectRow("grdList", 2);
    d.PressKey("grdList", Key::Enter);
    FormDriver u(UserForm());
    EXPECT_EQ(u.Text("editUserName"), "carol");
    u.EnterText("editUserName", "abby");
    u.Click("btnOK");
    EXPECT_EQ(QueryUser(), "abby") << "read again, and on the saved row";
    EXPECT_EQ(d.GridRows("grdList", 0, 1).Rows.at(1).at(0), "alice");

    d.Click("tbnNew");
    u.EnterText("editUserName", "dave");
    u.Click("btnOK");
    EXPECT_EQ(query->MainQuery.RecordCount(), 4);
    EXPECT_EQ(QueryUser(), "dave");

    d.Click("mnuDelete");
    EXPECT_EQ(CountRows("Users"), 3);
    EXPECT_EQ(query->MainQuery.RecordCount(), 3);
}

} // namespace
