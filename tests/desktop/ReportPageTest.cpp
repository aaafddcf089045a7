#include "desktop/DesktopTest.h"
#include "desktop/ReportPageWidget.h"
#include "reports/page/FontMetrics.h"
#include "reports/page/ReportDocument.h"
#include "reports/preview/TfrmPreview.h"
#include "reports/render/PdfWriter.h"
#include "support/CompanyFixture.h"

#include <QImage>
#include <QLabel>
#include <QScrollArea>

#include <cstdlib>
#include <memory>
#include <optional>

namespace corvane::testing {
namespace {

constexpr int M = desktop::ReportPageWidget::Margin;
// The height of capitals in the Helvetica-metric faces, in ems.
constexpr double CapHeight = 0.718;

// The box around the dark pixels of image within area; nothing when there are none.
std::optional<QRect> InkBox(const QImage& image, const QRect& area) {
    std::optional<QRect> box;
    for (int y = area.top(); y <= area.bottom(); ++y)
        for (int x = area.left(); x <= area.right(); ++x)
            if (qGray(image.pixel(x, y)) < 128)
                box = box ? box->united(QRect(x, y, 1, 1)) : QRect(x, y, 1, 1);
    return box;
}

// One line of bold text and a rule under it, with the page's number through the total token.
std::shared_ptr<reports::ReportDocument> TextAndRule() {
    reports::Page page;
    reports::TextOp text;
    text.font = {reports::FontFamily::Sans, 24, true, false};
    text.text = "HELLO";
    text.x = 100;
    text.baseline = 200;
    text.box = {100, 180, 200, 28};
    page.ops.push_back(text);
    reports::LineOp rule;
    rule.x1 = 50;
    rule.x2 = 400;
    rule.y1 = rule.y2 = 300;
    rule.width = 2;
    page.ops.push_back(rule);
    auto document = std::make_shared<reports::ReportDocument>();
    document->StartProduction();
    document->AddPage(page);
    document->FinishProduction();
    return document;
}

class ReportPageTest : public DesktopTest {};

TEST_F(ReportPageTest, TextAndLinesLandWhereTheirOperationsPlaceThemAtEachZoom) {
    const reports::Font bold{reports::FontFamily::Sans, 24, true, false};
    for (int zoom : {100, 200}) {
        SCOPED_TRACE(zoom);
        const double s = zoom / 100.0;
        desktop::ReportPageWidget widget;
        widget.ShowPage(TextAndRule(), 1, zoom);
        EXPECT_EQ(widget.size(),
                  QSize(static_cast<int>(612 * s) + 2 * M, static_cast<int>(792 * s) + 2 * M));
        const QImage image = widget.grab().toImage();

        // The text: from its x, resting on its baseline, as wide as the engine measured it.
        auto ink = InkBox(image, QRect(M, M, static_cast<int>(600 * s), static_cast<int>(280 * s)));
        ASSERT_TRUE(ink);
        EXPECT_NEAR(ink->left(), M + 100 * s, 3 * s);
        EXPECT_NEAR(ink->bottom(), M + 200 * s, 2 * s);
        EXPECT_NEAR(ink->top(), M + (200 - CapHeight * bold.size) * s, 2 * s);
        EXPECT_NEAR(ink->width(), reports::TextWidth(bold, "HELLO") * s,
                    reports::TextWidth(bold, "HELLO") * s * 0.1);

        // The rule: across from x1 to x2 on its y, and nothing below it.
        auto rule = InkBox(image, QRect(M, M + static_cast<int>(280 * s), static_cast<int>(600 * s),
                                        static_cast<int>(100 * s)));
        ASSERT_TRUE(rule);
        EXPECT_NEAR(rule->left(), M + 50 * s, 1);
        EXPECT_NEAR(rule->right(), M + 400 * s, 1);
        EXPECT_NEAR(rule->center().y(), M + 300 * s, 1.5);
        EXPECT_LE(rule->height(), 2 * s + 1);
        EXPECT_FALSE(InkBox(image, QRect(M, M + static_cast<int>(400 * s),
                                         static_cast<int>(600 * s), static_cast<int>(300 * s))));
        // Paper is white, the preview around it is not.
        EXPECT_EQ(image.pixelColor(M + 5, M + 5), QColor(Qt::white));
        EXPECT_NE(image.pixelColor(M / 2, M / 2), QColor(Qt::white));
    }
}

TEST_F(ReportPageTest, PreviewWindowShowsPagesAsTheyArriveAndGivesThePageTheRoom) {
    auto document = std::make_shared<reports::ReportDocument>();
    document->title = "Vendors";
    document->StartProduction();
    reports::TfrmPreview* preview = nullptr;
    app.Run([&] { preview = &reports::ShowPreview(app, document); });
    desktop::FormWindow* window = host.WindowOf(*preview);
    ASSERT_NE(window, nullptr);
    auto* page = window->findChild<desktop::ReportPageWidget*>();
    ASSERT_NE(page, nullptr);
    EXPECT_EQ(page->CurrentPage(), nullptr);

    // No event ends between the pages of a running report: the page shows all the same.
    auto pages = TextAndRule();
    document->AddPage(pages->PageAt(1));
    EXPECT_NE(page->CurrentPage(), nullptr);
    document->AddPage(pages->PageAt(1));
    EXPECT_EQ(Widget<QLabel>(*window, "panelPageNumber")->text(), "Page 1 of 2");
    document->FinishProduction();

    app.Run([&] { preview->SpinEdit1.SetValue(50); });
    EXPECT_DOUBLE_EQ(page->Scale(), 0.5);
    auto* scroll = window->findChild<QScrollArea*>();
    ASSERT_NE(scroll, nullptr);
    EXPECT_GT(scroll->height(), window->height() * 3 / 4);
    EXPECT_GT(scroll->width(), window->width() * 3 / 4);

    // A picture of the window for a person to look at, when asked for one.
    if (const char* shot = std::getenv("CORVANE_PREVIEW_SHOT")) {
        app.Run([&] { preview->SpinEdit1.SetValue(100); });
        QCoreApplication::processEvents();
        EXPECT_TRUE(window->grab().save(shot));
    }
}

// The screen and the file draw each glyph from the same face at the same place: a line of names
// in four scripts has its ink at the same pixels in the preview as in the PDF as poppler draws it.
TEST_F(ReportPageTest, ThePreviewDrawsEachTextWhereThePdfDoes) {
    reports::Page page;
    const char* lines[] = {"\xC5\x81\xC3\xB3\x64\xC5\xBA \xC3\x98rsted Z\xC3\xBCrich",
                           "\xCE\x91\xCE\xB8\xCE\xAE\xCE\xBD\xCE\xB1 "
                           "\xD0\x9C\xD0\xBE\xD1\x81\xD0\xBA\xD0\xB2\xD0\xB0",
                           "\xE2\x82\xAC 1.234,56"};
    for (int i = 0; i < 3; ++i) {
        reports::TextOp text;
        text.font = {i == 1 ? reports::FontFamily::Serif : reports::FontFamily::Sans, 18, i == 2,
                     false};
        text.text = lines[i];
        text.x = 60 + 40 * i;
        text.baseline = 100 + 60 * i;
        text.box = {text.x, text.baseline - 20, 400, 26};
        page.ops.push_back(text);
    }
    auto document = std::make_shared<reports::ReportDocument>();
    document->AddPage(page);

    TempFolder folder;
    const std::string pdf = folder.Path() + "/page.pdf";
    reports::WritePdf(*document, pdf);
    const std::string command =
        "pdftoppm -r 144 -png -singlefile '" + pdf + "' '" + folder.Path() + "/paper' 2>&1";
    ASSERT_EQ(std::system(command.c_str()), 0);
    const QImage paper(QString::fromStdString(folder.Path() + "/paper.png"));
    ASSERT_FALSE(paper.isNull());

    desktop::ReportPageWidget widget;
    widget.ShowPage(document, 1, 200);
    const QImage screen = widget.grab().toImage();
    for (int i = 0; i < 3; ++i) {
        SCOPED_TRACE(i);
        const int top = (100 + 60 * i - 24) * 2, height = 34 * 2;
        auto onPaper = InkBox(paper, QRect(0, top, 1200, height));
        auto onScreen = InkBox(screen, QRect(M, M + top, 1200, height));
        ASSERT_TRUE(onPaper);
        ASSERT_TRUE(onScreen);
        const QRect shifted = onScreen->translated(-M, -M);
        EXPECT_NEAR(shifted.left(), onPaper->left(), 2);
        EXPECT_NEAR(shifted.right(), onPaper->right(), 2);
        EXPECT_NEAR(shifted.top(), onPaper->top(), 2);
        EXPECT_NEAR(shifted.bottom(), onPaper->bottom(), 2);
        // And both end where the engine measured the text to end, less the last glyph's margin.
        const auto& op = std::get<reports::TextOp>(page.ops[static_cast<std::size_t>(i)]);
        const double end = (op.x + reports::TextWidth(op.font, op.text)) * 2;
        EXPECT_NEAR(onPaper->right(), end, 6);
    }
}

} // namespace
} // namespace corvane::testing
