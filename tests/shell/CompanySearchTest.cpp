#include "shell/FakeCompanyShell.h"
#include "shell/companies/TfrmOrganizeCompanies.h"
#include "shell/companies/TfrmSelectCompany.h"

namespace corvane::testing {
namespace {

class CompanySearchTest : public CompanyFormsTest {
protected:
    void SetUp() override {
        for (const char* name : {"Beta Inc", "Acorn Ltd", "Acme Corp"})
            shell.Settings().WriteString("Companies", name, MakeDatabase(name));
    }
    // The edit's text and the selected list item after each step.
    std::vector<std::string> trail;
    void Note(ui::FormDriver& d) {
        trail.push_back(d.Text("editCompany") + " @" + std::to_string(ListIndex(d)));
    }
};

TEST_F(CompanySearchTest, TypingCompletesTheFirstMatchingNameAndBackspaceWidensIt) {
    auto& form = app.CreateForm<shell::TfrmSelectCompany>(shell);
    WhenShown("frmSelectCompany", [&](ui::FormDriver& d) {
        EXPECT_EQ(d.FocusedName(), "editCompany");
        Note(d);
        for (char ch : std::string("bac")) {
            d.Type(std::string(1, ch));
            Note(d);
        }
        d.Type("O");
        Note(d);
        d.PressKey(ui::Key::Backspace); // drops the completed tail
        Note(d);
        d.Type("e");
        Note(d);
        d.PressKey(ui::Key::Backspace);
        Note(d);
        d.PressKey(ui::Key::Backspace); // one letter
        Note(d);
        d.PressKey(ui::Key::Backspace); // nothing left: every name matches
        Note(d);
        d.Type("z");
        Note(d);
        d.Type("s");
        Note(d);
        d.Click("btnCancel");
    });
    form.ShowModal();
    EXPECT_EQ(trail, (std::vector<std::string>{
                         "Acme Corp @0",
                         "Beta Inc @2", // all selected: "b" alone
                         "Beta Inc @2", // "ba" matches nothing
                         "Beta Inc @2", // nor "bc"
                         "Beta Inc @2", // nor "bo"
                         "B @2",        // prefix "Beta In"
                         "Beta Inc @2",
                         "Be @2",
                         "B @2",
                         " @0",
                         " @0", // "z" matches nothing
                         "Sample Data @3",
                     }));
    EXPECT_EQ(desktop.Beeps(), 4);
}

TEST_F(CompanySearchTest, TheCompletedTailIsReplacedByTheNextKey) {
    auto& form = app.CreateForm<shell::TfrmSelectCompany>(shell);
    WhenShown("frmSelectCompany", [&](ui::FormDriver& d) {
        d.Type("a");
        Note(d);
        d.Type("C");
        Note(d);
        d.Type("o");
        Note(d);
        d.PressKey(ui::Key::Backspace);
        Note(d);
        d.PressKey(ui::Key::Backspace);
        Note(d);
        d.Type("x");
        Note(d);
        d.Type("m");
        Note(d);
        d.Click("btnCancel");
    });
    form.ShowModal();
    EXPECT_EQ(trail, (std::vector<std::string>{
                         "Acme Corp @0",
                         "Acme Corp @0",
                         "Acorn Ltd @1",
                         "Aco @1",
                         "Ac @0",
                         "Ac @0",
                         "Acme Corp @0",
                     }));
    EXPECT_EQ(desktop.Beeps(), 1);
}

TEST_F(CompanySearchTest, UpAndDownWalkTheListAndStopAtItsEnds) {
    auto& form = app.CreateForm<shell::TfrmOrganizeCompanies>(shell);
    WhenShown("frmOrganizeCompanies", [&](ui::FormDriver& d) {
        d.PressKey(ui::Key::Up);
        Note(d);
        for (int i = 0; i < 4; ++i)
            d.PressKey(ui::Key::Down);
        Note(d);
        EXPECT_FALSE(d.Enabled("btnDelete"));
        d.PressKey(ui::Key::Up);
        Note(d);
        EXPECT_TRUE(d.Enabled("btnDelete"));
        // Everything is selected after a move, so a letter starts a new name.
        d.Type("s");
        Note(d);
        EXPECT_FALSE(d.Enabled("btnDelete"));
        d.Click("btnClose");
    });
    form.ShowModal();
    EXPECT_EQ(trail, (std::vector<std::string>{"Acme Corp @0", "Sample Data @3", "Beta Inc @2",
                                               "Sample Data @3"}));
    EXPECT_EQ(desktop.Beeps(), 0);
}

} // namespace
} // namespace corvane::testing
