#include "ui/Control.h"

#include "ui/Form.h"
#include "ui/PageControl.h"

namespace corvane::ui {

bool Control::Showing() const {
    return Visible && (!page_ || page_->Showing());
}

bool Control::CanFocus() const {
    return Focusable() && Enabled && Showing();
}

bool Control::Focused() const {
    return OwnerForm().ActiveControl() == this;
}

void Control::SetFocus() {
    OwnerForm().FocusControl(*this);
}

} // namespace corvane::ui
