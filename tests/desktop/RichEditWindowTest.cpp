#include "desktop/DesktopTest.h"
#include "ui/Form.h"
#include "ui/Layout.h"
#include "ui/RichEdit.h"
#include "ui/SpinEdit.h"

#include <QSpinBox>
#include <QTextCursor>
#include <QTextEdit>

namespace corvane::testing {
namespace {

class NotesForm : public ui::Form {
public:
    explicit NotesForm(ui::Application& app) : Form(app, "frmNotes") {
        using namespace ui;
        spnLowest.MinValue = 1;
        spnLowest.MaxValue = 99;
        spnLowest.SetText("<All>");
        SetLayout(Column{memNotes, spnLowest});
    }
    ui::RichEdit memNotes{*this, "memNotes"};
    ui::SpinEdit spnLowest{*this, "spnLowest"};
};

class RichEditWindowTest : public DesktopTest {
protected:
    void SetUp() override {
        DesktopTest::SetUp();
        form = &app.CreateForm<NotesForm>();
        form->Show();
        window = host.WindowOf(*form);
        ASSERT_NE(window, nullptr);
        box = Widget<QTextEdit>(*window, "memNotes");
        ASSERT_NE(box, nullptr);
    }
    NotesForm* form = nullptr;
    desktop::FormWindow* window = nullptr;
    QTextEdit* box = nullptr;
};

TEST_F(RichEditWindowTest, TheBoxWritesHtmlAndFormatsTheSelection) {
    EXPECT_TRUE(box->acceptRichText());
    // Plain text written elsewhere (headless) shows as it is.
    form->memNotes.SetText("Bring <the> ladder");
    window->Pull();
    EXPECT_EQ(box->toPlainText(), "Bring <the> ladder");

    box->selectAll();
    form->memNotes.ApplyFormat(ui::RichEdit::Format::Bold);
    const std::string html = form->memNotes.Text();
    EXPECT_NE(html.find("<html"), std::string::npos) << html;
    EXPECT_NE(html.find("font-weight"), std::string::npos) << html;
    EXPECT_NE(html.find("&lt;the&gt;"), std::string::npos) << html;

    // The HTML read back shows the same text, still bold.
    form->memNotes.SetText(html);
    window->Pull();
    EXPECT_EQ(box->toPlainText(), "Bring <the> ladder");
    QTextCursor cursor(box->document());
    cursor.setPosition(2);
    EXPECT_GT(cursor.charFormat().fontWeight(), QFont::Normal);

    box->moveCursor(QTextCursor::Start);
    EXPECT_TRUE(form->memNotes.FindText("LADDER"));
    EXPECT_EQ(box->textCursor().selectedText(), "ladder");
    EXPECT_FALSE(form->memNotes.FindText("rope"));

    form->memNotes.WordWrap = false;
    window->Pull();
    EXPECT_EQ(box->lineWrapMode(), QTextEdit::NoWrap);
}

TEST_F(RichEditWindowTest, ASpinBoxShowsItsWordUntilItHoldsANumber) {
    auto* spin = Widget<QSpinBox>(*window, "spnLowest");
    ASSERT_NE(spin, nullptr);
    EXPECT_EQ(spin->text(), "<All>");
    form->spnLowest.SetValue(10);
    window->Pull();
    EXPECT_EQ(spin->text(), "10");
    EXPECT_EQ(spin->minimum(), 1);
}

} // namespace
} // namespace corvane::testing
