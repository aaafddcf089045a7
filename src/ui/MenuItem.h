#pragma once

#include "ui/Keys.h"
#include "ui/Menu.h"

#include <functional>
#include <string>

namespace corvane::ui {

// An entry of a menu: a command, a sub-menu (when it has items of its own) or a separator
// (caption "-"). The caption marks its accelerator with '&'.
//
//   ui::MenuItem mnuView{menu, "mnuView", "&View"};
//   ui::MenuItem mnuFilter{mnuView, "mnuFilter", "&Filter...", "Ctrl+F"};
class MenuItem : public MenuNode {
public:
    MenuItem(MenuNode& parent, std::string name, std::string caption,
             std::string_view shortCut = {});
    ~MenuItem() override;

    std::string Caption;
    bool Enabled = true;
    bool Visible = true;
    // Radio items of one GroupIndex under the same parent: checking one unchecks the others.
    bool RadioItem = false;
    int GroupIndex = 0;
    KeyStroke ShortCut;
    std::function<void()> OnClick;

    bool Checked() const { return checked_; }
    void SetChecked(bool checked);
    MenuNode& Parent() const { return *parent_; }
    bool IsSeparator() const { return Caption == "-"; }
    // Enabled and visible, and so is every item above it: a person can reach it.
    bool Usable() const;

    // The user's click, from the menu, a short cut or a tool button: the focused control writes
    // its pending edit, then OnClick runs. Nothing happens when the item cannot be reached.
    void Click();

    const char* TypeName() const override { return "MenuItem"; }

private:
    friend class MenuNode;
    MenuNode* parent_; // null once the parent has gone
    bool checked_ = false;
};

} // namespace corvane::ui
