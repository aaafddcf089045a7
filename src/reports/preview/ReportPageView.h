#pragma once

#include "reports/page/Page.h"
#include "reports/page/ReportDocument.h"
#include "ui/Control.h"

#include <functional>
#include <memory>
#include <string>

namespace corvane::reports {

// One page of a report on a form, at a zoom. The host draws the page; the form decides which one
// and how large.
class ReportPageView : public ui::Control {
public:
    ReportPageView(ui::Form& form, std::string name) : Control(form, std::move(name)) {}

    std::shared_ptr<const ReportDocument> Document;
    // From 1; 0 while there is no page to show.
    int PageNumber = 0;
    // Percent of the page's size in points, as screen pixels.
    int Zoom = 100;

    // The page shown; null while there is none.
    const Page* CurrentPage() const;
    int PageCount() const { return Document ? Document->PageCount() : 0; }

    // Shows the control's state at once, in the middle of a long command: the pages of a report
    // arrive while it is produced, long before the command that produces them is over. Set by
    // the host that draws the control.
    std::function<void()> HostRefresh;
    void Refresh() const {
        if (HostRefresh) HostRefresh();
    }

    const char* TypeName() const override { return "ReportPageView"; }
    // The texts of the page in drawing order, one a line, with the page total filled in.
    std::string Text() const override;
};

} // namespace corvane::reports
