#include "reports/preview/PrinterCheck.h"
#include "core/Exception.h"
#include "core/IniFile.h"
#include "shell/FakeCompanyShell.h"
#include "support/CompanyFixture.h"
#include "ui/Application.h"
#include "ui/Form.h"
#include "ui/HeadlessApp.h"

#include <gtest/gtest.h>

#include <filesystem>

namespace corvane::testing {
namespace {

// A main form that keeps the settings file, as the program's own does.
class SettingsMainForm : public ui::Form, public FakeCompanyShell {
public:
    SettingsMainForm(ui::Application& app, const std::filesystem::path& root)
        : Form(app, "frmCorvane"), FakeCompanyShell(root) {
        app.SetMainForm(*this);
    }
};

class PrinterCheckTest : public UiTest {
protected:
    TempFolder folder;
    SettingsMainForm& main = app.CreateForm<SettingsMainForm>(folder.Path());
    std::filesystem::path IniPath() const { return main.Settings().Path(); }
    static constexpr const char* Question =
        "No printer driver was detected. Do you have a printer installed?";
};

TEST_F(PrinterCheckTest, DefaultPrinterOrARememberedYesNeedsNoQuestion) {
    desktop.Printer = "Office Laser";
    EXPECT_TRUE(reports::PrinterCheck(app));
    EXPECT_TRUE(dialogs.Shown().empty());
    EXPECT_FALSE(IniFile(IniPath()).ValueExists("General", "PrinterInstalled"));

    desktop.Printer.clear();
    main.Settings().WriteInteger("General", "PrinterInstalled", 1);
    EXPECT_TRUE(reports::PrinterCheck(app));
    EXPECT_TRUE(dialogs.Shown().empty());
}

TEST_F(PrinterCheckTest, YesIsRememberedInTheSettingsFile) {
    main.Settings().WriteInteger("General", "PrinterInstalled", 0);
    dialogs.Answer(Question, ui::mbYes);
    EXPECT_TRUE(reports::PrinterCheck(app));
    ASSERT_EQ(dialogs.Shown().size(), 1u);
    const ui::Message& asked = dialogs.Shown()[0];
    EXPECT_EQ(asked.DefaultButton, ui::mbNo);
    EXPECT_EQ(asked.Buttons, (ui::MsgButtons{ui::mbYes, ui::mbNo}));
    // On disk, through the main form's copy of the file.
    EXPECT_EQ(IniFile(IniPath()).ReadString("General", "PrinterInstalled", ""), "1");

    // Asked once only.
    EXPECT_TRUE(reports::PrinterCheck(app));
    EXPECT_EQ(dialogs.Shown().size(), 1u);
}

TEST_F(PrinterCheckTest, NoLeavesNothingBehindAndPrintingIsRefused) {
    dialogs.Answer(Question, ui::mbNo);
    EXPECT_FALSE(reports::PrinterCheck(app));
    EXPECT_FALSE(IniFile(IniPath()).ValueExists("General", "PrinterInstalled"));

    dialogs.Answer(Question, ui::mbNo);
    try {
        reports::RequirePrinter(app);
        FAIL() << "printing went ahead without a printer";
    } catch (const Exception& e) {
        EXPECT_STREQ(e.what(), "You do not have a default printer defined.\n\nTo preview or print "
                               "reports a printer must be defined, though not necessarily "
                               "attached.");
    }
}

} // namespace
} // namespace corvane::testing
