#pragma once

#include "ui/CustomEdit.h"

#include <string_view>
#include <vector>

namespace corvane::ui {

enum class ComboStyle {
    DropDown,     // the text may be typed freely
    DropDownList, // only an item of the list; a typed letter picks the next item starting with it
};

class ComboBox : public CustomEdit {
public:
    ComboBox(Form& form, std::string name, std::vector<std::string> items = {})
        : CustomEdit(form, std::move(name)), Items(std::move(items)) {}

    std::vector<std::string> Items;
    ComboStyle Style = ComboStyle::DropDownList;
    // The item the text is, -1 for none.
    int ItemIndex() const;
    // Chooses as code does; OnChange runs when the text changes.
    void SetItemIndex(int index);
    // The user picks an item from the list by its text; a ScriptError when there is none.
    void Choose(std::string_view item);
    bool DroppedDown() const { return dropped_; }
    void SetDroppedDown(bool dropped) { dropped_ = dropped; }

    const char* TypeName() const override { return "ComboBox"; }

protected:
    void KeyDown(Key& key, Modifiers mods) override;
    void KeyPress(char& ch) override;

private:
    void UserPick(int index);
    bool dropped_ = false;
};

} // namespace corvane::ui
