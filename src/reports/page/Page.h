#pragma once

#include <cstdint>
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
