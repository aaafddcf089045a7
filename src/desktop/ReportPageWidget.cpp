#include "desktop/ReportPageWidget.h"

#include "desktop/ReportPagePainter.h"
#include "reports/page/ReportDocument.h"

#include <QPaintEvent>
#include <QPainter>

#include <cmath>

namespace corvane::desktop {

ReportPageWidget::ReportPageWidget(QWidget* parent) : QWidget(parent) {}

void ReportPageWidget::ShowPage(std::shared_ptr<const reports::ReportDocument> document,
                                int pageNumber, int zoom) {
    document_ = std::move(document);
    pageNumber_ = pageNumber;
    zoom_ = zoom;
    resize(sizeHint());
    update();
}

const reports::Page* ReportPageWidget::CurrentPage() const {
    if (!document_ || pageNumber_ < 1 || pageNumber_ > document_->PageCount()) return nullptr;
    return &document_->PageAt(pageNumber_);
}

QSize ReportPageWidget::sizeHint() const {
    const reports::Page* page = CurrentPage();
    if (!page) return QSize(2 * Margin, 2 * Margin);
    return QSize(static_cast<int>(std::ceil(page->width * Scale())) + 2 * Margin,
                 static_cast<int>(std::ceil(page->height * Scale())) + 2 * Margin);
}

void ReportPageWidget::paintEvent(QPaintEvent*) {
    const reports::Page* page = CurrentPage();
    if (!page) return;
    QPainter painter(this);
    const QRectF paper(Margin, Margin, page->width * Scale(), page->height * Scale());
    painter.fillRect(paper.translated(3, 3), QColor(90, 90, 90));
    painter.fillRect(paper, Qt::white);
    painter.translate(Margin, Margin);
    painter.setClipRect(QRectF(0, 0, paper.width(), paper.height()));
    PaintReportPage(painter, *page, document_->PageCount(), Scale());
}

} // namespace corvane::desktop
