#pragma once

#include <functional>

class QKeyEvent;
class QWidget;

namespace corvane::ui {
class Control;
}

namespace corvane::desktop {

class FormWindow;

// The Qt widget of one control of a form, kept in step with it: what the user does to the widget
// goes to the control as the user's act, and Pull shows what the control holds after each event.
class ControlBinding {
public:
    ControlBinding(FormWindow& window, ui::Control& control) : window_(window), control_(control) {}
    virtual ~ControlBinding() = default;
    ControlBinding(const ControlBinding&) = delete;
    ControlBinding& operator=(const ControlBinding&) = delete;

    ui::Control& Control() const { return control_; }
    // What the layout places.
    virtual QWidget* Widget() const = 0;
    // What takes the keyboard focus for the control.
    virtual QWidget* FocusWidget() const { return Widget(); }
    // Shows the control's state; the widget's signals are blocked meanwhile.
    void Pull();
    // The control is gone: nothing the widget still does (painting, hiding) may read it.
    virtual void Detach() {}
    // Keys the form model handles rather than the widget itself.
    virtual bool RoutesKey(const QKeyEvent& event) const;

protected:
    virtual void PullState() = 0;
    // Runs the user's act as one event of the application.
    void UserEvent(const std::function<void()>& act) const;
    // Gives the control the focus as a mouse click would; false when the form kept it elsewhere.
    bool ClickInto() const;
    FormWindow& Window() const { return window_; }

private:
    // Red and bold while the control asks for it.
    void PullAlert();

    FormWindow& window_;
    ui::Control& control_;
};

} // namespace corvane::desktop
