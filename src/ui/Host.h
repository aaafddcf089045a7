#pragma once

namespace corvane::ui {

class Form;

// The window system a form lives in. The Qt host turns forms into windows; the headless host runs
// scripts. The Application calls it; forms never talk to it directly.
class Host {
public:
    virtual ~Host() = default;

    // The form comes up as a free window, or to the front when it is up already.
    virtual void ShowForm(Form& form) = 0;
    virtual void HideForm(Form& form) = 0;
    // Shows the form modally and returns once it has closed (its ModalResult is set then).
    virtual void RunModal(Form& form) = 0;
    // The hourglass, on while any long command runs.
    virtual void SetWaitCursor(bool on) = 0;
    // A lone Alt reached a form: the menu bar of the main window takes the keyboard.
    virtual void ActivateMenuBar(Form& form) = 0;
    // After every event the user triggered: the host re-reads what it shows from the components.
    virtual void EventDone() = 0;
    // During a long command: let the window system paint progress and take pending input.
    virtual void ProcessMessages() = 0;
};

} // namespace corvane::ui
