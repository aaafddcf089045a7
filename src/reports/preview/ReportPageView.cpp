#include "reports/preview/ReportPageView.h"

#include "reports/page/PageText.h"

namespace corvane::reports {

const Page* ReportPageView::CurrentPage() const {
    if (PageNumber < 1 || PageNumber > PageCount()) return nullptr;
    return &Document->PageAt(PageNumber);
}

std::string ReportPageView::Text() const {
    const Page* page = CurrentPage();
    if (!page) return {};
    std::string text;
    for (const DrawOp& op : page->ops)
        if (const auto* t = std::get_if<TextOp>(&op)) {
            if (!text.empty()) text += '\n';
            text += ResolvePageTotal(*t, PageCount()).text;
        }
    return text;
}

} // namespace corvane::reports
