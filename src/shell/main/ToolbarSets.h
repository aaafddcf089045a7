#pragma once

#include <span>
#include <string_view>
#include <vector>

namespace corvane::shell {

// A button of the main tool bar and the menu entry whose handler it runs, so that the access
// check is the menu's.
struct ToolbarButtonDef {
    std::string_view Name; // "btnVendors"
    std::string_view Caption;
    std::string_view MenuPath; // as in MainMenuEntries
};

// What the system chosen in cboSystem shows on the tool bar.
struct ToolbarSet {
    std::string_view System; // the text of cboSystem
    std::vector<std::string_view> Buttons;
    std::string_view ReportsMenuPath; // what btnReports opens
};

// Every button but btnReports, in tool bar order.
std::span<const ToolbarButtonDef> ToolbarButtons();
// The sets in the order cboSystem lists them.
std::span<const ToolbarSet> ToolbarSets();
// The set of that name; null for a name not in the list (then no set's buttons show).
const ToolbarSet* FindToolbarSet(std::string_view system);

} // namespace corvane::shell
