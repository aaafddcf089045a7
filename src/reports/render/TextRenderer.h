#pragma once

#include "reports/page/Page.h"

#include <string>
#include <vector>

namespace corvane::reports {

class ReportDocument;

// Report pages as plain text on a grid of fixed cells, for text export and for comparing pages
// in tests. A cell is 1/12 inch wide and 1/6 inch high, the pitch of a typewriter page, so a
// Letter page is 102 columns by 66 lines. Text lands on the line of its baseline and keeps the
// alignment of its box, and is cut short rather than run into the next text on its line; lines
// draw as '-' and '|', frames with '+' at the corners, pictures as '#'. Blanks at the ends of lines
// and blank lines at the foot of a page are left out.
class TextRenderer {
public:
    static constexpr double kCellWidth = 6;   // points
    static constexpr double kCellHeight = 12; // points

    enum class PageBreak {
        FormFeed,   // "\f" between pages, as a printer takes them
        PageMarker, // a line "---- page n ----" before each page, for reading
    };

    explicit TextRenderer(PageBreak pageBreak = PageBreak::FormFeed) : pageBreak_(pageBreak) {}

    // One page's lines; page totals show `pageCount`.
    std::vector<std::string> PageLines(const Page& page, int pageCount) const;
    // Every page of the document, each line ending in "\n".
    std::string Render(const ReportDocument& document) const;

private:
    PageBreak pageBreak_;
};

} // namespace corvane::reports
