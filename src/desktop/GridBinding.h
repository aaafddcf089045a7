#pragma once

#include "desktop/ControlBinding.h"

#include <memory>

class QTableView;

namespace corvane::ui {
class Grid;
}

namespace corvane::desktop {

class GridTableModel;

// A grid as a table view over a windowed model. Keys go to the grid, which moves the cursor;
// the view then shows the cursor's row.
class GridBinding : public ControlBinding {
public:
    GridBinding(FormWindow& window, ui::Grid& grid);
    ~GridBinding() override;
    QWidget* Widget() const override;
    bool RoutesKey(const QKeyEvent& event) const override;
    void Detach() override;
    GridTableModel& Model() const { return *model_; }
    // What the columns grew by beyond the widths the form gave them, so that the window grows
    // with them.
    int ExtraWidth() const { return extraWidth_; }

protected:
    void PullState() override;

private:
    // Marks the cursor's row in the view; with reveal, scrolls it into sight.
    void ShowCursorRow(bool reveal);

    ui::Grid& grid_;
    QTableView* view_;
    GridTableModel* model_;
    bool changed_ = true;
    int extraWidth_ = 0;
    // The grid may outlive the binding; its notices then find nothing to mark.
    std::shared_ptr<bool> alive_ = std::make_shared<bool>(true);
};

} // namespace corvane::desktop
