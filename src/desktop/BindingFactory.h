#pragma once

#include <memory>

namespace corvane::ui {
class Control;
}

namespace corvane::desktop {

class ControlBinding;
class FormWindow;
class LayoutBuilder;

// The widget for a control, by the control's kind; a kind the host does not know shows its name
// in a plain label, so that a new control is seen rather than lost.
std::unique_ptr<ControlBinding> MakeBinding(FormWindow& window, ui::Control& control,
                                            LayoutBuilder& builder);

} // namespace corvane::desktop
