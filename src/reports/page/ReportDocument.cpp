#include "reports/page/ReportDocument.h"

#include <stdexcept>

namespace corvane::reports {

void ReportDocument::AddPage(Page page) {
    pages_.push_back(std::move(page));
    if (OnPageAvailable) OnPageAvailable(PageCount());
}

const Page& ReportDocument::PageAt(int number) const {
    if (number < 1 || number > PageCount())
        throw std::out_of_range("Report page " + std::to_string(number) + " does not exist");
    return pages_[static_cast<std::size_t>(number - 1)];
}

void ReportDocument::StartProduction() {
    pages_.clear();
    producing_ = true;
    cancelRequested_ = false;
    cancelled_ = false;
}

void ReportDocument::FinishProduction() {
    producing_ = false;
    cancelled_ = cancelRequested_;
}

void ReportDocument::RequestCancel() {
    if (producing_) cancelRequested_ = true;
}

} // namespace corvane::reports
