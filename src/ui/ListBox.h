#pragma once

#include "ui/Control.h"

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace corvane::ui {

// A list of texts of which one may be selected. A sorted list keeps its items in alphabetical
// order without regard to letter case, wherever they are added.
class ListBox : public Control {
public:
    ListBox(Form& form, std::string name) : Control(form, std::move(name)) {}

    bool Sorted = false;

    const std::vector<std::string>& Items() const { return items_; }
    int Count() const { return static_cast<int>(items_.size()); }
    // Replaces all items; nothing is selected afterwards.
    void SetItems(std::vector<std::string> items);
    // Adds an item (at its place when sorted, else at the end) and returns its index.
    int Add(std::string item);
    // Removes the item at index; the selection is cleared when it was that item.
    void Delete(int index);
    void Clear();
    // The index of the item that reads text without regard to letter case, -1 for none.
    int IndexOf(std::string_view text) const;

    // -1 when nothing is selected.
    int ItemIndex() const { return index_; }
    // Selects as code does: no OnClick.
    void SetItemIndex(int index);
    // The user clicks the item at index (or moves to it by keyboard): the selection changes and
    // OnClick runs.
    void ClickItem(int index);
    // The user double-clicks the selected item.
    void DblClick();

    std::function<void()> OnClick, OnDblClick;

    const char* TypeName() const override { return "ListBox"; }
    // The selected item; empty when none.
    std::string Text() const override;

protected:
    // Up, Down, Home and End move the selection as clicks would.
    void KeyDown(Key& key, Modifiers mods) override;

private:
    std::vector<std::string> items_;
    int index_ = -1;
};

} // namespace corvane::ui
