#include "desktop/QtHost.h"

#include "desktop/ControlBinding.h"
#include "desktop/FormWindow.h"
#include "desktop/WheelKeys.h"
#include "ui/Application.h"
#include "ui/Control.h"
#include "ui/Form.h"
#include "ui/MenuItem.h"

#include <QApplication>
#include <QMenuBar>
#include <QScreen>

#include <algorithm>

namespace corvane::desktop {

QtHost::QtHost() : wheel_(std::make_unique<WheelKeys>()) {}

QtHost::~QtHost() {
    // The application and its forms may have gone before the host.
    for (auto& [form, window] : windows_) {
        window->Orphan();
        delete window;
    }
    for (const QPointer<FormWindow>& window : dropped_)
        delete window.data();
}

FormWindow* QtHost::WindowOf(const ui::Form& form) const {
    auto it = windows_.find(&form);
    return it == windows_.end() ? nullptr : it->second;
}

FormWindow* QtHost::WindowOf(std::string_view formName) const {
    if (!app_) return nullptr;
    ui::Form* form = app_->FindForm(formName);
    return form ? WindowOf(*form) : nullptr;
}

FormWindow& QtHost::Window(ui::Form& form) {
    app_ = &form.App();
    if (FormWindow* w = WindowOf(form)) return *w;
    auto* window = new FormWindow(*this, form);
    windows_.emplace(&form, window);
    return *window;
}

void QtHost::FormGone(ui::Form& form) {
    auto it = windows_.find(&form);
    if (it == windows_.end()) return;
    FormWindow* window = it->second;
    windows_.erase(it);
    // The window may be inside one of its own events: it is cut off now and deleted later.
    window->Orphan();
    window->hide();
    window->deleteLater();
    dropped_.erase(std::remove(dropped_.begin(), dropped_.end(), nullptr), dropped_.end());
    dropped_.emplace_back(window);
}

void QtHost::ShowForm(ui::Form& form) {
    FormWindow& w = Window(form);
    w.Pull();
    w.show();
    w.raise();
    w.activateWindow();
}

void QtHost::HideForm(ui::Form& form) {
    if (FormWindow* w = WindowOf(form)) w->hide();
    if (app_ && app_->MainForm() == &form) QCoreApplication::exit(0);
}

void QtHost::RunModal(ui::Form& form) {
    FormWindow& w = Window(form);
    if (!form.Visible()) return;
    w.Pull();
    w.setWindowModality(Qt::ApplicationModal);
    w.exec();
}

void QtHost::SetWaitCursor(bool on) {
    if (on)
        QApplication::setOverrideCursor(Qt::WaitCursor);
    else
        QApplication::restoreOverrideCursor();
}

void QtHost::ActivateMenuBar(ui::Form& form) {
    FormWindow* w = WindowOf(form);
    QMenuBar* bar = w ? w->MenuBar() : nullptr;
    if (bar && !bar->actions().isEmpty()) bar->setActiveAction(bar->actions().first());
}

void QtHost::DropDownMenu(ui::MenuItem& item) {
    if (FormWindow* w = WindowOf(item.OwnerForm())) w->DropDownMenu(item);
}

ui::ScreenRect QtHost::WorkArea() const {
    QScreen* screen = QGuiApplication::primaryScreen();
    if (!screen) return Host::WorkArea();
    QRect area = screen->availableGeometry();
    return {area.x(), area.y(), area.width(), area.height()};
}

std::optional<ui::ScreenRect> QtHost::ControlRect(const ui::Control& control) const {
    FormWindow* w = WindowOf(control.OwnerForm());
    ControlBinding* binding = w ? w->BindingOf(control) : nullptr;
    QWidget* widget = binding ? binding->Widget() : nullptr;
    if (!widget || !widget->isVisible()) return std::nullopt;
    QPoint topLeft = widget->mapToGlobal(QPoint(0, 0));
    return ui::ScreenRect{topLeft.x(), topLeft.y(), widget->width(), widget->height()};
}

void QtHost::EventDone() {
    if (refreshing_) return;
    refreshing_ = true;
    for (auto& [form, window] : windows_)
        if (window->isVisible()) window->Pull();
    refreshing_ = false;
}

void QtHost::ProcessMessages() {
    QCoreApplication::processEvents();
}

} // namespace corvane::desktop
