#include "HeadlessApp.h"
#include "core/Exception.h"
#include "ui/Button.h"
#include "ui/Form.h"
#include "ui/FormDriver.h"
#include "ui/ScriptError.h"
#include "ui/WaitCursor.h"

using namespace corvane;
using namespace corvane::ui;
using corvane::testing::UiTest;

namespace {

using MessageLoop = UiTest;

TEST_F(MessageLoop, AnExceptionFromAClickIsShownWithItsMessageAndTheApplicationTitle) {
    app.Title = "Corvane - Northwind Traders";
    Form form(app, "frmVendors");
    Button btnDelete(form, "btnDelete", "Delete");
    int after = 0;
    btnDelete.OnClick = [&] {
        throw Exception("Unable to delete 'Acme'...\rIt has invoices.");
        ++after;
    };
    form.Show();
    FormDriver(form).Click("btnDelete");
    ASSERT_EQ(dialogs.Shown().size(), 1u);
    const Message& shown = dialogs.Shown()[0];
    EXPECT_EQ(shown.Title, "Corvane - Northwind Traders");
    EXPECT_EQ(shown.Text, "Unable to delete 'Acme'...\rIt has invoices.");
    EXPECT_EQ(shown.Type, MsgType::Error);
    EXPECT_EQ(shown.Buttons, MsgButtons({mbOK}));
    EXPECT_EQ(after, 0);

    // Any exception of the standard library gets the same treatment.
    app.Run([] { throw std::runtime_error("disk full"); });
    EXPECT_EQ(dialogs.LastText(), "disk full");
}

TEST_F(MessageLoop, AbortEndsTheHandlerSilently) {
    int reached = 0;
    app.Run([&] {
        ++reached;
        Abort();
        ++reached;
    });
    EXPECT_EQ(reached, 1);
    EXPECT_TRUE(dialogs.Shown().empty());
    // The loop goes on after it.
    app.Run([&] { ++reached; });
    EXPECT_EQ(reached, 2);
}

TEST_F(MessageLoop, ScriptErrorsPassThroughSoATestFailsLoudly) {
    EXPECT_THROW(app.Run([] { throw ScriptError("No component 'btnFoo' on form 'frmX'"); }),
                 ScriptError);
    EXPECT_TRUE(dialogs.Shown().empty());
    EXPECT_FALSE(app.InEvent());
}

TEST_F(MessageLoop, TheHostRefreshesOnceAfterEachOutermostEvent) {
    app.Run([&] {
        app.Run([] {});
        app.Run([] { throw Exception("inner"); });
    });
    EXPECT_EQ(host.EventsDone(), 1);
    EXPECT_EQ(dialogs.LastText(), "inner");
}

TEST_F(MessageLoop, WaitCursorNestsAndIsResetOnTheExceptionPath) {
    app.Run([&] {
        WaitCursor outer(app);
        {
            WaitCursor inner(app);
            EXPECT_EQ(app.WaitDepth(), 2);
        }
        EXPECT_TRUE(host.WaitCursorOn());
        throw Exception("Posting failed");
    });
    EXPECT_FALSE(host.WaitCursorOn());
    EXPECT_EQ(app.WaitDepth(), 0);
    // On once, off once: the nested use does not flicker it.
    EXPECT_EQ(host.WaitCursorChanges(), (std::vector<bool>{true, false}));
    // The box comes after the cursor is back to normal.
    EXPECT_EQ(dialogs.LastText(), "Posting failed");
}

TEST_F(MessageLoop, TimerCallbacksRunAsEvents) {
    int ticks = 0;
    TimerId id = app.StartTimer(100, true, [&] {
        if (++ticks == 2) throw Exception("Dialer lost the line");
    });
    desktop.AdvanceTime(250);
    EXPECT_EQ(ticks, 2);
    EXPECT_EQ(dialogs.LastText(), "Dialer lost the line");
    app.StopTimer(id);
    desktop.AdvanceTime(1000);
    EXPECT_EQ(ticks, 2);

    bool once = false;
    app.StartTimer(50, false, [&] { once = !once; });
    desktop.AdvanceTime(500);
    EXPECT_TRUE(once);
    EXPECT_EQ(desktop.RunningTimers(), 0u);
}

} // namespace
