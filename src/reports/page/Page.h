#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <variant>
#include <vector>

namespace corvane::reports {

// A laid-out report page is a list of drawing operations in points (1/72 inch), origin at the
// top left of the paper. Every renderer (plain text, PDF, screen, printer) draws the same list,
// so what the preview shows is what the paper and the file get.

struct Rect {
    double left = 0;
    double top = 0;
    double width = 0;
    double height = 0;
    double Right() const { return left + width; }
    double Bottom() const { return top + height; }
};

struct Color {
    std::uint8_t r = 0, g = 0, b = 0;
    friend bool operator==(const Color&, const Color&) = default;
};

enum class FontFamily { Sans, Serif, Mono };

struct Font {
    FontFamily family = FontFamily::Sans;
    double size = 10; // points
    bool bold = false;
    bool italic = false;
    friend bool operator==(const Font&, const Font&) = default;
};

enum class Align { Left, Center, Right };

// Which kind of band printed a text, as a spreadsheet of the report sorts them: the column
// headings, the lines of the detail, group and summary bands, and the rest (titles, page headers
// and footers) that a sheet leaves out.
enum class RowKind : std::uint8_t { None, Heading, Detail, Group, Summary };

// What a spreadsheet cell of a printed text holds: the text, or the number or date it shows.
struct CellValue {
    enum class Kind : std::uint8_t { Text, Number, Date };
    Kind kind = Kind::Text;
    RowKind row = RowKind::None;
    double value = 0; // a date counts days from 30 December 1899
    // The spreadsheet's number or date format; shared by every text of one print object.
    std::shared_ptr<const std::string> format;
};

// One line of text, already fitted and aligned by the engine: `x` and `baseline` place it; `box`
// and `align` say where the designer put it, which the plain-text renderer uses to place the
// characters on its grid.
struct TextOp {
    Rect box;
    Align align = Align::Left;
    Font font;
    Color color;
    std::string text; // UTF-8
    double x = 0;
    double baseline = 0;
    CellValue cell;
};

struct LineOp {
    double x1 = 0, y1 = 0, x2 = 0, y2 = 0;
    double width = 0.5;
    Color color;
};

struct RectOp {
    Rect rect;
    double lineWidth = 0.5; // 0: no outline
    Color color;
    bool filled = false;
    Color fill{255, 255, 255};
};

// An image as 8-bit RGB rows, scaled into `rect`.
struct ImageOp {
    Rect rect;
    int pixelWidth = 0;
    int pixelHeight = 0;
    std::vector<std::uint8_t> rgb; // pixelWidth * pixelHeight * 3 bytes
};

using DrawOp = std::variant<TextOp, LineOp, RectOp, ImageOp>;

struct Page {
    double width = 612; // points; Letter portrait
    double height = 792;
    std::vector<DrawOp> ops;
};

} // namespace corvane::reports
