#include "HeadlessApp.h"
#include "VendorEntryForm.h"
#include "ui/DBRadioGroup.h"
#include "ui/FormDriver.h"
#include "ui/ScriptError.h"

using namespace corvane;
using namespace corvane::ui;
using corvane::testing::UiCompanyTest;
using corvane::testing::VendorEntryForm;
using store::DataSetState;

namespace {

class DataAwareEdit : public UiCompanyTest {
protected:
    void SetUp() override {
        UiCompanyTest::SetUp();
        AddCurrency(1, "Canadian Dollar");
        AddCurrency(2, "US Dollar");
        AddVendor(1, "100", "Acme");
        AddVendor(2, "200", "Bolt");
    }

    std::string StoredName(int vendorId) {
        store::Table t(db_, "Vendor");
        t.Open();
        EXPECT_TRUE(t.Locate("VendorID", {vendorId}));
        return t.FieldByName("VendorName").AsString();
    }
};

TEST_F(DataAwareEdit, TypingEditsTheRecordAndLeavingWritesTheField) {
    VendorEntryForm form(app, db_);
    form.Show();
    FormDriver d(form);
    EXPECT_EQ(d.Text("editVendorName"), "Acme");

    d.EnterText("editVendorName", "Acme Tools");
    // The first key put the record in Edit; the field takes the text only when the control is left.
    EXPECT_EQ(form.tblVendor.State(), DataSetState::Edit);
    EXPECT_EQ(form.tblVendor.FieldByName("VendorName").AsString(), "Acme");
    d.PressKey(Key::Tab);
    EXPECT_EQ(form.tblVendor.FieldByName("VendorName").AsString(), "Acme Tools");
    EXPECT_EQ(d.FocusedName(), "cboCurrency");

    d.Click("btnOK");
    EXPECT_FALSE(form.Visible());
    EXPECT_EQ(StoredName(1), "Acme Tools");
    EXPECT_TRUE(dialogs.Shown().empty());
}

TEST_F(DataAwareEdit, EnterAndAButtonClickWriteTheTypedValue) {
    VendorEntryForm form(app, db_);
    form.Show();
    FormDriver d(form);
    d.EnterText("editVendorNo", "101");
    d.PressKey(Key::Enter);
    EXPECT_EQ(form.tblVendor.FieldByName("VendorNo").AsString(), "101");
    EXPECT_EQ(d.FocusedName(), "editVendorName");

    // Typed and never left: the click on OK takes the focus, so the value is written before Post.
    d.EnterText("editVendorName", "Acme North");
    d.Click("btnOK");
    EXPECT_EQ(StoredName(1), "Acme North");
}

TEST_F(DataAwareEdit, RefusedValueShowsTheFieldsMessageAndLeavesTheRecordAsItWas) {
    app.Title = "Corvane - Test Co";
    VendorEntryForm form(app, db_);
    form.Show();
    FormDriver d(form);

    // The form's own rule on the field.
    d.EnterText("editVendorName", "");
    d.PressKey(Key::Tab);
    ASSERT_EQ(dialogs.Shown().size(), 1u);
    EXPECT_EQ(dialogs.Shown()[0].Text, "Field 'Name' must have a value");
    EXPECT_EQ(dialogs.Shown()[0].Title, "Corvane - Test Co");
    EXPECT_EQ(dialogs.Shown()[0].Type, MsgType::Error);
    EXPECT_EQ(form.tblVendor.FieldByName("VendorName").AsString(), "Acme");
    // The focus stays so that the user corrects the text, which is still what was typed.
    EXPECT_EQ(d.FocusedName(), "editVendorName");
    EXPECT_EQ(d.Text("editVendorName"), "");

    // The store's own refusal: letters in a number.
    d.EnterText("editVendorName", "Acme");
    d.EnterText("editDiscDays", "ten");
    d.PressKey(Key::Enter);
    ASSERT_EQ(dialogs.Shown().size(), 2u);
    EXPECT_FALSE(dialogs.LastText().empty());
    EXPECT_TRUE(form.tblVendor.FieldByName("DiscDays").IsNull());
    EXPECT_EQ(d.FocusedName(), "editDiscDays");

    // A click on OK cannot get past the refused value either: nothing is posted.
    d.Click("btnOK");
    EXPECT_EQ(dialogs.Shown().size(), 3u);
    EXPECT_TRUE(form.Visible());
    EXPECT_EQ(StoredName(1), "Acme");

    d.EnterText("editDiscDays", "10");
    d.Click("btnOK");
    EXPECT_FALSE(form.Visible());
    EXPECT_EQ(dialogs.Shown().size(), 3u);
}

TEST_F(DataAwareEdit, EscapePressesCancelAndDropsWhatWasTyped) {
    VendorEntryForm form(app, db_);
    form.Show();
    FormDriver d(form);
    d.EnterText("editVendorName", "Typed but dropped");
    // Even a value the field would refuse does not stop the Cancel: nothing is written first.
    d.EnterText("editDiscDays", "x");
    d.PressKey(Key::Escape);
    EXPECT_TRUE(dialogs.Shown().empty());
    EXPECT_FALSE(form.Visible());
    EXPECT_EQ(form.tblVendor.State(), DataSetState::Browse);
    EXPECT_EQ(StoredName(1), "Acme");
    EXPECT_EQ(d.Text("editVendorName"), "Acme");
}

TEST_F(DataAwareEdit, ControlsFollowTheCursorAndShowANewRecord) {
    VendorEntryForm form(app, db_);
    form.Show();
    FormDriver d(form);
    form.tblVendor.Next();
    EXPECT_EQ(d.Text("editVendorNo"), "200");
    EXPECT_EQ(d.Text("cboCurrency"), "Canadian Dollar");

    form.tblVendor.Insert();
    EXPECT_EQ(d.Text("editVendorNo"), "");
    EXPECT_EQ(d.Text("cboCurrency"), "");
    form.tblVendor.Cancel();
    EXPECT_EQ(d.Text("editVendorName"), "Bolt");
}

TEST_F(DataAwareEdit, NumbersShowFormattedAndEditPlain) {
    VendorEntryForm form(app, db_);
    form.tblVendor.FieldByName("DiscDays").DisplayFormat = "0.00";
    form.tblVendor.Edit();
    form.tblVendor.FieldByName("DiscDays").SetAsInteger(5);
    form.Show();
    FormDriver d(form);
    EXPECT_EQ(d.Text("editDiscDays"), "5.00");
    d.Focus("editDiscDays");
    EXPECT_EQ(d.Text("editDiscDays"), "5");
    d.PressKey(Key::Tab);
    EXPECT_EQ(d.Text("editDiscDays"), "5.00");
}

TEST_F(DataAwareEdit, MemoCheckBoxAndLookupWriteTheirFields) {
    VendorEntryForm form(app, db_);
    form.Show();
    FormDriver d(form);
    d.EnterText("memoNotes", "first line\nsecond line");
    d.Click("chkSuspended"); // the click also leaves the memo, which writes it
    EXPECT_TRUE(form.tblVendor.FieldByName("Suspended").AsBoolean());
    EXPECT_EQ(form.tblVendor.FieldByName("Notes").AsString(), "first line\nsecond line");

    d.Choose("cboCurrency", "us dollar");
    EXPECT_EQ(form.tblVendor.FieldByName("CurrencyID").AsInteger(), 2);
    EXPECT_EQ(d.Text("cboCurrency"), "US Dollar");
    EXPECT_THROW(d.Choose("cboCurrency", "Euro"), ScriptError);

    d.Click("btnOK");
    store::Table t(db_, "Vendor");
    t.Open();
    EXPECT_EQ(t.FieldByName("CurrencyID").AsInteger(), 2);
    EXPECT_TRUE(t.FieldByName("Suspended").AsBoolean());
}

TEST_F(DataAwareEdit, AChoiceTheFieldRefusesIsUndone) {
    VendorEntryForm form(app, db_);
    DBRadioGroup optTerms(form, "optTerms", "Terms", {"&10 days", "&30 days"}, form.tblVendor,
                          "NetDays", {"10", "30"});
    form.tblVendor.FieldByName("NetDays").OnValidate = [](store::Field& f) {
        if (f.AsInteger() > 15) throw Exception("Terms over 15 days need approval");
    };
    form.tblVendor.FieldByName("CurrencyID").OnValidate = [](store::Field& f) {
        if (f.AsInteger() == 2) throw Exception("The vendor has invoices in its currency");
    };
    form.Show();
    FormDriver d(form);
    EXPECT_EQ(d.Text("optTerms"), "");
    d.Choose("optTerms", "10 days");
    EXPECT_EQ(form.tblVendor.FieldByName("NetDays").AsInteger(), 10);

    d.Choose("optTerms", "30 days");
    EXPECT_EQ(dialogs.LastText(), "Terms over 15 days need approval");
    EXPECT_EQ(d.Text("optTerms"), "10 days");
    EXPECT_EQ(form.tblVendor.FieldByName("NetDays").AsInteger(), 10);

    d.Choose("cboCurrency", "US Dollar");
    EXPECT_EQ(dialogs.LastText(), "The vendor has invoices in its currency");
    EXPECT_EQ(d.Text("cboCurrency"), "Canadian Dollar");
    EXPECT_EQ(form.tblVendor.FieldByName("CurrencyID").AsInteger(), 1);
}

TEST_F(DataAwareEdit, StringFieldSizeLimitsTyping) {
    VendorEntryForm form(app, db_);
    form.Show();
    FormDriver d(form);
    // VendorNo holds 10 characters; the eleventh key is refused with a beep.
    d.EnterText("editVendorNo", "12345678901");
    EXPECT_EQ(d.Text("editVendorNo"), "1234567890");
    EXPECT_EQ(desktop.Beeps(), 1);
}

} // namespace
