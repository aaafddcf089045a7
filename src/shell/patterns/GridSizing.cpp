#include "shell/patterns/GridSizing.h"

#include <cmath>

namespace corvane::shell {

int GridSizing::Scaled(int pixels, double factor) {
    return static_cast<int>(std::lround(pixels * factor));
}

void GridSizing::ScaleColumns(ui::Grid& grid, double factor) {
    for (ui::GridColumn& column : grid.Columns)
        column.Width = Scaled(column.Width, factor);
}

int GridSizing::ClientWidth(const ui::Grid& grid, double factor) {
    // The indicator column grows with the screen; the frame lines (4) and the gap (1) do not.
    int width = Scaled(16, factor) + 4 + 1;
    for (const ui::GridColumn& column : grid.Columns)
        if (column.Visible) width += column.Width;
    return width;
}

int GridSizing::ClientHeight(int rows, int barHeight, double factor) {
    return Scaled(barHeight + (rows + 1) * RowHeight, factor) + 4;
}

} // namespace corvane::shell
