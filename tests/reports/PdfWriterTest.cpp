#include "reports/render/PdfWriter.h"

#include "PdfTools.h"

#include "core/Exception.h"
#include "reports/page/FontMetrics.h"
#include "reports/page/PageText.h"
#include "support/CompanyFixture.h"

#include <gtest/gtest.h>

#include <csignal>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <random>
#include <regex>
#include <sstream>
#include <sys/resource.h>
#include <sys/wait.h>
#include <vector>

using namespace corvane::reports;
using corvane::testing::TempFolder;

namespace fs = std::filesystem;

namespace {

using Output = corvane::testing::ToolOutput;
using corvane::testing::Quoted;
using corvane::testing::RunTool;

std::string PageText(const std::string& pdf, int page) {
    return corvane::testing::PdfPageText(pdf, page);
}

std::string ReadFile(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    std::ostringstream bytes;
    bytes << in.rdbuf();
    return bytes.str();
}

TextOp Text(const std::string& text, double left, double baseline, double width,
            Align align = Align::Left, Font font = {}) {
    TextOp op;
    op.box = Rect{left, baseline - 10, width, 14};
    op.align = align;
    op.font = font;
    op.text = text;
    op.baseline = baseline;
    const double measured = TextWidth(font, text);
    op.x = align == Align::Left    ? left
           : align == Align::Right ? left + width - measured
                                   : left + (width - measured) / 2;
    return op;
}

// The line of `text` holding `needle`, or empty.
std::string LineWith(const std::string& text, const std::string& needle) {
    std::istringstream lines(text);
    std::string line;
    while (std::getline(lines, line))
        if (line.find(needle) != std::string::npos) return line;
    return {};
}

// A field of pdfinfo's report, by its label with single spaces ("Page 2 size"), or empty.
std::string InfoField(const std::string& info, const std::string& label) {
    std::istringstream lines(info);
    std::string line;
    while (std::getline(lines, line)) {
        const std::string single = std::regex_replace(line, std::regex(" +"), " ");
        if (single.rfind(label + ": ", 0) == 0) return single.substr(label.size() + 2);
    }
    return {};
}

int LineNumberOf(const std::string& text, const std::string& needle) {
    std::istringstream lines(text);
    std::string line;
    for (int number = 0; std::getline(lines, line); ++number)
        if (line.find(needle) != std::string::npos) return number;
    return -1;
}

class PdfWriterTest : public ::testing::Test {
protected:
    std::string File(const std::string& name) const { return folder_.Path() + "/" + name; }
    TempFolder folder_;
};

TEST_F(PdfWriterTest, PagesKeepTheirCountSizesAndTheDocumentItsTitle) {
    ReportDocument document;
    document.title = "Relev\xC3\xA9 des comptes (2026)";
    document.AddPage(Page{612, 792, {Text("Letter", 72, 72, 200)}});
    document.AddPage(Page{595, 842, {Text("A4", 72, 72, 200)}});
    document.AddPage(Page{842, 595, {Text("A4 across", 72, 72, 200)}});
    document.AddPage(Page{792, 612, {}}); // an empty page is still a page
    const std::string path = File("sizes.pdf");
    WritePdf(document, path);

    const Output info = RunTool("pdfinfo -enc UTF-8 -f 1 -l 4 " + Quoted(path));
    ASSERT_EQ(info.status, 0) << info.text;
    EXPECT_EQ(InfoField(info.text, "Pages"), "4") << info.text;
    EXPECT_EQ(InfoField(info.text, "Title"), "Relev\xC3\xA9 des comptes (2026)") << info.text;
    EXPECT_EQ(InfoField(info.text, "Creator"), "Corvane") << info.text;
    EXPECT_EQ(InfoField(info.text, "Page 1 size"), "612 x 792 pts (letter)") << info.text;
    EXPECT_EQ(InfoField(info.text, "Page 2 size"), "595 x 842 pts (A4)") << info.text;
    EXPECT_EQ(InfoField(info.text, "Page 3 size"), "842 x 595 pts (A4)") << info.text;
    EXPECT_EQ(InfoField(info.text, "Page 4 size"), "792 x 612 pts (letter)") << info.text;
    EXPECT_EQ(info.text.find("rror"), std::string::npos) << info.text;
}

TEST_F(PdfWriterTest, TextsStandWhereTheyWereLaidOut) {
    const Font bold{FontFamily::Serif, 10, true, false};
    const Font mono{FontFamily::Mono, 9, false, true};
    const std::string footer = "Page 1 of " + std::string(kPageTotalToken);
    Page first{612, 792, {}};
    first.ops = {
        Text("Account", 72, 100, 150),
        Text("Middle", 72, 100, 468, Align::Center),
        Text("1,234.56", 390, 100, 150, Align::Right, bold),
        Text("Caf\xC3\xA9 M\xC3\xBCller \xC5\x92uvre \xE2\x82\xAC"
             "5 \xE2\x80\x94 fin",
             72, 130, 400),
        Text("(a) \\ b) (", 72, 160, 400, Align::Left, mono),
        Text("\xE4\xB8\xAD", 72, 190, 100), // outside the set: drawn as a question mark
        Text(footer, 390, 760, 150, Align::Right),
    };
    Page second{612, 792, {Text("Second", 72, 100, 150)}};
    const std::string secondFooter = "Page 2 of " + std::string(kPageTotalToken);
    second.ops.push_back(Text(secondFooter, 390, 760, 150, Align::Right));

    const std::string path = File("texts.pdf");
    PdfWriter writer(path);
    writer.AddPage(first, 2);
    writer.AddPage(second, 2);
    writer.Finish();

    const std::string page1 = PageText(path, 1);
    const std::string row = LineWith(page1, "Account");
    ASSERT_FALSE(row.empty()) << page1;
    const auto account = row.find("Account");
    const auto middle = row.find("Middle");
    const auto amount = row.find("1,234.56");
    ASSERT_NE(middle, std::string::npos) << page1;
    ASSERT_NE(amount, std::string::npos) << page1;
    EXPECT_LT(account + 10, middle) << row;
    EXPECT_LT(middle + 10, amount) << row;

    EXPECT_LT(LineNumberOf(page1, "Account"),
              LineNumberOf(page1, "Caf\xC3\xA9 M\xC3\xBCller \xC5\x92uvre \xE2\x82\xAC"
                                  "5 "
                                  "\xE2\x80\x94 fin"))
        << page1;
    EXPECT_LT(LineNumberOf(page1, "Caf\xC3\xA9"), LineNumberOf(page1, "(a) \\ b) (")) << page1;
    EXPECT_LT(LineNumberOf(page1, "(a) \\ b) ("), LineNumberOf(page1, "?")) << page1;
    EXPECT_LT(LineNumberOf(page1, "?"), LineNumberOf(page1, "Page 1 of 2")) << page1;
    EXPECT_EQ(page1.find('\x1f'), std::string::npos);
    // The resolved footer ends where the amount above it ends: both are right-aligned.
    const std::string footerLine = LineWith(page1, "Page 1 of 2");
    EXPECT_NEAR(static_cast<double>(footerLine.find("Page 1 of 2") + 11),
                static_cast<double>(amount + 8), 2.0)
        << page1;

    const std::string page2 = PageText(path, 2);
    EXPECT_NE(page2.find("Second"), std::string::npos) << page2;
    EXPECT_NE(page2.find("Page 2 of 2"), std::string::npos) << page2;
    EXPECT_EQ(page2.find("Account"), std::string::npos) << page2;
}

// Reads pixel (x, y) of a binary PPM.
Color Pixel(const std::string& ppm, int x, int y) {
    std::istringstream in(ppm);
    std::string magic;
    int width = 0, height = 0, depth = 0;
    in >> magic >> width >> height >> depth;
    in.get();
    const std::size_t start = static_cast<std::size_t>(in.tellg());
    const std::size_t at = start + (static_cast<std::size_t>(y) * width + x) * 3;
    if (magic != "P6" || at + 2 >= ppm.size()) return {1, 2, 3};
    return {static_cast<std::uint8_t>(ppm[at]), static_cast<std::uint8_t>(ppm[at + 1]),
            static_cast<std::uint8_t>(ppm[at + 2])};
}

TEST_F(PdfWriterTest, ShapesAndImagesRenderInPlace) {
    ImageOp image;
    image.rect = Rect{100, 100, 200, 100};
    image.pixelWidth = 4;
    image.pixelHeight = 2;
    for (int i = 0; i < 8; ++i) {
        const bool top = i < 4;
        image.rgb.insert(image.rgb.end(),
                         {std::uint8_t(top ? 255 : 0), 0, std::uint8_t(top ? 0 : 255)});
    }
    RectOp filled{Rect{350, 100, 100, 100}, 0, {}, true, Color{0, 160, 0}};
    RectOp outlined{Rect{350, 300, 100, 100}, 4, Color{200, 0, 0}, false, {}};
    RectOp both{Rect{100, 300, 100, 100}, 2, Color{0, 0, 0}, true, Color{255, 255, 0}};
    LineOp line{72, 500, 540, 500, 6, Color{0, 0, 255}};
    ImageOp broken = image;
    broken.rgb.pop_back(); // wrong size: left out rather than read past its end
    Page page{612, 792, {image, filled, outlined, both, line, broken}};

    const std::string path = File("shapes.pdf");
    PdfWriter writer(path);
    writer.AddPage(page, 2);
    writer.AddPage(Page{842, 595, {image, Text("Landscape", 72, 72, 200)}}, 2);
    writer.Finish();

    const Output render = RunTool("pdftoppm -r 72 " + Quoted(path) + " " + Quoted(File("shot")));
    ASSERT_EQ(render.status, 0) << render.text;
    EXPECT_TRUE(render.text.empty()) << render.text;
    const std::string ppm = ReadFile(File("shot-1.ppm"));
    ASSERT_TRUE(fs::exists(File("shot-2.ppm")));

    EXPECT_EQ(Pixel(ppm, 200, 120), (Color{255, 0, 0})); // image's top row is on top
    EXPECT_EQ(Pixel(ppm, 200, 180), (Color{0, 0, 255}));
    EXPECT_EQ(Pixel(ppm, 400, 150), (Color{0, 160, 0}));
    EXPECT_EQ(Pixel(ppm, 400, 350), (Color{255, 255, 255})); // outline only
    EXPECT_EQ(Pixel(ppm, 350, 350), (Color{200, 0, 0}));
    EXPECT_EQ(Pixel(ppm, 150, 350), (Color{255, 255, 0}));
    EXPECT_EQ(Pixel(ppm, 100, 350), (Color{0, 0, 0}));
    EXPECT_EQ(Pixel(ppm, 300, 500), (Color{0, 0, 255}));
    EXPECT_EQ(Pixel(ppm, 300, 510), (Color{255, 255, 255}));
    EXPECT_EQ(Pixel(ppm, 50, 50), (Color{255, 255, 255}));

    // One picture on two pages is stored once.
    const std::string bytes = ReadFile(path);
    std::size_t images = 0;
    for (auto at = bytes.find("/Subtype /Image"); at != std::string::npos;
         at = bytes.find("/Subtype /Image", at + 1))
        ++images;
    EXPECT_EQ(images, 1u);
}

// The faces travel with the file, cut down to the glyphs it uses, so it prints the same on a
// machine without them.
TEST_F(PdfWriterTest, TheFacesUsedAreEmbeddedAsSubsets) {
    ReportDocument document;
    document.AddPage(Page{
        612,
        792,
        {Text("Sans", 72, 72, 200),
         Text("Serif bold", 72, 100, 200, Align::Left, Font{FontFamily::Serif, 10, true, false}),
         Text("Mono", 72, 130, 200, Align::Left, Font{FontFamily::Mono, 10, false, false})}});
    const std::string path = File("fonts.pdf");
    WritePdf(document, path);

    const Output fonts = RunTool("pdffonts " + Quoted(path));
    ASSERT_EQ(fonts.status, 0) << fonts.text;
    std::istringstream lines(fonts.text);
    std::string line;
    std::getline(lines, line); // heading
    std::getline(lines, line); // rule
    int embedded = 0;
    std::string names;
    while (std::getline(lines, line)) {
        std::istringstream fields(line);
        std::string name, type, more, emb, sub;
        fields >> name;
        names += name + " ";
        // "name type [type] encoding emb sub uni object id": emb and sub are the 3rd to 5th
        // fields from the end.
        std::vector<std::string> all{name};
        while (fields >> more)
            all.push_back(more);
        ASSERT_GE(all.size(), 7u) << line;
        emb = all[all.size() - 5];
        sub = all[all.size() - 4];
        EXPECT_EQ(emb, "yes") << line;
        EXPECT_EQ(sub, "yes") << line;
        // A subset is named with a tag of six capitals and a plus.
        EXPECT_EQ(name.size() > 7 ? name[6] : ' ', '+') << line;
        ++embedded;
    }
    EXPECT_EQ(embedded, 3) << fonts.text;
    EXPECT_NE(names.find("+LiberationSans "), std::string::npos) << names;
    EXPECT_NE(names.find("+LiberationSerif-Bold "), std::string::npos) << names;
    EXPECT_NE(names.find("+LiberationMono "), std::string::npos) << names;
}

TEST_F(PdfWriterTest, TenThousandPagesAreWrittenOneByOne) {
    const int pages = 10000;
    const std::string path = File("long.pdf");
    PdfWriter writer(path);
    writer.SetTitle("Long report");
    std::uintmax_t sizeAt1000 = 0, sizeAt9000 = 0;
    for (int number = 1; number <= pages; ++number) {
        Page page;
        for (int row = 0; row < 40; ++row) {
            page.ops.push_back(Text("Row " + std::to_string(row), 72, 90 + row * 16, 200));
            page.ops.push_back(Text(std::to_string(number * 100 + row) + ".00", 390, 90 + row * 16,
                                    150, Align::Right));
        }
        page.ops.push_back(LineOp{72, 80, 540, 80, 0.5, {}});
        page.ops.push_back(
            Text("Page " + std::to_string(number) + " of " + std::string(kPageTotalToken), 390, 760,
                 150, Align::Right));
        writer.AddPage(page, pages);
        // Each page is in the file once it is added, not kept back for the end.
        if (number == 1000) sizeAt1000 = fs::file_size(path);
        if (number == 9000) sizeAt9000 = fs::file_size(path);
    }
    EXPECT_GT(sizeAt1000, 100u * 1000);
    EXPECT_GT(sizeAt9000, sizeAt1000 * 8);
    writer.Finish();

    const Output info = RunTool("pdfinfo " + Quoted(path));
    ASSERT_EQ(info.status, 0) << info.text;
    EXPECT_EQ(InfoField(info.text, "Pages"), "10000") << info.text;
    const std::string last = PageText(path, pages);
    EXPECT_NE(last.find("Page 10000 of 10000"), std::string::npos) << last;
    EXPECT_NE(last.find("1000039.00"), std::string::npos) << last;
}

TEST_F(PdfWriterTest, AFolderThatIsMissingIsNamedAndNothingIsLeft) {
    const std::string path = File("no such folder/report.pdf");
    ReportDocument document;
    document.AddPage(Page{});
    try {
        WritePdf(document, path);
        FAIL() << "no error";
    } catch (const corvane::Exception& error) {
        EXPECT_NE(std::string(error.what()).find(path), std::string::npos) << error.what();
        EXPECT_NE(std::string(error.what()).find("No such file or directory"), std::string::npos)
            << error.what();
    }
    EXPECT_FALSE(fs::exists(path));
    EXPECT_FALSE(fs::exists(File("no such folder")));
}

// A full disk, as the system reports it: writes beyond the file size limit fail.
TEST_F(PdfWriterTest, AFullDiskRemovesTheHalfWrittenFile) {
    rlimit saved{};
    ASSERT_EQ(getrlimit(RLIMIT_FSIZE, &saved), 0);
    auto* previous = std::signal(SIGXFSZ, SIG_IGN);
    rlimit small = saved;
    small.rlim_cur = 64 * 1024;
    ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &small), 0);

    // Noise does not compress, so a few pages of it pass the limit.
    std::mt19937 random(7);
    const std::string path = File("full.pdf");
    std::string message;
    try {
        PdfWriter writer(path);
        for (int number = 0; number < 20; ++number) {
            ImageOp noise;
            noise.rect = Rect{72, 72, 200, 200};
            noise.pixelWidth = noise.pixelHeight = 64;
            for (int i = 0; i < 64 * 64 * 3; ++i)
                noise.rgb.push_back(static_cast<std::uint8_t>(random()));
            writer.AddPage(Page{612, 792, {noise}}, 20);
        }
        writer.Finish();
    } catch (const corvane::Exception& error) {
        message = error.what();
    }
    setrlimit(RLIMIT_FSIZE, &saved);
    std::signal(SIGXFSZ, previous);

    EXPECT_NE(message.find("Could not write the PDF file " + path), std::string::npos) << message;
    EXPECT_FALSE(fs::exists(path));
}

TEST_F(PdfWriterTest, AWriterLeftUnfinishedLeavesNoFile) {
    const std::string path = File("abandoned.pdf");
    {
        PdfWriter writer(path);
        writer.AddPage(Page{612, 792, {Text("Half", 72, 72, 100)}}, 1);
        EXPECT_TRUE(fs::exists(path));
    }
    EXPECT_FALSE(fs::exists(path));

    PdfWriter finished(path);
    finished.Finish();
    EXPECT_THROW(finished.AddPage(Page{}, 1), corvane::Exception);
    const Output info = RunTool("pdfinfo " + Quoted(path));
    EXPECT_EQ(info.status, 0) << info.text;
    // A report without pages still opens: as one blank page.
    EXPECT_EQ(InfoField(info.text, "Pages"), "1") << info.text;
}

} // namespace
