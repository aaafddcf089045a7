#include "desktop/DesktopTest.h"
#include "ui/VendorEntryForm.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>

namespace corvane::testing {
namespace {

class VendorWindowTest : public DesktopTest {
protected:
    void SetUp() override {
        DesktopTest::SetUp();
        InsertRow("Currency", {{"CurrencyID", 1},
                               {"CurrencyName", std::string("Canadian Dollar")},
                               {"APGLAccountID", 1},
                               {"APDiscGLAccountID", 1},
                               {"ARGLAccountID", 1},
                               {"ARDiscGLAccountID", 1}});
        InsertRow("Vendor", {{"VendorID", 1},
                             {"VendorNo", std::string("V1")},
                             {"VendorName", std::string("First Vendor")},
                             {"CurrencyID", 1},
                             {"Suspended", true}});
        form = &app.CreateForm<VendorEntryForm>(db_);
        form->Show();
        window = host.WindowOf(*form);
        ASSERT_NE(window, nullptr);
    }

    std::string StoredName() {
        store::Table t(db_, "Vendor");
        t.Open();
        return t.FieldByName("VendorName").AsString();
    }

    VendorEntryForm* form = nullptr;
    desktop::FormWindow* window = nullptr;
};

TEST_F(VendorWindowTest, EachControlHasAWidgetShowingItsState) {
    EXPECT_EQ(window->windowTitle(), "Vendor");
    EXPECT_EQ(Widget<QLineEdit>(*window, "editVendorNo")->text(), "V1");
    EXPECT_EQ(Widget<QLineEdit>(*window, "editVendorName")->text(), "First Vendor");
    EXPECT_EQ(Widget<QComboBox>(*window, "cboCurrency")->currentText(), "Canadian Dollar");
    EXPECT_NE(Widget<QPlainTextEdit>(*window, "memoNotes"), nullptr);
    auto* suspended = Widget<QCheckBox>(*window, "chkSuspended");
    ASSERT_NE(suspended, nullptr);
    EXPECT_EQ(suspended->text(), "Suspended");
    EXPECT_TRUE(suspended->isChecked());
    EXPECT_EQ(Widget<QPushButton>(*window, "btnOK")->text(), "OK");
    EXPECT_EQ(Widget<QPushButton>(*window, "btnCancel")->text(), "Cancel");

    // The layout's group and form-row labels are there with their texts.
    auto groups = window->findChildren<QGroupBox*>();
    ASSERT_EQ(groups.size(), 1);
    EXPECT_EQ(groups[0]->title(), "Vendor");
    QStringList labels;
    for (QLabel* l : window->findChildren<QLabel*>())
        labels << l->text();
    for (const char* text : {"Vendor No", "Name", "Currency", "Discount days", "Notes"})
        EXPECT_TRUE(labels.contains(text)) << text;
}

TEST_F(VendorWindowTest, TypingInABoxReachesTheFieldAndOKPostsIt) {
    auto* name = Widget<QLineEdit>(*window, "editVendorName");
    name->setCursorPosition(name->text().size());
    Type(name, " Ltd");
    EXPECT_EQ(form->editVendorName.Text(), "First Vendor Ltd");
    EXPECT_EQ(form->ActiveControl(), &form->editVendorName);
    // Tab is the form's: the focus moves on and the text is written to the record.
    Key(name, Qt::Key_Tab);
    EXPECT_EQ(form->ActiveControl(), &form->cboCurrency);
    EXPECT_EQ(form->tblVendor.FieldByName("VendorName").AsString(), "First Vendor Ltd");
    EXPECT_EQ(StoredName(), "First Vendor");

    Widget<QPushButton>(*window, "btnOK")->click();
    EXPECT_FALSE(form->Visible());
    EXPECT_FALSE(window->isVisible());
    EXPECT_EQ(StoredName(), "First Vendor Ltd");
}

TEST_F(VendorWindowTest, ARefusedValueIsShownInAMessageBoxAndTheFormStaysOpen) {
    AnswerBoxes("OK");
    auto* name = Widget<QLineEdit>(*window, "editVendorName");
    name->selectAll();
    Key(name, Qt::Key_Backspace);
    EXPECT_EQ(form->editVendorName.Text(), "");

    Widget<QPushButton>(*window, "btnOK")->click();
    ASSERT_EQ(messages.size(), 1u);
    EXPECT_EQ(messages[0], "Field 'Name' must have a value");
    EXPECT_TRUE(form->Visible());
    EXPECT_TRUE(window->isVisible());
    EXPECT_EQ(StoredName(), "First Vendor");
}

TEST_F(VendorWindowTest, EnterMovesTheFocusAndEscapeCancels) {
    auto* number = Widget<QLineEdit>(*window, "editVendorNo");
    auto* name = Widget<QLineEdit>(*window, "editVendorName");
    ASSERT_EQ(form->ActiveControl(), &form->editVendorNo);
    Key(number, Qt::Key_Return);
    EXPECT_EQ(form->ActiveControl(), &form->editVendorName);
    EXPECT_EQ(window->focusWidget(), name);

    name->setCursorPosition(name->text().size());
    Type(name, "X");
    Key(name, Qt::Key_Escape);
    EXPECT_FALSE(form->Visible());
    EXPECT_EQ(StoredName(), "First Vendor");
}

TEST_F(VendorWindowTest, AClickOnTheCheckBoxWritesTheField) {
    auto* suspended = Widget<QCheckBox>(*window, "chkSuspended");
    suspended->click();
    EXPECT_FALSE(form->chkSuspended.Checked());
    EXPECT_FALSE(form->tblVendor.FieldByName("Suspended").AsBoolean());
    EXPECT_FALSE(suspended->isChecked());
}

TEST_F(VendorWindowTest, TheLookUpListOpensOnTheRowsAroundTheChoiceAndAPickWritesTheKey) {
    for (auto [id, name] : {std::pair{2, "US Dollar"}, std::pair{3, "Euro"}})
        InsertRow("Currency", {{"CurrencyID", id},
                               {"CurrencyName", std::string(name)},
                               {"APGLAccountID", 1},
                               {"APDiscGLAccountID", 1},
                               {"ARGLAccountID", 1},
                               {"ARDiscGLAccountID", 1}});
    form->tblCurrency.Refresh();
    auto* currency = Widget<QComboBox>(*window, "cboCurrency");
    currency->showPopup();
    QStringList items;
    for (int i = 0; i < currency->count(); ++i)
        items << currency->itemText(i);
    currency->hidePopup();
    items.sort();
    EXPECT_EQ(items, (QStringList{"Canadian Dollar", "Euro", "US Dollar"}));
    emit currency->activated(currency->findText("US Dollar"));
    EXPECT_EQ(form->tblVendor.FieldByName("CurrencyID").AsInteger(), 2);
    EXPECT_EQ(currency->currentText(), "US Dollar");
}

TEST_F(VendorWindowTest, TextTypedInTheMemoReachesItsField) {
    auto* notes = Widget<QPlainTextEdit>(*window, "memoNotes");
    notes->insertPlainText("Pays on the 15th.\nCall first.");
    EXPECT_EQ(form->ActiveControl(), &form->memoNotes);
    EXPECT_EQ(form->memoNotes.Text(), "Pays on the 15th.\nCall first.");
    // Enter stays in the memo; Tab leaves it and writes the field.
    Key(notes, Qt::Key_Return, "\r");
    EXPECT_EQ(form->ActiveControl(), &form->memoNotes);
    Key(notes, Qt::Key_Tab);
    EXPECT_EQ(form->ActiveControl(), &form->chkSuspended);
    EXPECT_EQ(form->tblVendor.FieldByName("Notes").AsString(), "Pays on the 15th.\nCall first.\n");
}

} // namespace
} // namespace corvane::testing
