#pragma once

#include "store/DataSet.h"

#include <string>
#include <vector>

namespace corvane::ui {

// Display texts of a few rows of a cursor around its current row: what a grid or a drop-down list
// shows, read without touching the rest of the table.
struct RowWindow {
    std::vector<std::vector<std::string>> Rows; // one text per asked field, in the asked order
    int Current = -1;                           // the cursor's current row in Rows; -1 when empty
};

// Reads up to `before` rows ahead of the current one, the current one and up to `after` rows
// behind it, in the cursor's order, without moving the cursor; a cursor in Edit or Insert gives
// its current record only.
RowWindow ReadRowWindow(store::DataSet& dataSet, const std::vector<std::string>& fieldNames,
                        int before, int after);

} // namespace corvane::ui
