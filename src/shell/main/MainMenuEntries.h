#pragma once

#include <span>
#include <string>
#include <string_view>

namespace corvane::shell {

// How a menu entry brings up its form.
enum class OpenKind {
    Plain,          // make it if missing, restore it, run its show again if it is up, show it
    List,           // as Plain, after re-reading its list and switching its filter off
    ListNoRefresh,  // as List, without re-reading the table
    Outstanding,    // as List, then only the open rows: the entry's filter expression
    FilterFirst,    // its filter dialog first, modal; the list follows if the dialog says so
    PlainQueryList, // as Plain, with its filter dialog reset and its query read afresh
    Modal,          // made, shown modal and freed
    Show,           // shown as it was left (report menus)
};

// One entry of the main menu that opens a working form: where it stands, the Users field that
// guards it and how the refusal names it, and the form it opens by component name.
struct MainMenuEntry {
    std::string_view Path;    // captions from the File menu on, joined by ", "
    std::string_view Right;   // the Users field; empty for none
    std::string_view Refusal; // the name in the refusal; empty: the right's own name
    std::string_view Form;    // component name
    OpenKind Open;
    std::string_view Filter = {}; // the Outstanding expression
    // Outstanding only: the open rows are already shown when the list has them and no filter,
    // so the entry leaves the list as it is.
    bool KeepOutstanding = false;
};

// The entries in menu order; their captions carry the accelerators the menu shows.
std::span<const MainMenuEntry> MainMenuEntries();

// "mnu" and the entry's path without blanks, marks and dots: "mnuAROtherCustomerTypes".
std::string MenuItemName(std::string_view path);

} // namespace corvane::shell
