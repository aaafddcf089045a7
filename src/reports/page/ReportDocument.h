#pragma once

#include "reports/page/Page.h"

#include <deque>
#include <functional>
#include <string>

namespace corvane::reports {

// The pages of one report run, as they come. The engine adds pages while it produces; a preview
// shows page 1 as soon as it is there and follows the count as it grows. Printing and export
// draw these pages again, so nothing is produced twice.
class ReportDocument {
public:
    std::string title;

    // Called after each page is added, with its number from 1. The engine lets the program
    // handle its messages here, which is how a preview stays live while a long report runs.
    std::function<void(int pageNumber)> OnPageAvailable;

    void AddPage(Page page);
    int PageCount() const { return static_cast<int>(pages_.size()); }
    const Page& PageAt(int number) const; // from 1

    // Production: Start, then pages, then Finish. A cancel asked for while producing makes the
    // engine stop at its next band; Finish then reports whether it stopped early.
    void StartProduction();
    void FinishProduction();
    bool Producing() const { return producing_; }
    void RequestCancel();
    bool CancelRequested() const { return cancelRequested_; }
    bool Cancelled() const { return cancelled_; }

private:
    std::deque<Page> pages_;
    bool producing_ = false;
    bool cancelRequested_ = false;
    bool cancelled_ = false;
};

} // namespace corvane::reports
