#pragma once

#include <utility>
#include <vector>

class QAction;
class QMenu;
class QPoint;
class QWidget;

namespace corvane::ui {
class MenuItem;
class MenuNode;
class PopupMenu;
} // namespace corvane::ui

namespace corvane::desktop {

class FormWindow;

// A control's popup menu as a QMenu. Before it opens, the menu's OnPopup runs as a user event so
// that it can check and enable its items; the menu then shows them as they are, and a chosen
// item is clicked as the user's event, as items of the menu bar are.
class PopupMenuBinding {
public:
    PopupMenuBinding(FormWindow& window, ui::PopupMenu& popup);
    QMenu* Menu() const { return menu_; }
    ui::PopupMenu& Popup() const { return popup_; }
    // Captions, enabled, visible and checked states as the items have them now.
    void Pull();
    // Opens the menu at a point of the screen; it stays open until the user picks or leaves.
    void Show(const QPoint& globalPos);

private:
    void AddItems(ui::MenuNode& node, QMenu* menu);

    FormWindow& window_;
    ui::PopupMenu& popup_;
    QMenu* menu_;
    std::vector<std::pair<ui::MenuItem*, QAction*>> actions_;
};

} // namespace corvane::desktop
