#include "HeadlessApp.h"
#include "ui/Edit.h"
#include "ui/Form.h"
#include "ui/FormDriver.h"
#include "ui/Memo.h"

using namespace corvane;
using namespace corvane::ui;
using corvane::testing::UiTest;

namespace {

class NotesForm : public Form {
public:
    explicit NotesForm(Application& app) : Form(app, "frmNotes") {
        editCode.MaxLength = 6;
        editPhone.SetEditMask("000-0000;1;_");
        SetLayout(Column{editName, editCode, editPhone, memoNotes});
    }
    Edit editName{*this, "editName"};
    Edit editCode{*this, "editCode"};
    Edit editPhone{*this, "editPhone"};
    Memo memoNotes{*this, "memoNotes"};
};

class EditCaret : public UiTest {
protected:
    void SetUp() override {
        form.Show();
        d.EnterText("editName", "Acme Tools");
    }
    NotesForm form{app};
    FormDriver d{form};
    Edit& e = form.editName;
};

TEST_F(EditCaret, TypingAndDeletingActAtTheCaret) {
    EXPECT_EQ(e.CaretPos(), 10);
    d.PressKey(Key::Home);
    d.Type("The ");
    d.PressKey(Key::End);
    d.PressKey(Key::Left);
    d.Type("x");
    EXPECT_EQ(e.Text(), "The Acme Toolxs");
    d.PressKey(Key::Backspace);
    d.PressKey(Key::Delete);
    EXPECT_EQ(e.Text(), "The Acme Tool");
    // Nothing lies beyond either end.
    d.PressKey(Key::Delete);
    d.PressKey(Key::Home);
    d.PressKey(Key::Left);
    d.PressKey(Key::Backspace);
    EXPECT_EQ(e.Text(), "The Acme Tool");
    EXPECT_EQ(e.CaretPos(), 0);
}

TEST_F(EditCaret, ShiftArrowsSelectFromAnAnchorAndTypingReplacesTheSelection) {
    d.PressKey(Key::End);
    d.PressKey(Shift(Key::Left));
    d.PressKey(Shift(Key::Left));
    EXPECT_EQ(e.SelText(), "ls");
    EXPECT_EQ(e.CaretPos(), 8);
    d.PressKey(Shift(Key::Home));
    EXPECT_EQ(e.SelText(), "Acme Tools");
    d.PressKey(Shift(Key::Right));
    EXPECT_EQ(e.SelStart(), 1);
    d.Type("-");
    EXPECT_EQ(e.Text(), "A-");
    // Left on a selection goes to its start; code selects within the text only.
    e.Select(-5, 1);
    EXPECT_EQ(e.SelText(), "A");
    d.PressKey(Key::Left);
    EXPECT_EQ(e.SelLength(), 0);
    e.SetSelLength(50);
    e.SetSelText("Bolt");
    EXPECT_EQ(e.Text(), "Bolt");
}

TEST_F(EditCaret, MaxLengthAndTheMaskHoldWhereverTheCaretIs) {
    d.EnterText("editCode", "ABCDEF");
    form.editCode.SetSelStart(2);
    int beeps = desktop.Beeps();
    d.Type("x");
    EXPECT_EQ(form.editCode.Text(), "ABCDEF");
    EXPECT_EQ(desktop.Beeps(), beeps + 1);
    form.editCode.SetSelLength(2);
    d.Type("xy");
    EXPECT_EQ(form.editCode.Text(), "ABxyEF");

    auto& phone = form.editPhone;
    d.EnterText("editPhone", "5551234");
    phone.Select(1, 2);
    d.Type("a"); // not a digit, here as at the end
    d.Type("9");
    EXPECT_EQ(phone.Text(), "595-1234");
    d.PressKey(Key::End);
    for (int i = 0; i < 5; ++i)
        d.PressKey(Key::Backspace);
    d.Type("6"); // the literal comes back with it
    EXPECT_EQ(phone.Text(), "595-6");
}

TEST_F(EditCaret, AMemoKeepsHomeAndEndToTheLineAndNoCaretSplitsACharacter) {
    d.EnterText("memoNotes", "first\nsecond");
    auto& memo = form.memoNotes;
    d.PressKey(Key::Home);
    EXPECT_EQ(memo.CaretPos(), 6);
    d.PressKey(Key::Left);
    d.PressKey(Key::Home);
    d.PressKey(Key::End);
    d.PressKey(Key::Left);
    d.PressKey(Key::Enter);
    EXPECT_EQ(memo.Text(), "firs\nt\nsecond");

    d.EnterText("editName", "Caf\xc3\xa9s");
    d.PressKey(Key::Left);
    d.PressKey(Key::Left);
    EXPECT_EQ(e.CaretPos(), 3);
    d.PressKey(Key::Delete);
    EXPECT_EQ(e.Text(), "Cafs");
}

} // namespace
