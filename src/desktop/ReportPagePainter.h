#pragma once

class QPainter;

namespace corvane::reports {
struct Page;
}

namespace corvane::desktop {

// Draws a report page with the painter's origin at the top left of the paper, scale device pixels
// to the point: the screen's preview at its zoom and the printer at its resolution alike, so the
// paper shows what the preview showed. Texts holding the page total show pageCount.
void PaintReportPage(QPainter& painter, const reports::Page& page, int pageCount, double scale);

} // namespace corvane::desktop
