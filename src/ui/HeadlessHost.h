#pragma once

#include "ui/Host.h"

#include <deque>
#include <functional>
#include <string>
#include <vector>

namespace corvane::ui {

// Forms without windows. A modal form runs the script queued for its name: the script plays the
// person in front of the dialog (types, clicks, answers) and must leave the form closed. What the
// host was asked to do is logged as lines: "show frmVendors", "modal frmVendorsFilter",
// "hide frmVendorsFilter", "menubar frmVendor".
class HeadlessHost : public Host {
public:
    using ModalScript = std::function<void(Form&)>;

    // What happens at the next modal showing of the form named formName.
    void ScriptModal(std::string formName, ModalScript script);
    std::size_t PendingScripts() const { return scripts_.size(); }

    const std::vector<std::string>& Log() const { return log_; }
    bool WaitCursorOn() const { return waitCursor_; }
    // Each change of the hourglass, in order: true for on.
    const std::vector<bool>& WaitCursorChanges() const { return waitChanges_; }
    int EventsDone() const { return eventsDone_; }

    void ShowForm(Form& form) override;
    void HideForm(Form& form) override;
    void RunModal(Form& form) override;
    void SetWaitCursor(bool on) override;
    void ActivateMenuBar(Form& form) override;
    void EventDone() override { ++eventsDone_; }
    void ProcessMessages() override {}

    // A fixed screen; tests may make it smaller to see forms kept on it.
    ScreenRect Screen{0, 0, 1280, 1024};
    ScreenRect WorkArea() const override { return Screen; }
    // Without windows a control is taken to cover its form, where the form has a place and size.
    std::optional<ScreenRect> ControlRect(const Control& control) const override;

private:
    std::deque<std::pair<std::string, ModalScript>> scripts_;
    std::vector<std::string> log_;
    bool waitCursor_ = false;
    std::vector<bool> waitChanges_;
    int eventsDone_ = 0;
};

} // namespace corvane::ui
