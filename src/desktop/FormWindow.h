#pragma once

#include <QDialog>

#include <functional>
#include <map>
#include <memory>
#include <string_view>
#include <vector>

class QMenuBar;
class QPoint;
class QResizeEvent;
class QMoveEvent;

namespace corvane::ui {
class Control;
class Form;
class MenuItem;
class PopupMenu;
} // namespace corvane::ui

namespace corvane::desktop {

class ControlBinding;
class LayoutBuilder;
class MenuBarBinding;
class PopupMenuBinding;
class QtHost;
class SlimBar;

// The window of one form: widgets built from the form's layout, its menu bar, tool bars and
// status bar. Keys, clicks and focus changes reach the form as the user's events; after each
// event Pull shows the form's state again.
class FormWindow : public QDialog {
public:
    FormWindow(QtHost& host, ui::Form& form);
    ~FormWindow() override;

    ui::Form& Form() const { return form_; }
    // Shows the caption, the controls' states and the focused control.
    void Pull();
    // Runs what the user did as one event of the application; an error the program did not
    // expect is shown like any other.
    void UserEvent(const std::function<void()>& act);
    // The form was freed: nothing may reach it any more.
    void Orphan();

    // The widget of a control, made on first use.
    QWidget* Bind(ui::Control& control, LayoutBuilder& builder);
    // Keys and focus of widget belong to binding.
    void Watch(QWidget* widget, ControlBinding& binding);
    ControlBinding* BindingOf(const ui::Control& control) const;
    // The widget of the control named name; null when it has none.
    QWidget* WidgetOf(std::string_view name) const;
    QMenuBar* MenuBar() const;
    // The control's popup menu at a point of the screen, as a right click or the menu key asks.
    void ShowPopup(ui::Control& control, const QPoint& globalPos);
    // The Qt menu of a popup menu, once it has been shown.
    PopupMenuBinding* PopupOf(const ui::PopupMenu& popup) const;
    // Opens the menu bar's menus down to the sub-menu item.
    void DropDownMenu(const ui::MenuItem& item);
    // The program's main bar, sized to what it shows, rather than a window a person sizes.
    bool IsBar() const { return bar_ != nullptr; }
    // A turn of the mouse wheel over the window: one Down (towards the user) or Up key, typed
    // where the focus is, whatever the size of the turn.
    void WheelTurned(bool towardsUser);
    // The dialog is on its way to the screen; what its widgets do meanwhile is not the user's.
    bool Opening() const { return opening_; }
    void setVisible(bool visible) override;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void moveEvent(QMoveEvent* event) override;
    void reject() override;

private:
    void Build();
    void RouteKey(const QKeyEvent& event, ui::Control* target);
    // Lists and memos make a window that grows with the person's resizing.
    bool HasGrowingContent() const;
    // The least size the window shows its content in.
    QSize LeastSize() const;
    // Places and sizes the window as the form asks: at its first showing, and again whenever
    // the form changes its size or position afterwards.
    void FollowGeometry();
    // The size the form asks, wider by what its grids' columns grew beyond the form's widths.
    QSize WithWiderColumns(const QSize& asked) const;

    QtHost& host_;
    ui::Form& form_;
    std::vector<std::unique_ptr<ControlBinding>> bindings_;
    std::map<const ui::Control*, ControlBinding*> byControl_;
    std::map<const QObject*, ControlBinding*> watched_;
    std::unique_ptr<MenuBarBinding> menu_;
    std::vector<std::unique_ptr<PopupMenuBinding>> popups_;
    std::unique_ptr<SlimBar> bar_;
    bool orphaned_ = false;
    bool opening_ = false;
    bool sized_ = false;
};

} // namespace corvane::desktop
