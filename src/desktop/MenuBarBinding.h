#pragma once

#include <utility>
#include <vector>

class QAction;
class QMenu;
class QMenuBar;
class QString;

namespace corvane::ui {
class MainMenu;
class MenuItem;
class MenuNode;
} // namespace corvane::ui

namespace corvane::desktop {

class FormWindow;

// A form's main menu as a Qt menu bar. Short cuts are shown beside the commands but stay with
// the form's key handling, so that a key works the same in every host.
class MenuBarBinding {
public:
    MenuBarBinding(FormWindow& window, ui::MainMenu& menu);
    QMenuBar* Bar() const { return bar_; }
    // Captions, enabled, visible and checked states as the items have them now; items added or
    // removed since (a company list filled again) rebuild the bar.
    void Pull();
    // The action of an item; a sub-menu's action holds its QMenu.
    QAction* ActionOf(const ui::MenuItem& item) const;
    // Opens the menus down to item, as a person walking there with the keys would; false when
    // the item is not on this bar or cannot be reached.
    bool DropDown(const ui::MenuItem& item);

private:
    // Each item of the tree in order, with what makes its action: a command, a sub-menu or a
    // separator.
    using Shape = std::vector<std::pair<const ui::MenuItem*, int>>;
    static void ShapeOf(const ui::MenuNode& node, Shape& shape);
    void Build();
    void AddItems(ui::MenuNode& node, QMenu* menu);

    FormWindow& window_;
    ui::MainMenu& menu_;
    QMenuBar* bar_;
    std::vector<std::pair<ui::MenuItem*, QAction*>> actions_;
    std::vector<QMenu*> menus_; // the bar's top menus
    Shape shape_;
};

// The text of a menu command: the caption and, after a tab, its short cut.
QString MenuText(const ui::MenuItem& item);
// Shows each item's caption, enabled, visible and checked state on its action.
void PullMenuActions(const std::vector<std::pair<ui::MenuItem*, QAction*>>& actions);

} // namespace corvane::desktop
