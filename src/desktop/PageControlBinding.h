#pragma once

#include "desktop/ControlBinding.h"

class QTabWidget;

namespace corvane::ui {
class PageControl;
}

namespace corvane::desktop {

class LayoutBuilder;

// Pages as tabs, each laid out from its page's own layout.
class PageControlBinding : public ControlBinding {
public:
    PageControlBinding(FormWindow& window, ui::PageControl& pages, LayoutBuilder& builder);
    QWidget* Widget() const override;
    bool RoutesKey(const QKeyEvent& event) const override;

protected:
    void PullState() override;

private:
    ui::PageControl& pages_;
    QTabWidget* tabs_;
};

} // namespace corvane::desktop
