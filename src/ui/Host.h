#pragma once

#include <optional>

namespace corvane::ui {

class Control;
class Form;
class MenuItem;

// A rectangle on the screen, in pixels.
struct ScreenRect {
    int Left = 0, Top = 0, Width = 0, Height = 0;
};

// The window system a form lives in. The Qt host turns forms into windows; the headless host runs
// scripts. The Application calls it; forms never talk to it directly.
class Host {
public:
    virtual ~Host() = default;

    // The form is being destroyed: its window must stop reading it at once.
    virtual void FormGone(Form&) {}
    // The form comes up as a free window, or to the front when it is up already.
    virtual void ShowForm(Form& form) = 0;
    virtual void HideForm(Form& form) = 0;
    // Shows the form modally and returns once it has closed (its ModalResult is set then).
    virtual void RunModal(Form& form) = 0;
    // The hourglass, on while any long command runs.
    virtual void SetWaitCursor(bool on) = 0;
    // A lone Alt reached a form: the menu bar of the main window takes the keyboard.
    virtual void ActivateMenuBar(Form& form) = 0;
    // Opens the sub-menu of a form's menu bar as if the person had walked to it with the keys.
    virtual void DropDownMenu(MenuItem&) {}
    // After every event the user triggered: the host re-reads what it shows from the components.
    virtual void EventDone() = 0;
    // During a long command: let the window system paint progress and take pending input.
    virtual void ProcessMessages() = 0;

    // The part of the screen that windows may cover. A host that cannot tell gives a small
    // common screen, so that what is placed on it stays visible on any real one.
    virtual ScreenRect WorkArea() const { return {0, 0, 1024, 768}; }
    // Where the control stands on the screen; nothing when the host does not know.
    virtual std::optional<ScreenRect> ControlRect(const Control&) const { return std::nullopt; }
};

} // namespace corvane::ui
