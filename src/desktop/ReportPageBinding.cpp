#include "desktop/ReportPageBinding.h"

#include "desktop/FormWindow.h"
#include "desktop/ReportPageWidget.h"
#include "reports/preview/ReportPageView.h"

#include <QPointer>
#include <QScrollArea>

namespace corvane::desktop {

ReportPageBinding::ReportPageBinding(FormWindow& window, reports::ReportPageView& view)
    : ControlBinding(window, view), view_(view), scroll_(new QScrollArea),
      page_(new ReportPageWidget) {
    scroll_->setBackgroundRole(QPalette::Dark);
    scroll_->setAlignment(Qt::AlignHCenter | Qt::AlignTop);
    scroll_->setWidget(page_);
    scroll_->setFocusPolicy(Qt::StrongFocus);
    scroll_->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    // The window outlives its form, but a test's or the program's end may take the window
    // first: the guarded pointer tells.
    view_.HostRefresh = [window = QPointer<FormWindow>(&window)] {
        if (window) window->Pull();
    };
}

QWidget* ReportPageBinding::Widget() const {
    return scroll_;
}

void ReportPageBinding::PullState() {
    page_->ShowPage(view_.Document, view_.PageNumber, view_.Zoom);
}

} // namespace corvane::desktop
