#pragma once

#include "ui/Control.h"

#include <functional>
#include <string>
#include <vector>

namespace corvane::ui {

class MenuItem;
class ToolButton;

// A row of tool buttons above the form's work area.
class ToolBar : public Control {
public:
    ToolBar(Form& form, std::string name) : Control(form, std::move(name)) {}

    bool ShowCaptions = true;
    const std::vector<ToolButton*>& Buttons() const { return buttons_; }
    // A double click on the bar's free space.
    std::function<void()> OnDblClick;

    const char* TypeName() const override { return "ToolBar"; }

protected:
    bool Focusable() const override { return false; }

private:
    friend class ToolButton;
    std::vector<ToolButton*> buttons_;
};

// A button of a tool bar. Bound to a menu item it is that item's twin: its caption, enabled and
// visible states and click are the item's, so a form sets them in one place. Unbound it has its
// own. A button without caption or item is a separator.
class ToolButton : public Component {
public:
    ToolButton(ToolBar& bar, std::string name, MenuItem& item);
    ToolButton(ToolBar& bar, std::string name, std::string caption);
    ~ToolButton() override;

    MenuItem* Item() const { return item_; }
    std::string ImageName; // the icon the host draws
    // The unbound button's own; a bound button ignores them.
    std::string OwnCaption;
    bool OwnEnabled = true;
    bool OwnVisible = true;
    std::function<void()> OnClick;

    std::string Caption() const;
    bool Enabled() const;
    bool Visible() const;
    void Click();

    const char* TypeName() const override { return "ToolButton"; }

private:
    ToolBar& bar_;
    MenuItem* item_ = nullptr;
};

} // namespace corvane::ui
