#include "reports/render/TextRenderer.h"

#include "reports/page/PageText.h"
#include "reports/page/ReportDocument.h"

#include <algorithm>
#include <cmath>

namespace corvane::reports {

namespace {

// A page of cells, each holding one UTF-8 character.
class Grid {
public:
    Grid(int columns, int rows)
        : columns_(columns),
          cells_(static_cast<std::size_t>(rows),
                 std::vector<std::string>(static_cast<std::size_t>(columns), " ")) {}

    int Rows() const { return static_cast<int>(cells_.size()); }

    void Put(int row, int column, std::string character) {
        if (row < 0 || row >= Rows() || column < 0 || column >= columns_) return;
        cells_[static_cast<std::size_t>(row)][static_cast<std::size_t>(column)] =
            std::move(character);
    }

    // Lines meet lines: a crossing or a corner shows '+'.
    void PutLine(int row, int column, const char* character) {
        if (row < 0 || row >= Rows() || column < 0 || column >= columns_) return;
        std::string& cell = cells_[static_cast<std::size_t>(row)][static_cast<std::size_t>(column)];
        const bool isLine = cell == "-" || cell == "|" || cell == "+";
        cell = isLine && cell != character ? "+" : character;
    }

    std::vector<std::string> Lines() const {
        std::vector<std::string> lines;
        for (const auto& row : cells_) {
            std::string line;
            for (const auto& cell : row)
                line += cell;
            line.erase(line.find_last_not_of(' ') + 1);
            lines.push_back(std::move(line));
        }
        while (!lines.empty() && lines.back().empty())
            lines.pop_back();
        return lines;
    }

private:
    int columns_;
    std::vector<std::vector<std::string>> cells_;
};

std::vector<std::string> Characters(const std::string& text) {
    std::vector<std::string> characters;
    for (std::size_t i = 0; i < text.size();) {
        std::size_t length = 1;
        while (i + length < text.size() &&
               (static_cast<unsigned char>(text[i + length]) & 0xC0) == 0x80)
            ++length;
        characters.push_back(text.substr(i, length));
        i += length;
    }
    return characters;
}

int Column(double x) {
    return static_cast<int>(std::lround(x / TextRenderer::kCellWidth));
}

int Row(double y) {
    return static_cast<int>(std::floor(y / TextRenderer::kCellHeight));
}

// The line holding the last point above y: a frame that ends on a cell boundary ends in the cell
// above it, not in the next one.
int LastRow(double y) {
    return Row(y - 0.01);
}

// A text placed on the grid: its line, first column and characters.
struct PlacedText {
    int row = 0;
    int column = 0;
    std::vector<std::string> characters;
};

PlacedText Place(const TextOp& op) {
    PlacedText placed{Row(op.baseline), Column(op.box.left), Characters(op.text)};
    const int length = static_cast<int>(placed.characters.size());
    if (op.align == Align::Right) placed.column = Column(op.box.Right()) - length;
    if (op.align == Align::Center)
        placed.column = Column(op.box.left + op.box.width / 2) - length / 2;
    return placed;
}

// Proportional text takes fewer points than it takes cells, so a text that fits its box on paper
// may run on over the grid. It may use blank cells, but stops one short of the next text on its
// line, which stays whole.
void DrawTexts(Grid& grid, std::vector<PlacedText> texts) {
    std::stable_sort(texts.begin(), texts.end(), [](const PlacedText& a, const PlacedText& b) {
        return a.row != b.row ? a.row < b.row : a.column < b.column;
    });
    for (std::size_t i = 0; i < texts.size(); ++i) {
        PlacedText& text = texts[i];
        if (i + 1 < texts.size() && texts[i + 1].row == text.row &&
            texts[i + 1].column > text.column) {
            const int room = texts[i + 1].column - 1 - text.column;
            if (static_cast<int>(text.characters.size()) > room)
                text.characters.resize(static_cast<std::size_t>(std::max(room, 0)));
        }
        for (std::size_t c = 0; c < text.characters.size(); ++c)
            grid.Put(text.row, text.column + static_cast<int>(c), text.characters[c]);
    }
}

void DrawHorizontal(Grid& grid, int row, int from, int to) {
    for (int column = std::min(from, to); column <= std::max(from, to); ++column)
        grid.PutLine(row, column, "-");
}

void DrawVertical(Grid& grid, int column, int from, int to) {
    for (int row = std::min(from, to); row <= std::max(from, to); ++row)
        grid.PutLine(row, column, "|");
}

void DrawLine(Grid& grid, const LineOp& op) {
    if (std::abs(op.y1 - op.y2) <= std::abs(op.x1 - op.x2))
        DrawHorizontal(grid, Row((op.y1 + op.y2) / 2), Column(op.x1), Column(op.x2) - 1);
    else
        DrawVertical(grid, Column((op.x1 + op.x2) / 2), Row(std::min(op.y1, op.y2)),
                     LastRow(std::max(op.y1, op.y2)));
}

void DrawRect(Grid& grid, const RectOp& op) {
    if (op.lineWidth <= 0) return;
    const int left = Column(op.rect.left), right = Column(op.rect.Right()) - 1;
    const int top = Row(op.rect.top), bottom = LastRow(op.rect.Bottom());
    DrawHorizontal(grid, top, left, right);
    DrawHorizontal(grid, bottom, left, right);
    DrawVertical(grid, left, top, bottom);
    DrawVertical(grid, right, top, bottom);
}

void DrawImage(Grid& grid, const ImageOp& op) {
    for (int row = Row(op.rect.top); row <= LastRow(op.rect.Bottom()); ++row)
        for (int column = Column(op.rect.left); column < Column(op.rect.Right()); ++column)
            grid.Put(row, column, "#");
}

} // namespace

std::vector<std::string> TextRenderer::PageLines(const Page& page, int pageCount) const {
    Grid grid(static_cast<int>(std::lround(page.width / kCellWidth)),
              static_cast<int>(std::lround(page.height / kCellHeight)));
    std::vector<PlacedText> texts;
    for (const DrawOp& op : page.ops) {
        if (const auto* text = std::get_if<TextOp>(&op))
            texts.push_back(Place(ResolvePageTotal(*text, pageCount)));
        else if (const auto* line = std::get_if<LineOp>(&op))
            DrawLine(grid, *line);
        else if (const auto* rect = std::get_if<RectOp>(&op))
            DrawRect(grid, *rect);
        else if (const auto* image = std::get_if<ImageOp>(&op))
            DrawImage(grid, *image);
    }
    // Text goes over the lines and frames it sits on.
    DrawTexts(grid, std::move(texts));
    return grid.Lines();
}

std::string TextRenderer::Render(const ReportDocument& document) const {
    std::string out;
    const int count = document.PageCount();
    for (int number = 1; number <= count; ++number) {
        if (pageBreak_ == PageBreak::PageMarker)
            out += "---- page " + std::to_string(number) + " ----\n";
        else if (number > 1)
            out += "\f";
        for (const std::string& line : PageLines(document.PageAt(number), count))
            out += line + "\n";
    }
    return out;
}

} // namespace corvane::reports
