#pragma once

#include "ui/Component.h"

#include <functional>
#include <vector>

namespace corvane::ui {

class MenuItem;

// A menu, or a menu item, that holds items.
class MenuNode : public Component {
public:
    using Component::Component;
    // Items still standing under a node that goes first (members of a form are destroyed in
    // the reverse order of their making) no longer reach it.
    ~MenuNode() override;
    const std::vector<MenuItem*>& Items() const { return items_; }

private:
    friend class MenuItem;
    std::vector<MenuItem*> items_;
};

// The menu bar of a form. Its items are MenuItems made with it as their parent.
class MainMenu : public MenuNode {
public:
    explicit MainMenu(Form& form, std::string name = "mnuMain") : MenuNode(form, std::move(name)) {}
    const char* TypeName() const override { return "MainMenu"; }
};

// The menu of a right click; a control shows it through its Popup.
class PopupMenu : public MenuNode {
public:
    PopupMenu(Form& form, std::string name) : MenuNode(form, std::move(name)) {}
    // Runs before the menu opens, so that its items can be checked and enabled to suit.
    std::function<void()> OnPopup;
    void Popup() {
        if (OnPopup) OnPopup();
    }
    const char* TypeName() const override { return "PopupMenu"; }
};

} // namespace corvane::ui
