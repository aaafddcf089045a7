#include "shell/patterns/SearchForm.h"
#include "ui/FormDriver.h"
#include "ui/HeadlessApp.h"

using namespace corvane;
using namespace corvane::ui;

namespace {

// A vendor search as the payables module writes one: by number, by name, and by vendor type.
class VendorSearch : public shell::SearchForm {
public:
    VendorSearch(Application& app, store::Database& db)
        : SearchForm(app, "frmVendorSearch", db, "Vendor", "VendorID"),
          cboVendorType(AddTypeFilter("cboVendorType", "VendType", "VendorTypeID", "TypeName")) {
        grdSearch.AddColumn("VendorNo", "Vendor No", 80);
        grdSearch.AddColumn("VendorName", "Name", 200);
        SetLayout(Column{FormRow{"Vendor No", editFindVendorNo},
                         FormRow{"Name", editFindVendorName}, FormRow{"Type", cboVendorType},
                         grdSearch, ButtonRow{btnOK, btnCancel, btnList}});
        AddSearchEdit(editFindVendorNo, "VendorNo", "VendorNo");
        AddSearchEdit(editFindVendorName, "VendorName", "VendorName1");
    }
    Edit editFindVendorNo{*this, "editFindVendorNo"};
    Edit editFindVendorName{*this, "editFindVendorName"};
    DBLookupComboBox& cboVendorType;
};

class SearchForm : public corvane::testing::UiCompanyTest {
protected:
    void SetUp() override {
        UiCompanyTest::SetUp();
        AddCurrency(1, "CAD");
        InsertRow("VendType", {{"VendorTypeID", 1}, {"TypeName", "Supplies"}});
        InsertRow("VendType", {{"VendorTypeID", 2}, {"TypeName", "Services"}});
        int id = 0;
        for (auto [name, type] :
             {std::pair{"Acme", 1}, {"Baker", 2}, {"Bates", 1}, {"Brown", 2}, {"Carter", 1}}) {
            ++id;
            InsertRow("Vendor", {{"VendorID", id},
                                 {"VendorNo", "V" + std::to_string(id)},
                                 {"VendorName", name},
                                 {"CurrencyID", 1},
                                 {"VendorTypeID", type}});
        }
        search = &app.CreateForm<VendorSearch>(db_);
        caller.SetLayout(Column{FormRow{"Vendor", editVendor}});
    }

    // Shows the search from the vendor field of another form, with script playing the user.
    void RunSearch(const shell::SearchStart& start, HeadlessHost::ModalScript script) {
        search->Start(editVendor, start);
        host.ScriptModal("frmVendorSearch", std::move(script));
        app.Run([&] { search->ShowModal(); });
        EXPECT_EQ(host.PendingScripts(), 0u);
    }

    static std::string Name(FormDriver& s) { return s.GridRow("grdSearch").at(1); }

    VendorSearch* search = nullptr;
    Form caller{app, "frmCaller"};
    Edit editVendor{caller, "editVendor"};
};

TEST_F(SearchForm, TheGridFollowsEachKeyToTheNearestRowOfTheEditsIndex) {
    RunSearch({.IndexName = "VendorName1", .FirstChar = 'b'}, [](Form& f) {
        FormDriver s(f);
        EXPECT_EQ(s.FocusedName(), "editFindVendorName") << "the edit of the list's order";
        EXPECT_EQ(Name(s), "Baker");
        s.Type("o"); // no "bo": the row after where it would stand
        EXPECT_EQ(Name(s), "Brown");
        s.PressKey(Key::Backspace);
        s.Type("at");
        EXPECT_EQ(Name(s), "Bates");
        s.PressKey(Key::Down);
        EXPECT_EQ(Name(s), "Brown");
        EXPECT_EQ(s.Text("editFindVendorName"), "bat") << "arrows move the grid only";
        s.PressKey(Key::Backspace);
        EXPECT_EQ(Name(s), "Baker") << "the text typed so far decides, not the row";
        s.Focus("editFindVendorNo");
        s.Type("V5");
        EXPECT_EQ(Name(s), "Carter");
        s.PressKey(Key::Up);
        EXPECT_EQ(Name(s), "Brown") << "by number now";
        s.PressKey(Key::Enter);
    });
    EXPECT_EQ(search->SelectedKey(), std::vector<store::Value>{store::Value(4)});
}

TEST_F(SearchForm, TheTypeNarrowsTheListsRowsAndNoneShowsThemAll) {
    RunSearch({.Filter = "(VendorID <> 3)", .IndexName = "VendorName1", .FirstChar = 'b'},
              [](Form& f) {
                  FormDriver s(f);
                  s.Choose("cboVendorType", "Supplies");
                  EXPECT_EQ(Name(s), "Carter") << "Bates is not in the list";
                  s.Focus("editFindVendorName");
                  s.PressKey(Key::Up);
                  EXPECT_EQ(Name(s), "Acme");
                  s.Focus("cboVendorType");
                  s.PressKey(Key::Delete);
                  EXPECT_EQ(Name(s), "Baker");
                  s.Click("btnCancel");
              });
}

TEST_F(SearchForm, IsCentredOnTheCallingControlKeptOnTheScreenAndOpensTheList) {
    int width = search->ClientWidth, height = search->ClientHeight;
    ASSERT_GT(width, 0);
    caller.Left = 100, caller.Top = 50, caller.ClientWidth = 800, caller.ClientHeight = 700;
    search->Start(editVendor, {});
    EXPECT_EQ(search->Left, 100 + (800 - width) / 2);
    EXPECT_EQ(search->Top, 50 + (700 - height) / 2);
    EXPECT_FALSE(search->btnList.Visible);
    host.Screen = ScreenRect{0, 0, 1024, 768};
    caller.Left = 900, caller.Top = 700;
    int opened = 0;
    search->OpenList = [&] { opened += search->Visible() ? 10 : 1; };
    RunSearch({}, [](Form& f) { FormDriver(f).Click("btnList"); });
    EXPECT_EQ(search->Left, 1024 - width);
    EXPECT_EQ(search->Top, 768 - height);
    EXPECT_EQ(opened, 1) << "once, after the search closed";
}

} // namespace
