#include "ui/HeadlessHost.h"

#include "ui/Control.h"
#include "ui/Form.h"
#include "ui/ScriptError.h"

#include <algorithm>

namespace corvane::ui {

void HeadlessHost::ScriptModal(std::string formName, ModalScript script) {
    scripts_.emplace_back(std::move(formName), std::move(script));
}

void HeadlessHost::ShowForm(Form& form) {
    log_.push_back("show " + form.Name());
}

void HeadlessHost::HideForm(Form& form) {
    log_.push_back("hide " + form.Name());
}

void HeadlessHost::RunModal(Form& form) {
    log_.push_back("modal " + form.Name());
    auto it = std::find_if(scripts_.begin(), scripts_.end(),
                           [&](const auto& s) { return s.first == form.Name(); });
    if (it == scripts_.end())
        throw ScriptError("No script for the modal form '" + form.Name() + "'");
    ModalScript script = std::move(it->second);
    scripts_.erase(it);
    script(form);
    if (form.Visible())
        throw ScriptError("The modal form '" + form.Name() + "' is still open after its script");
}

std::optional<ScreenRect> HeadlessHost::ControlRect(const Control& control) const {
    const Form& form = control.OwnerForm();
    if (form.Left < 0 || form.Top < 0 || form.ClientWidth <= 0 || form.ClientHeight <= 0)
        return std::nullopt;
    return ScreenRect{form.Left, form.Top, form.ClientWidth, form.ClientHeight};
}

void HeadlessHost::SetWaitCursor(bool on) {
    waitCursor_ = on;
    waitChanges_.push_back(on);
}

void HeadlessHost::ActivateMenuBar(Form& form) {
    log_.push_back("menubar " + form.Name());
}

} // namespace corvane::ui
