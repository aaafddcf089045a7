#include "reports/render/TextRenderer.h"
#include "reports/page/PageText.h"
#include "reports/page/ReportDocument.h"

#include <gtest/gtest.h>

namespace corvane::reports {
namespace {

// A text op as the engine makes it: 10 point text whose baseline is 9 points below the top.
TextOp Text(std::string text, double left, double top, double width, Align align = Align::Left) {
    TextOp op;
    op.box = Rect{left, top, width, 12};
    op.align = align;
    op.text = std::move(text);
    op.x = left;
    op.baseline = top + 9;
    return op;
}

LineOp Line(double x1, double y1, double x2, double y2) {
    LineOp op;
    op.x1 = x1, op.y1 = y1, op.x2 = x2, op.y2 = y2;
    return op;
}

RectOp Frame(Rect rect) {
    RectOp op;
    op.rect = rect;
    return op;
}

TEST(TextRenderer, TextKeepsTheAlignmentOfItsBoxOnTheGrid) {
    Page page;
    page.ops.push_back(Text("left", 36, 36, 120));
    page.ops.push_back(Text("right", 36, 48, 120, Align::Right));   // box ends at column 26
    page.ops.push_back(Text("centre", 36, 60, 120, Align::Center)); // centre at column 16
    page.ops.push_back(Text("été", 0, 72, 60));
    const std::vector<std::string> lines = TextRenderer().PageLines(page, 1);
    ASSERT_EQ(lines.size(), 7u);
    EXPECT_EQ(lines[0], "");
    EXPECT_EQ(lines[3], "      left");
    EXPECT_EQ(lines[4], "                     right");
    EXPECT_EQ(lines[5], "             centre");
    EXPECT_EQ(lines[6], "été"); // one cell a character, not a byte
}

TEST(TextRenderer, TextStopsShortOfTheNextTextOnItsLine) {
    Page page;
    page.ops.push_back(Text("a description longer than its cells", 0, 0, 60));
    page.ops.push_back(Text("12.00", 0, 0, 120, Align::Right)); // columns 15-19
    page.ops.push_back(Text("spills into blanks", 0, 12, 60));
    const std::vector<std::string> lines = TextRenderer().PageLines(page, 1);
    ASSERT_EQ(lines.size(), 2u);
    EXPECT_EQ(lines[0], "a description  12.00");
    EXPECT_EQ(lines[1], "spills into blanks");
}

TEST(TextRenderer, LinesAndFramesDrawWithDashesBarsAndCorners) {
    Page page;
    page.ops.push_back(Line(0, 6, 60, 6));          // row 0, columns 0-9
    page.ops.push_back(Line(90, 0, 90, 36));        // column 15, rows 0-2
    page.ops.push_back(Frame(Rect{0, 48, 36, 36})); // columns 0-5, rows 4-6
    RectOp invisible = Frame(Rect{60, 48, 36, 36});
    invisible.lineWidth = 0;
    page.ops.push_back(invisible);
    page.ops.push_back(ImageOp{Rect{60, 96, 12, 12}, 1, 1, {0, 0, 0}});
    const std::vector<std::string> lines = TextRenderer().PageLines(page, 1);
    const std::vector<std::string> expected{
        "----------     |", "               |", "               |", "",
        "+----+",           "|    |",           "+----+",           "",
        "          ##",
    };
    EXPECT_EQ(lines, expected);
}

TEST(TextRenderer, PagesAreSeparatedAndShowTheirTotal) {
    ReportDocument doc;
    doc.StartProduction();
    for (int n = 1; n <= 2; ++n) {
        Page page;
        // "Page n of 2" is 11 cells, ending at column 20.
        page.ops.push_back(Text("Page " + std::to_string(n) + " of " + std::string(kPageTotalToken),
                                0, 0, 120, Align::Right));
        doc.AddPage(page);
    }
    doc.FinishProduction();
    const std::string withMarkers = TextRenderer(TextRenderer::PageBreak::PageMarker).Render(doc);
    EXPECT_EQ(withMarkers, "---- page 1 ----\n         Page 1 of 2\n"
                           "---- page 2 ----\n         Page 2 of 2\n");
    EXPECT_EQ(TextRenderer().Render(doc), "         Page 1 of 2\n\f         Page 2 of 2\n");
}

TEST(TextRenderer, NothingIsDrawnOffTheGrid) {
    Page page;
    page.ops.push_back(Text("far off", 700, 900, 60));
    page.ops.push_back(Text("edge", 600, 0, 60));
    page.ops.push_back(Line(-60, 6, 30, 6));
    const std::vector<std::string> lines = TextRenderer().PageLines(page, 1);
    ASSERT_EQ(lines.size(), 1u);
    EXPECT_EQ(lines[0], "-----" + std::string(95, ' ') + "ed");
}

} // namespace
} // namespace corvane::reports
