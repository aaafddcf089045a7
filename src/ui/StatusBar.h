#pragma once

#include "ui/Control.h"

#include <string>
#include <vector>

namespace corvane::ui {

struct StatusPanel {
    std::string Text;
    int Width = 100; // pixels; the last panel takes what is left
};

// The line of panels at the foot of a form; with SimplePanel, one text across.
class StatusBar : public Control {
public:
    StatusBar(Form& form, std::string name) : Control(form, std::move(name)) {}

    std::vector<StatusPanel> Panels;
    bool SimplePanel = false;
    std::string SimpleText;

    const char* TypeName() const override { return "StatusBar"; }
    // The simple text, or the panels' texts separated by " | ".
    std::string Text() const override {
        if (SimplePanel) return SimpleText;
        std::string text;
        for (std::size_t i = 0; i < Panels.size(); ++i)
            text += (i ? " | " : "") + Panels[i].Text;
        return text;
    }

protected:
    bool Focusable() const override { return false; }
};

} // namespace corvane::ui
