#include "HeadlessApp.h"
#include "ui/Button.h"
#include "ui/ComboBox.h"
#include "ui/DBLookupComboBox.h"
#include "ui/Edit.h"
#include "ui/Form.h"
#include "ui/FormDriver.h"
#include "ui/Label.h"
#include "ui/Memo.h"
#include "ui/PageControl.h"

#include <algorithm>

using namespace corvane;
using namespace corvane::ui;
using corvane::testing::UiCompanyTest;
using corvane::testing::UiTest;

namespace {

// Declared out of screen order on purpose: the layout, not the declaration, makes the tab order.
class EntryForm : public Form {
public:
    explicit EntryForm(Application& app) : Form(app, "frmEntry") {
        EnterMovesFocus = true;
        btnCancel.Cancel = true;
        btnCancel.ModalResult = mrCancel;
        btnOK.ModalResult = mrOK;
        btnCancel.OnClick = [this] { Close(); };
        SetLayout(Column{
            FormRow{lblName, editName},
            FormRow{"City", editCity},
            FormRow{"Hidden", editHidden},
            FormRow{"Notes", memoNotes},
            FormRow{"Phone", editPhone},
            ButtonRow{btnOK, btnCancel},
        });
        editHidden.Visible = false;
    }
    Edit editPhone{*this, "editPhone"};
    Memo memoNotes{*this, "memoNotes"};
    Edit editCity{*this, "editCity"};
    Edit editHidden{*this, "editHidden"};
    Label lblName{*this, "lblName", "Name"};
    Edit editName{*this, "editName"};
    Button btnOK{*this, "btnOK", "OK"};
    Button btnCancel{*this, "btnCancel", "Cancel"};
};

TEST_F(UiTest, EnterMovesFocusInLayoutOrderSkippingWhatCannotTakeIt) {
    EntryForm form(app);
    form.Show();
    FormDriver d(form);
    // The label is not focusable and the hidden edit is skipped.
    EXPECT_EQ(d.FocusedName(), "editName");
    d.PressKey(Key::Enter);
    EXPECT_EQ(d.FocusedName(), "editCity");
    form.editCity.Enabled = false;
    d.PressKey(Shift(Key::Tab));
    EXPECT_EQ(d.FocusedName(), "editName");
    d.PressKey(Key::Enter);
    EXPECT_EQ(d.FocusedName(), "memoNotes");
}

TEST_F(UiTest, EnterInAMemoBreaksTheLineAndStays) {
    EntryForm form(app);
    form.Show();
    FormDriver d(form);
    d.EnterText("memoNotes", "one");
    d.PressKey(Key::Enter);
    d.Type("two");
    EXPECT_EQ(d.FocusedName(), "memoNotes");
    EXPECT_EQ(d.Text("memoNotes"), "one\ntwo");
    // Tab still leaves the memo.
    d.PressKey(Key::Tab);
    EXPECT_EQ(d.FocusedName(), "editPhone");
    d.PressKey(Key::Tab);
    d.PressKey(Key::Tab);
    EXPECT_EQ(d.FocusedName(), "btnCancel");
    // An order given in code comes first.
    form.SetTabOrder({&form.editPhone, &form.editName});
    d.Focus("editPhone");
    d.PressKey(Key::Enter);
    EXPECT_EQ(d.FocusedName(), "editName");
}

TEST_F(UiTest, EscapePressesCancelOfAModalForm) {
    EntryForm form(app);
    host.ScriptModal("frmEntry", [](Form& f) {
        FormDriver d(f);
        d.EnterText("editName", "typed");
        d.PressKey(Key::Escape);
    });
    EXPECT_EQ(form.ShowModal(), mrCancel);
    EXPECT_FALSE(form.Visible());

    // A disabled Cancel button is not pressed: Escape reaches the control as a character.
    form.btnCancel.Enabled = false;
    form.Show();
    char seen = 0;
    form.editName.OnKeyPress = [&](char& ch) { seen = ch; };
    FormDriver(form).PressKey("editName", Key::Escape);
    EXPECT_TRUE(form.Visible());
    EXPECT_EQ(seen, 27);
}

TEST_F(UiTest, EnterPressesTheDefaultButtonWhereItDoesNotMoveTheFocus) {
    Form form(app, "frmFind");
    Edit editNo(form, "editNo");
    Button btnOK(form, "btnOK", "OK");
    btnOK.Default = true;
    int clicks = 0;
    btnOK.OnClick = [&] { ++clicks; };
    form.Show();
    FormDriver d(form);
    d.EnterText("editNo", "42");
    d.PressKey(Key::Enter);
    EXPECT_EQ(clicks, 1);
    EXPECT_EQ(d.FocusedName(), "editNo");
    // A focused button takes Enter itself, once.
    d.Focus("btnOK");
    d.PressKey(Key::Enter);
    EXPECT_EQ(clicks, 2);
}

TEST_F(UiTest, KeyPreviewLetsTheFormSeeAndSwallowKeysFirst) {
    EntryForm form(app);
    std::string formSaw;
    form.OnKeyPress = [&](char& ch) {
        formSaw += ch;
        if (ch == '#') ch = 0;
    };
    form.Show();
    FormDriver d(form);
    d.EnterText("editName", "a#b");
    EXPECT_EQ(formSaw, "") << "without KeyPreview the form sees nothing";
    EXPECT_EQ(d.Text("editName"), "a#b");

    form.KeyPreview = true;
    d.EnterText("editName", "a#b");
    EXPECT_EQ(formSaw, "a#b");
    EXPECT_EQ(d.Text("editName"), "ab");

    // The key handler of the form runs before the control's and can stop it.
    std::vector<std::string> order;
    form.OnKeyDown = [&](Key& key, Modifiers) {
        order.push_back("form");
        if (key == Key::F2) key = Key::None;
    };
    form.editName.OnKeyDown = [&](Key&, Modifiers) { order.push_back("control"); };
    d.PressKey(Key::F3);
    d.PressKey(Key::F2);
    EXPECT_EQ(order, (std::vector<std::string>{"form", "control", "form"}));
}

TEST_F(UiTest, ModalDialogsSwallowAltSoTheMenuBarStaysClosed) {
    EntryForm form(app);
    form.Show();
    FormDriver(form).PressKey(Key::Alt);
    EXPECT_EQ(host.Log().back(), "menubar frmEntry");

    Form dialog(app, "frmDialog");
    Edit editX(dialog, "editX");
    dialog.KeyPreview = true;
    dialog.OnKeyDown = [](Key& key, Modifiers) { SwallowAlt(key); };
    host.ScriptModal("frmDialog", [](Form& f) {
        FormDriver d(f);
        d.PressKey(Key::Alt);
        d.Close();
    });
    dialog.ShowModal();
    auto menubars = std::count(host.Log().begin(), host.Log().end(), "menubar frmDialog");
    EXPECT_EQ(menubars, 0);
}

TEST_F(UiTest, TabSkipsControlsOfPagesInTheBackAndFocusingOneBringsItsPageForward) {
    Form form(app, "frmPages");
    PageControl pages(form, "pgcMain");
    Page tabGeneral(pages, "tabGeneral", "General");
    Page tabNotes(pages, "tabNotes", "Notes");
    Edit editName(form, "editName");
    Edit editNotes(form, "editNotes");
    Edit editAfter(form, "editAfter");
    tabGeneral.SetLayout(Column{FormRow{"Name", editName}});
    tabNotes.SetLayout(Column{FormRow{"Notes", editNotes}});
    form.SetLayout(Column{pages, editAfter});
    form.Show();
    FormDriver d(form);
    d.Focus("editName");
    d.PressKey(Key::Tab);
    EXPECT_EQ(d.FocusedName(), "editAfter");
    EXPECT_FALSE(d.Visible("editNotes"));

    // A validation focuses its control wherever it is.
    editNotes.SetFocus();
    EXPECT_EQ(pages.ActivePage(), &tabNotes);
    EXPECT_TRUE(d.Visible("editNotes"));
    EXPECT_FALSE(d.Visible("editName"));
    d.PressKey(Ctrl(Key::Tab));
    EXPECT_EQ(d.Text("pgcMain"), "General");
    EXPECT_EQ(d.FocusedName(), "editName");
}

TEST_F(UiTest, ADroppedDownComboKeepsEnterAndEscape) {
    EntryForm form(app);
    ComboBox cboKind(form, "cboKind", {"Cash", "Cheque", "Card"});
    form.SetTabOrder({&form.editName, &cboKind, &form.editCity});
    form.Show();
    FormDriver d(form);
    d.Focus("cboKind");
    d.PressKey(Alt(Key::Down));
    EXPECT_TRUE(cboKind.DroppedDown());
    d.PressKey(Key::Down);
    d.PressKey(Key::Enter);
    EXPECT_FALSE(cboKind.DroppedDown());
    EXPECT_EQ(d.Text("cboKind"), "Cash");
    EXPECT_EQ(d.FocusedName(), "cboKind");
    d.PressKey(Key::Escape); // not dropped: Escape is the form's again
    EXPECT_FALSE(form.Visible());
}

class LookupKeys : public UiCompanyTest {};

TEST_F(LookupKeys, ADroppedDownLookupComboTakesEnterAsItsChoice) {
    AddCurrency(1, "Canadian Dollar");
    AddCurrency(2, "US Dollar");
    store::Table tblCurrency(db_, "Currency");
    tblCurrency.Open();
    EntryForm form(app);
    DBLookupComboBox cboCurrency(form, "cboCurrency", tblCurrency, "CurrencyID", "CurrencyName");
    form.SetTabOrder({&form.editName, &cboCurrency, &form.editCity});
    form.Show();
    FormDriver d(form);
    d.Focus("cboCurrency");
    d.PressKey(Key::F4);
    EXPECT_TRUE(cboCurrency.DroppedDown());
    auto rows = cboCurrency.ListRows(0, 5);
    ASSERT_EQ(rows.Rows.size(), 2u);
    EXPECT_EQ(rows.Rows[1][0], "US Dollar");
    d.PressKey(Key::Down);
    d.PressKey(Key::Enter);
    EXPECT_EQ(d.FocusedName(), "cboCurrency");
    EXPECT_EQ(d.Text("cboCurrency"), "US Dollar");
    EXPECT_EQ(cboCurrency.KeyValue(), store::Value(2));

    // Closed, the same Enter moves on; Escape in the open list keeps the old choice.
    d.PressKey(Key::F4);
    d.PressKey(Key::Up);
    d.PressKey(Key::Escape);
    EXPECT_EQ(d.Text("cboCurrency"), "US Dollar");
    EXPECT_TRUE(form.Visible());
    d.PressKey(Key::Enter);
    EXPECT_EQ(d.FocusedName(), "editCity");
}

} // namespace
