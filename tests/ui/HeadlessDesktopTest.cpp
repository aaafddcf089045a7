#include "HeadlessApp.h"
#include "ui/ScriptError.h"

using namespace corvane;
using namespace corvane::ui;
using corvane::testing::UiTest;

namespace {

using Desktop = UiTest;

TEST_F(Desktop, CallsAreRecordedAndAnswersComeFromTheScript) {
    DesktopServices& services = app.Desktop();
    services.OpenUrl("https://example.com/help");
    services.OpenMail("mailto:ap@example.com?subject=Cheque%201042");
    services.SetClipboardText("V00042");
    EXPECT_EQ(services.ClipboardText(), "V00042");
    desktop.LoginUser = "jsmith";
    EXPECT_EQ(services.LoginUserName(), "jsmith");

    desktop.AnswerFolder("/home/jsmith/backup");
    desktop.AnswerFolder(std::nullopt);
    EXPECT_EQ(services.PickFolder("Backup to", "/home/jsmith"), "/home/jsmith/backup");
    EXPECT_EQ(services.PickFolder("Backup to", "/home/jsmith"), std::nullopt)
        << "the user cancelled";
    EXPECT_THROW(services.PickFolder("Restore from", "/"), ScriptError);

    EXPECT_EQ(desktop.Calls(), (std::vector<std::string>{
                                   "OpenUrl https://example.com/help",
                                   "OpenMail mailto:ap@example.com?subject=Cheque%201042",
                                   "SetClipboardText V00042",
                                   "PickFolder Backup to | /home/jsmith",
                                   "PickFolder Backup to | /home/jsmith",
                                   "PickFolder Restore from | /",
                               }));
}

TEST_F(Desktop, TimersFireInTheOrderTheyFallDue) {
    std::string fired;
    app.StartTimer(30, false, [&] { fired += "B"; });
    TimerId a = app.StartTimer(20, true, [&] { fired += "A"; });
    desktop.AdvanceTime(65);
    EXPECT_EQ(fired, "ABAA");
    app.StopTimer(a);
    desktop.AdvanceTime(100);
    EXPECT_EQ(fired, "ABAA");
}

} // namespace
