#include "ui/FormDriver.h"
#include "HeadlessApp.h"
#include "ui/Button.h"
#include "ui/CheckBox.h"
#include "ui/ComboBox.h"
#include "ui/DateEdit.h"
#include "ui/Edit.h"
#include "ui/Form.h"
#include "ui/Label.h"
#include "ui/ListBox.h"
#include "ui/ProgressBar.h"
#include "ui/RadioGroup.h"
#include "ui/ScriptError.h"
#include "ui/SpinEdit.h"
#include "ui/StatusBar.h"

using namespace corvane;
using namespace corvane::ui;
using corvane::testing::UiTest;

namespace {

class FilterForm : public Form {
public:
    explicit FilterForm(Application& app) : Form(app, "frmVendorsFilter") {
        optSuspended.SetItemIndex(0);
        editCountry.OnChange = [this] { ++Changes; };
        dateFrom.OnButtonClick = [this] { dateFrom.SetText("2017-03-31"); };
        SetLayout(Column{FormRow{lblCountry, editCountry}, optSuspended, chkActive, cboType,
                         dateFrom, spinDays, ButtonRow{btnOK, btnReset}});
    }
    int Changes = 0;
    Label lblCountry{*this, "lblCountry", "&Country"};
    Edit editCountry{*this, "editCountry"};
    RadioGroup optSuspended{*this, "optSuspended", "Suspended", {"&All", "&Yes", "&No"}};
    CheckBox chkActive{*this, "chkActive", "Active only"};
    ComboBox cboType{*this, "cboType", {"Supplier", "Contractor"}};
    DateEdit dateFrom{*this, "dateFrom"};
    SpinEdit spinDays{*this, "spinDays"};
    Button btnOK{*this, "btnOK", "OK"};
    Button btnReset{*this, "btnReset", "Reset"};
};

using Driver = UiTest;

TEST_F(Driver, UnknownNamesAndWrongKindsSayWhatAndWhere) {
    FilterForm form(app);
    form.Show();
    FormDriver d(form);
    auto message = [](const std::function<void()>& act) {
        try {
            act();
        } catch (const ScriptError& e) {
            return std::string(e.what());
        }
        return std::string("no error");
    };
    EXPECT_EQ(message([&] { d.EnterText("editFoo", "x"); }),
              "No component 'editFoo' on form 'frmVendorsFilter'");
    EXPECT_EQ(message([&] { d.Click("btnFoo"); }),
              "No component 'btnFoo' on form 'frmVendorsFilter'");
    EXPECT_EQ(message([&] { d.Text("lblFoo"); }),
              "No component 'lblFoo' on form 'frmVendorsFilter'");
    EXPECT_EQ(message([&] { FormDriver(app, "frmFoo"); }), "No form 'frmFoo'");
    EXPECT_EQ(message([&] { d.EnterText("lblCountry", "x"); }),
              "Label 'lblCountry' on form 'frmVendorsFilter' does not take typed text");
    EXPECT_EQ(
        message([&] { d.SelectRow("editCountry", 1); }),
        "Component 'editCountry' on form 'frmVendorsFilter' (Edit) is not the kind asked for");
    form.btnOK.Enabled = false;
    EXPECT_EQ(message([&] { d.Click("btnOK"); }),
              "Button 'btnOK' on form 'frmVendorsFilter' is disabled");
    form.editCountry.ReadOnly = true;
    EXPECT_EQ(message([&] { d.EnterText("editCountry", "x"); }),
              "Edit 'editCountry' on form 'frmVendorsFilter' is read-only");
    EXPECT_EQ(message([&] { d.Choose("optSuspended", "Maybe"); }),
              "Radio group 'optSuspended' on form 'frmVendorsFilter' has no item 'Maybe'");
    EXPECT_TRUE(dialogs.Shown().empty());
}

TEST_F(Driver, EachKindOfControlIsWorkedAndReadAsAPersonSeesIt) {
    FilterForm form(app);
    form.Show();
    FormDriver d(form);
    d.EnterText("editCountry", "Canada");
    EXPECT_EQ(d.Text("editCountry"), "Canada");
    EXPECT_EQ(form.Changes, 6) << "typing runs OnChange once per key";
    d.EnterText("editCountry", "");
    EXPECT_EQ(d.Text("editCountry"), "");

    EXPECT_EQ(d.Text("optSuspended"), "All");
    d.Choose("optSuspended", "No");
    EXPECT_EQ(form.optSuspended.ItemIndex(), 2);
    d.PressKey(Key::Up);
    EXPECT_EQ(d.Text("optSuspended"), "Yes");

    d.SetChecked("chkActive", true);
    d.SetChecked("chkActive", true);
    EXPECT_TRUE(d.Checked("chkActive"));
    d.PressKey(Key::Space);
    EXPECT_FALSE(d.Checked("chkActive"));

    d.EnterText("cboType", "Contractor");
    EXPECT_EQ(form.cboType.ItemIndex(), 1);
    d.Type("s"); // a fixed list: a letter picks the item it starts
    EXPECT_EQ(d.Text("cboType"), "Supplier");

    d.Click("dateFrom");
    EXPECT_EQ(d.Text("dateFrom"), "2017-03-31");
    EXPECT_EQ(d.FocusedName(), "dateFrom");

    form.spinDays.MinValue = 0;
    form.spinDays.MaxValue = 30;
    d.EnterText("spinDays", "2x9");
    EXPECT_EQ(d.Text("spinDays"), "29");
    d.PressKey(Key::Up);
    d.PressKey(Key::Up);
    EXPECT_EQ(form.spinDays.Value(), 30);

    EXPECT_EQ(d.Text("lblCountry"), "Country");
    EXPECT_TRUE(d.Enabled("btnReset"));
    form.btnReset.Visible = false;
    EXPECT_FALSE(d.Visible("btnReset"));
}

TEST_F(Driver, ProgressAndStatusReadAsText) {
    Form form(app, "frmPost");
    ProgressBar progress(form, "pbrPost");
    StatusBar status(form, "sbrMain");
    progress.Max = 25;
    progress.StepIt();
    progress.StepIt();
    progress.StepIt();
    status.Panels = {{"Company: Test", 150}, {"", 50}, {"User: admin", 100}};
    FormDriver d(form);
    EXPECT_EQ(d.Text("pbrPost"), "25");
    EXPECT_EQ(d.Text("sbrMain"), "Company: Test |  | User: admin");
    status.SimplePanel = true;
    status.SimpleText = "Posting...";
    EXPECT_EQ(d.Text("sbrMain"), "Posting...");
}

// A pick list: a click names the item in the edit, a double click opens it.
class PickForm : public Form {
public:
    explicit PickForm(Application& app) : Form(app, "frmPick") {
        lboNames.Sorted = true;
        lboNames.SetItems({"Echo", "alpha", "Charlie"});
        lboNames.OnClick = [this] { editName.SetText(lboNames.Text()); };
        lboNames.OnDblClick = [this] { Opened.push_back(lboNames.Text()); };
        SetLayout(Column{editName, lboNames});
    }
    std::vector<std::string> Opened;
    Edit editName{*this, "editName"};
    ListBox lboNames{*this, "lboNames"};
};

TEST_F(Driver, AListBoxItemIsClickedByItsTextAndDoubleClickedWhereSelected) {
    PickForm form(app);
    form.Show();
    FormDriver d(form);
    EXPECT_EQ(d.Text("lboNames"), "") << "nothing is selected yet";
    EXPECT_THROW(d.DblClick("lboNames"), ScriptError) << "no item to double-click";

    d.Choose("lboNames", "charlie"); // letter case aside, as the list compares
    EXPECT_EQ(form.lboNames.ItemIndex(), 1);
    EXPECT_EQ(d.Text("lboNames"), "Charlie");
    EXPECT_EQ(d.Text("editName"), "Charlie") << "the click ran the list's OnClick";
    EXPECT_EQ(d.FocusedName(), "lboNames");

    d.PressKey(Key::Down);
    EXPECT_EQ(d.Text("lboNames"), "Echo");
    d.DblClick("lboNames");
    EXPECT_EQ(form.Opened, std::vector<std::string>{"Echo"});

    try {
        d.Choose("lboNames", "Delta");
        ADD_FAILURE() << "an item that is not in the list was chosen";
    } catch (const ScriptError& e) {
        EXPECT_STREQ(e.what(), "ListBox 'lboNames' on form 'frmPick' has no item 'Delta'");
    }
    EXPECT_EQ(d.Text("lboNames"), "Echo") << "a failed choice leaves the selection";
    form.lboNames.Enabled = false;
    EXPECT_THROW(d.Choose("lboNames", "alpha"), ScriptError);
    EXPECT_THROW(d.DblClick("editName"), ScriptError) << "an edit has no double click";
    EXPECT_EQ(form.Opened.size(), 1u);
}

} // namespace
