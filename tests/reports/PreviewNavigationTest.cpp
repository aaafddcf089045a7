#include "reports/PreviewFixture.h"

#include "ui/Keys.h"

namespace corvane::testing {
namespace {

TEST_F(PreviewTest, PageLabelFollowsTheButtonsAndStopsAtBothEnds) {
    auto& preview = Preview(FinishedReport(3));
    ui::FormDriver form(preview);
    EXPECT_EQ(PageLabel(preview), "Page 1 of 3");
    EXPECT_FALSE(form.Enabled("btnFirst"));
    EXPECT_FALSE(form.Enabled("btnPrevious"));
    EXPECT_TRUE(form.Enabled("btnNext"));

    form.Click("btnNext");
    EXPECT_EQ(PageLabel(preview), "Page 2 of 3");
    // The view draws the page the label names, its footer with the final total.
    EXPECT_EQ(preview.pageView.Text(), "Body of page 2\nPage 2 of 3");
    EXPECT_TRUE(form.Enabled("btnPrevious"));

    form.Click("btnLast");
    EXPECT_EQ(PageLabel(preview), "Page 3 of 3");
    EXPECT_FALSE(form.Enabled("btnNext"));
    EXPECT_FALSE(form.Enabled("btnLast"));
    preview.ShowPage(4);
    EXPECT_EQ(preview.PageNumber(), 3);

    form.Click("btnPrevious");
    form.Click("btnPrevious");
    EXPECT_EQ(PageLabel(preview), "Page 1 of 3");
    preview.ShowPage(0);
    EXPECT_EQ(preview.PageNumber(), 1);
    form.Click("btnLast");
    form.Click("btnFirst");
    EXPECT_EQ(preview.pageView.Text(), "Body of page 1\nPage 1 of 3");
}

TEST_F(PreviewTest, ZoomStartsAtOneHundredAndStaysWithinTwentyAndTwoHundred) {
    auto& preview = Preview(FinishedReport(1));
    ui::FormDriver form(preview);
    EXPECT_EQ(form.Text("SpinEdit1"), "100");
    EXPECT_EQ(preview.pageView.Zoom, 100);

    form.PressKey("SpinEdit1", ui::Key::Up);
    EXPECT_EQ(preview.pageView.Zoom, 110);
    form.EnterText("SpinEdit1", "500");
    EXPECT_EQ(preview.pageView.Zoom, 200);
    form.PressKey("SpinEdit1", ui::Key::Up);
    EXPECT_EQ(form.Text("SpinEdit1"), "200");

    form.EnterText("SpinEdit1", "30");
    form.PressKey("SpinEdit1", ui::Key::Down);
    form.PressKey("SpinEdit1", ui::Key::Down);
    EXPECT_EQ(form.Text("SpinEdit1"), "20");
    EXPECT_EQ(preview.pageView.Zoom, 20);
}

TEST_F(PreviewTest, FollowsTheReportWhileItIsProduced) {
    auto document = std::make_shared<reports::ReportDocument>();
    // The engine's own handler, which lets the program take its messages, still runs.
    std::vector<int> engineSaw;
    document->OnPageAvailable = [&](int n) { engineSaw.push_back(n); };
    document->StartProduction();
    auto& preview = Preview(document);
    int refreshes = 0;
    preview.pageView.HostRefresh = [&] { ++refreshes; };
    EXPECT_EQ(PageLabel(preview), "");
    EXPECT_FALSE(preview.btnPrint.Enabled);

    // A zoom chosen before the first page is the one the first page comes in.
    preview.SpinEdit1.SetValue(150);
    document->AddPage(NumberedPage(1));
    EXPECT_EQ(PageLabel(preview), "Page 1 of 1");
    EXPECT_EQ(preview.pageView.Zoom, 150);
    EXPECT_FALSE(preview.btnNext.Enabled);
    EXPECT_TRUE(preview.btnPrint.Enabled);

    document->AddPage(NumberedPage(2));
    document->AddPage(NumberedPage(3));
    EXPECT_EQ(PageLabel(preview), "Page 1 of 3");
    EXPECT_TRUE(preview.btnNext.Enabled);
    EXPECT_EQ(refreshes, 3);
    EXPECT_EQ(engineSaw, (std::vector<int>{1, 2, 3}));
    document->FinishProduction();

    // Once the preview is gone the document calls the engine alone.
    app.Run([&] { preview.Close(); });
    EXPECT_EQ(app.FindForm("frmPreview"), nullptr);
    document->AddPage(NumberedPage(4));
    EXPECT_EQ(engineSaw.back(), 4);
}

TEST_F(PreviewTest, WindowTakesItsSizeScaledCutToTheWorkAreaAndCentred) {
    host.Screen = {0, 0, 3000, 2000};
    auto& portrait = Preview(FinishedReport(1));
    EXPECT_EQ(portrait.ClientWidth, 900);
    EXPECT_EQ(portrait.ClientHeight, 1250);
    EXPECT_EQ(portrait.Left, 1050);
    EXPECT_EQ(portrait.Top, 375);
    EXPECT_EQ(portrait.Caption, app.Title + " Reports");

    auto& landscape = Preview(FinishedReport(1), true);
    EXPECT_EQ(landscape.ClientWidth, 1150);
    EXPECT_EQ(landscape.ClientHeight, 900);

    app.ScaleFactor = 1.5;
    auto& scaled = Preview(FinishedReport(1));
    EXPECT_EQ(scaled.ClientWidth, 1350);
    EXPECT_EQ(scaled.ClientHeight, 1875);
    // Below 1 the size stands as it is.
    app.ScaleFactor = 0.75;
    EXPECT_EQ(Preview(FinishedReport(1)).ClientHeight, 1250);

    app.ScaleFactor = 1.0;
    host.Screen = {100, 40, 1280, 1000};
    auto& cut = Preview(FinishedReport(1), true);
    EXPECT_EQ(cut.ClientWidth, 1150);
    EXPECT_EQ(cut.ClientHeight, 900);
    EXPECT_EQ(cut.Left, 165);
    EXPECT_EQ(cut.Top, 90);
    auto& tall = Preview(FinishedReport(1));
    EXPECT_EQ(tall.ClientHeight, 1000);
    EXPECT_EQ(tall.Top, 40);
    EXPECT_EQ(tall.Left, 290);
}

} // namespace
} // namespace corvane::testing
