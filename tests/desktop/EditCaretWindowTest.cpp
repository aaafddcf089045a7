#include "desktop/DesktopTest.h"
#include "ui/Edit.h"
#include "ui/Form.h"

#include <QLineEdit>

namespace corvane::testing {
namespace {

class PhoneForm : public ui::Form {
public:
    explicit PhoneForm(ui::Application& app) : Form(app, "frmPhone") {
        editCode.MaxLength = 5;
        editPhone.SetEditMask("000-0000;1;_");
        editName.OnKeyPress = [this](char& ch) { pressed += ch; };
        SetLayout(ui::Column{ui::FormRow{"Name", editName}, ui::FormRow{"Code", editCode},
                             ui::FormRow{"Phone", editPhone}});
    }
    ui::Edit editName{*this, "editName"};
    ui::Edit editCode{*this, "editCode"};
    ui::Edit editPhone{*this, "editPhone"};
    std::string pressed;
};

class EditCaretWindowTest : public DesktopTest {
protected:
    void SetUp() override {
        DesktopTest::SetUp();
        form = &app.CreateForm<PhoneForm>();
        form->Show();
        window = host.WindowOf(*form);
        ASSERT_NE(window, nullptr);
        name = Widget<QLineEdit>(*window, "editName");
        code = Widget<QLineEdit>(*window, "editCode");
        phone = Widget<QLineEdit>(*window, "editPhone");
        ASSERT_TRUE(name && code && phone);
        name->setFocus();
        Type(name, "Acme Tools");
    }
    // Any event makes the window show the form again.
    void Refresh() {
        window->UserEvent([] {});
    }

    PhoneForm* form = nullptr;
    desktop::FormWindow* window = nullptr;
    QLineEdit *name = nullptr, *code = nullptr, *phone = nullptr;
};

TEST_F(EditCaretWindowTest, TheBoxsCaretAndSelectionReachTheControl) {
    EXPECT_EQ(form->editName.Text(), "Acme Tools");
    EXPECT_EQ(form->editName.CaretPos(), 10);
    name->setCursorPosition(4);
    EXPECT_EQ(form->editName.CaretPos(), 4);
    EXPECT_EQ(form->editName.SelLength(), 0);
    name->setSelection(5, 5);
    EXPECT_EQ(form->editName.SelText(), "Tools");
    // Typed over the selection: the control replaces it, and its key handler sees the keys.
    form->pressed.clear();
    Type(name, "Works");
    EXPECT_EQ(form->editName.Text(), "Acme Works");
    EXPECT_EQ(form->pressed, "Works");
    // Typed in the middle.
    name->setCursorPosition(4);
    Type(name, "s");
    EXPECT_EQ(form->editName.Text(), "Acmes Works");
    EXPECT_EQ(name->text(), "Acmes Works");
    EXPECT_EQ(name->cursorPosition(), 5);
    // Backspace and Delete are the box's own keys: the control takes the result.
    Key(name, Qt::Key_Backspace);
    EXPECT_EQ(form->editName.Text(), "Acme Works");
    name->setCursorPosition(0);
    Key(name, Qt::Key_Delete);
    EXPECT_EQ(form->editName.Text(), "cme Works");
    EXPECT_EQ(form->editName.CaretPos(), 0);
}

TEST_F(EditCaretWindowTest, TheKeyThatStartedABoxIsFollowedByTheNextNotReplaced) {
    // As a search opened by a typed key does: the hidden form focuses the box and puts the key
    // in it, then shows.
    form->Hide();
    form->FocusControl(form->editCode);
    form->editCode.SetText("b");
    form->Show();
    EXPECT_EQ(form->editCode.SelLength(), 0);
    EXPECT_FALSE(code->hasSelectedText());
    EXPECT_EQ(code->cursorPosition(), 1);
    Type(code, "i");
    EXPECT_EQ(form->editCode.Text(), "bi");
}

TEST_F(EditCaretWindowTest, TheControlsCaretAndSelectionShowInTheBox) {
    window->UserEvent([this] { form->editName.Select(9, 5); });
    EXPECT_EQ(name->selectedText(), "Tool");
    EXPECT_EQ(name->cursorPosition(), 5);
    window->UserEvent([this] { form->editName.SetSelStart(1); });
    EXPECT_FALSE(name->hasSelectedText());
    EXPECT_EQ(name->cursorPosition(), 1);
}

TEST_F(EditCaretWindowTest, TheLimitAndTheMaskHoldForTextTypedInTheMiddle) {
    code->setFocus();
    Type(code, "ABCDE");
    code->setCursorPosition(2);
    Type(code, "x");
    EXPECT_EQ(form->editCode.Text(), "ABCDE");
    EXPECT_EQ(code->text(), "ABCDE");

    phone->setFocus();
    Type(phone, "5551234");
    EXPECT_EQ(form->editPhone.Text(), "555-1234");
    EXPECT_EQ(phone->text(), "555-1234");
    phone->setSelection(1, 1);
    Type(phone, "a");
    EXPECT_EQ(form->editPhone.Text(), "555-1234");
    EXPECT_EQ(phone->text(), "555-1234");
    phone->setSelection(1, 1);
    Type(phone, "7");
    EXPECT_EQ(form->editPhone.Text(), "575-1234");
    EXPECT_EQ(phone->text(), "575-1234");
}

} // namespace
} // namespace corvane::testing
