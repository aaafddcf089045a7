#include "reports/export/ReportWorkbook.h"

#include "reports/export/SheetWriter.h"
#include "reports/page/ReportDocument.h"

#include <algorithm>
#include <cmath>
#include <vector>

namespace corvane::reports {

namespace {

struct Column {
    double left = 0;
    double right = 0;
};

// Texts closer than this stand on one line.
constexpr double kSameLine = 0.5;

bool IsRow(RowKind kind) {
    return kind == RowKind::Detail || kind == RowKind::Group || kind == RowKind::Summary;
}

// The columns the texts of `kind` stand in, left to right: one for each place a field prints.
std::vector<Column> ColumnsOf(const ReportDocument& document, bool (*wanted)(RowKind)) {
    std::vector<Column> columns;
    for (int number = 1; number <= document.PageCount(); ++number) {
        for (const DrawOp& op : document.PageAt(number).ops) {
            const auto* text = std::get_if<TextOp>(&op);
            if (!text || !wanted(text->cell.row)) continue;
            const bool known = std::any_of(columns.begin(), columns.end(), [&](const Column& c) {
                return std::abs(c.left - text->box.left) < kSameLine &&
                       std::abs(c.right - text->box.Right()) < kSameLine;
            });
            if (!known) columns.push_back({text->box.left, text->box.Right()});
        }
        // The detail band prints the same fields on every page: one page shows them all,
        // unless a field is empty there.
        if (number >= 3 && !columns.empty()) break;
    }
    std::sort(columns.begin(), columns.end(),
              [](const Column& a, const Column& b) { return a.left < b.left; });
    return columns;
}

// The column a text stands under: the one its box overlaps most, or else the nearest.
std::size_t ColumnFor(const std::vector<Column>& columns, const Rect& box) {
    std::size_t best = 0;
    double bestOverlap = -1e9;
    for (std::size_t i = 0; i < columns.size(); ++i) {
        const double overlap =
            std::min(columns[i].right, box.Right()) - std::max(columns[i].left, box.left);
        if (overlap > bestOverlap) {
            bestOverlap = overlap;
            best = i;
        }
    }
    return best;
}

SheetCell CellOf(const TextOp& text) {
    const std::string format = text.cell.format ? *text.cell.format : std::string();
    switch (text.cell.kind) {
    case CellValue::Kind::Number:
        return SheetCell::Number(text.cell.value, format);
    case CellValue::Kind::Date:
        return SheetCell::Date(text.cell.value, format);
    case CellValue::Kind::Text:
        break;
    }
    return SheetCell::Text(text.text);
}

// Puts a text into its column; a second text under the same column joins a text there, or
// takes the next free column to the right.
void Place(std::vector<SheetCell>& cells, std::size_t column, SheetCell cell) {
    for (std::size_t at = column; at < cells.size(); ++at) {
        if (cells[at].kind == SheetCell::Kind::Empty) {
            cells[at] = std::move(cell);
            return;
        }
        if (cells[at].kind == SheetCell::Kind::Text && cell.kind == SheetCell::Kind::Text) {
            cells[at].text += " " + cell.text;
            return;
        }
    }
    cells.push_back(std::move(cell));
}

// The texts of one page that make rows, by line and then from left to right.
std::vector<const TextOp*> RowTexts(const Page& page, bool (*wanted)(RowKind)) {
    std::vector<const TextOp*> texts;
    for (const DrawOp& op : page.ops)
        if (const auto* text = std::get_if<TextOp>(&op); text && wanted(text->cell.row))
            texts.push_back(text);
    std::stable_sort(texts.begin(), texts.end(), [](const TextOp* a, const TextOp* b) {
        if (std::abs(a->baseline - b->baseline) >= kSameLine) return a->baseline < b->baseline;
        return a->box.left < b->box.left;
    });
    return texts;
}

// Each line of texts as one row of cells.
template <class Emit>
void Lines(const std::vector<const TextOp*>& texts, const std::vector<Column>& columns,
           Emit&& emit) {
    std::size_t at = 0;
    while (at < texts.size()) {
        std::vector<SheetCell> cells(columns.size());
        const double baseline = texts[at]->baseline;
        for (; at < texts.size() && std::abs(texts[at]->baseline - baseline) < kSameLine; ++at)
            Place(cells, ColumnFor(columns, texts[at]->box), CellOf(*texts[at]));
        emit(std::move(cells));
    }
}

} // namespace

int WriteWorkbook(const ReportDocument& document, const std::string& path) {
    std::vector<Column> columns =
        ColumnsOf(document, [](RowKind kind) { return kind == RowKind::Detail; });
    if (columns.empty()) columns = ColumnsOf(document, IsRow);
    if (columns.empty()) columns.push_back({0, 1e9});

    SheetWriter sheet(path, document.title.empty() ? "Report" : document.title);
    if (document.PageCount() > 0) {
        // The column headings repeat on each page; the first page's are the header row.
        std::vector<std::string> headings(columns.size());
        bool any = false;
        Lines(RowTexts(document.PageAt(1), [](RowKind kind) { return kind == RowKind::Heading; }),
              columns, [&](std::vector<SheetCell> cells) {
                  for (std::size_t i = 0; i < cells.size(); ++i) {
                      if (cells[i].kind != SheetCell::Kind::Text) continue;
                      if (i >= headings.size()) headings.resize(i + 1);
                      headings[i] += (headings[i].empty() ? "" : " ") + cells[i].text;
                      any = true;
                  }
              });
        if (any) sheet.AddHeader(headings);
    }
    int rows = 0;
    for (int number = 1; number <= document.PageCount(); ++number)
        Lines(RowTexts(document.PageAt(number), IsRow), columns, [&](std::vector<SheetCell> cells) {
            sheet.AddRow(cells);
            ++rows;
        });
    sheet.Finish();
    return rows;
}

} // namespace corvane::reports
