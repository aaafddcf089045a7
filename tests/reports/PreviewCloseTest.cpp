#include "reports/PreviewFixture.h"

#include "shell/main/FormRegistry.h"
#include "shell/main/TfrmCorvane.h"
#include "support/CompanyFixture.h"
#include "support/ScopedDataHome.h"

#include <cstdlib>
#include <optional>

namespace corvane::testing {
namespace {

TEST_F(PreviewTest, ClosingWhileProducingCancelsAndKeepsTheWindowUntilProductionStops) {
    auto document = std::make_shared<reports::ReportDocument>();
    document->StartProduction();
    auto& preview = Preview(document);
    document->AddPage(NumberedPage(1));

    app.Run([&] { preview.Close(); });
    EXPECT_EQ(dialogs.LastText(), "Report generation has been cancelled.");
    EXPECT_TRUE(document->CancelRequested());
    ASSERT_EQ(app.FindForm("frmPreview"), &preview);
    EXPECT_TRUE(preview.Visible());

    // The engine has not reached its next band yet.
    app.Run([&] { preview.Close(); });
    EXPECT_EQ(dialogs.LastText(), "Preview cannot be closed while report is being generated.");
    EXPECT_TRUE(preview.Visible());

    document->FinishProduction();
    EXPECT_TRUE(document->Cancelled());
    dialogs.ClearShown();
    app.Run([&] { preview.Close(); });
    EXPECT_TRUE(dialogs.Shown().empty());
    EXPECT_EQ(app.FindForm("frmPreview"), nullptr);
}

TEST_F(PreviewTest, SeveralPreviewsStayOpenSideBySideAndEachFreesItselfAlone) {
    auto& first = Preview(FinishedReport(1, "Vendors"));
    auto& second = Preview(FinishedReport(2, "Customers"));
    EXPECT_TRUE(first.Visible());
    EXPECT_TRUE(second.Visible());
    EXPECT_NE(&first, &second);

    EXPECT_EQ(first.Name(), "frmPreview");
    EXPECT_EQ(second.Name(), "frmPreview_1");

    app.Run([&] { first.Close(); });
    EXPECT_EQ(app.FindForm("frmPreview"), nullptr);
    ASSERT_EQ(app.FindForm("frmPreview_1"), &second);
    EXPECT_EQ(second.Document().title, "Customers");
    EXPECT_EQ(PageLabel(second), "Page 1 of 2");
    // The name freed is the next preview's.
    EXPECT_EQ(Preview(FinishedReport(1)).Name(), "frmPreview");
}

TEST_F(PreviewTest, OpenPreviewOutlivesTheClosingOfAllFormsAtACompanyChange) {
    TempFolder home;
    ScopedDataHome env(home.Path());
    shell::FormRegistry registry;
    auto& main = app.CreateForm<shell::TfrmCorvane>(registry);
    auto& preview = Preview(FinishedReport(2));
    auto& another = Preview(FinishedReport(1));
    ui::Form* other = nullptr;
    app.Run([&] {
        other = &app.CreateForm<ui::Form>("frmOther");
        other->Show();
    });

    app.Run([&] { main.CloseAllForms(); });
    EXPECT_EQ(app.FindForm("frmOther"), nullptr);
    ASSERT_EQ(app.FindForm("frmPreview"), &preview);
    EXPECT_TRUE(preview.Visible());
    EXPECT_EQ(PageLabel(preview), "Page 1 of 2");
    ASSERT_EQ(app.FindForm("frmPreview_1"), &another);
    EXPECT_TRUE(another.Visible());
}

} // namespace
} // namespace corvane::testing
