#pragma once

#include "ui/Host.h"

#include <QPointer>

#include <map>
#include <memory>
#include <string_view>
#include <vector>

namespace corvane::ui {
class Application;
}

namespace corvane::desktop {

class FormWindow;
class WheelKeys;

// Forms as Qt windows. A form's window is made at its first showing and follows the form after
// every event; a modal form runs Qt's modal loop until the form hides itself.
class QtHost : public ui::Host {
public:
    QtHost();
    ~QtHost() override;
    QtHost(const QtHost&) = delete;
    QtHost& operator=(const QtHost&) = delete;

    // The window of the form, when it has been shown.
    FormWindow* WindowOf(const ui::Form& form) const;
    FormWindow* WindowOf(std::string_view formName) const;

    void FormGone(ui::Form& form) override;
    void ShowForm(ui::Form& form) override;
    void HideForm(ui::Form& form) override;
    void RunModal(ui::Form& form) override;
    void SetWaitCursor(bool on) override;
    void ActivateMenuBar(ui::Form& form) override;
    void DropDownMenu(ui::MenuItem& item) override;
    void EventDone() override;
    void ProcessMessages() override;
    // The primary screen less its panels and docks.
    ui::ScreenRect WorkArea() const override;
    // The control's widget on the screen, while its window shows it.
    std::optional<ui::ScreenRect> ControlRect(const ui::Control& control) const override;

private:
    FormWindow& Window(ui::Form& form);
    ui::Application* app_ = nullptr;
    std::map<const ui::Form*, FormWindow*> windows_;
    // Windows of freed forms, deleted once Qt is out of their events.
    std::vector<QPointer<FormWindow>> dropped_;
    std::unique_ptr<WheelKeys> wheel_;
    bool refreshing_ = false;
};

} // namespace corvane::desktop
