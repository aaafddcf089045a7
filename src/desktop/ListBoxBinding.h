#pragma once

#include "desktop/ControlBinding.h"

class QListWidget;

namespace corvane::ui {
class ListBox;
}

namespace corvane::desktop {

// A list box as a list widget. Clicks and double clicks go to the control; the arrow keys go to
// the form, so that the control moves its selection as it decides.
class ListBoxBinding : public ControlBinding {
public:
    ListBoxBinding(FormWindow& window, ui::ListBox& list);
    QWidget* Widget() const override;
    bool RoutesKey(const QKeyEvent& event) const override;

protected:
    void PullState() override;

private:
    ui::ListBox& list_;
    QListWidget* view_;
};

} // namespace corvane::desktop
