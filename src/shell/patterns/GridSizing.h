#pragma once

#include "ui/Grid.h"

namespace corvane::shell {

// The sizes a list or a search window takes from its grid, on a screen whose density is
// factor times the usual 96 pixels per inch.
class GridSizing {
public:
    static int Scaled(int pixels, double factor);
    // Each column's width times factor, once, when the form is made.
    static void ScaleColumns(ui::Grid& grid, double factor);
    // The visible columns side by side, with room for the row indicator and the vertical scroll
    // bar beside them.
    static int ClientWidth(const ui::Grid& grid, double factor);
    // A grid showing rows rows under its title row, and above it a bar of barHeight pixels (at
    // the usual density).
    static int ClientHeight(int rows, int barHeight, double factor);
    // One grid row at the usual density.
    static constexpr int RowHeight = 18;
};

} // namespace corvane::shell
