#pragma once

#include <string>
#include <vector>

namespace corvane::store {
class DataSet;
}
namespace corvane::ui {
class Grid;
}
namespace corvane::shell {
class ListForm;
}

namespace corvane::reports {

// One column of an exported list: its heading and the field of the list's dataset it shows.
struct ExportColumn {
    std::string heading;
    std::string field;
};

// What a list's Export writes. The person picks the file: an Excel workbook (.xlsx) with the
// headings as its first row, amounts as numbers and dates as dates in the list's formats; or a
// text file (.txt), the headings on the first line and one line a row, the values as the list
// shows them.
struct ListExport {
    std::string defaultName; // "Vendors": the file offered is Vendors.xlsx
    std::vector<ExportColumn> columns;
    // In a text file: what separates the values, and whether each value that is not empty is put
    // in double quotes with its inner quotes doubled.
    char textSeparator = '\t';
    bool quoteText = false;
};

// The columns a grid shows, with their titles, in its order.
std::vector<ExportColumn> GridColumns(const ui::Grid& grid);

// A list's Export command in one call: asks for the file (through the report output's save
// dialog, "Export" with the default name) and writes every row the list holds under its filter
// and order, from the first; the list stays on the row it was on. False when the person
// cancelled.
bool ExportList(shell::ListForm& list, const ListExport& spec);

// The same without a dialog: every row of `data` to `path`, a text file when its extension is
// "txt", else a workbook. The cursor is left after the last row. Returns the rows written.
int ExportRows(store::DataSet& data, const ListExport& spec, const std::string& path);

} // namespace corvane::reports
