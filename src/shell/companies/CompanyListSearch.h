#pragma once

#include "ui/Keys.h"

#include <functional>
#include <string>
#include <string_view>

namespace corvane::ui {
class Edit;
class ListBox;
} // namespace corvane::ui

namespace corvane::shell {

// Typing a company name into the edit above the sorted company list: each key completes the name
// to the first company that begins with what was typed, leaving the completed tail selected so
// that the next key replaces it. Up and Down walk the list. A key that matches no company beeps
// and is dropped, so the edit always holds the start of a name in the list.
class CompanyListSearch {
public:
    // selected runs whenever the search changed the list's selection.
    CompanyListSearch(ui::ListBox& list, ui::Edit& edit, std::function<void()> selected);

    // Selects the item in the list (none for -1) and shows its name, all selected, in the edit.
    void ShowItem(int index);

private:
    void KeyPress(char& ch);
    void KeyDown(ui::Key& key);
    // The first item from the top that begins with prefix, letter case aside; -1 for none.
    int Find(std::string_view prefix) const;
    void Select(int index);

    ui::ListBox& list_;
    ui::Edit& edit_;
    std::function<void()> selected_;
};

} // namespace corvane::shell
