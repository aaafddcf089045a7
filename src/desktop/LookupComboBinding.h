#pragma once

#include "desktop/ControlBinding.h"

namespace corvane::ui {
class DBLookupComboBox;
}

namespace corvane::desktop {

class LookupComboBox;

// A look-up combo: the box shows the chosen row; its list is filled, when it opens, with the rows
// of the list cursor around the chosen one, never the whole list table.
class LookupComboBinding : public ControlBinding {
public:
    LookupComboBinding(FormWindow& window, ui::DBLookupComboBox& combo);
    QWidget* Widget() const override;
    bool RoutesKey(const QKeyEvent& event) const override;

    // How many rows the open list reads on each side of the chosen one.
    static constexpr int ListReach = 100;

protected:
    void PullState() override;

private:
    void FillList();

    ui::DBLookupComboBox& combo_;
    LookupComboBox* box_;
};

} // namespace corvane::desktop
