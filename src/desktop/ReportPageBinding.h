#pragma once

#include "desktop/ControlBinding.h"

class QScrollArea;

namespace corvane::reports {
class ReportPageView;
}

namespace corvane::desktop {

class ReportPageWidget;

// A report page view as a scrolling page: the page, page number and zoom come from the control
// after each event, and at once when the control asks while its report is being produced.
class ReportPageBinding : public ControlBinding {
public:
    ReportPageBinding(FormWindow& window, reports::ReportPageView& view);

    QWidget* Widget() const override;
    ReportPageWidget* Page() const { return page_; }

protected:
    void PullState() override;

private:
    reports::ReportPageView& view_;
    QScrollArea* scroll_;
    ReportPageWidget* page_;
};

} // namespace corvane::desktop
