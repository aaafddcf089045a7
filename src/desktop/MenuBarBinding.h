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
    // Captions, enabled, visible and checked states as the items have them now.
    void Pull();

private:
    void AddItems(ui::MenuNode& node, QMenu* menu);

    FormWindow& window_;
    QMenuBar* bar_;
    std::vector<std::pair<ui::MenuItem*, QAction*>> actions_;
};

// The text of a menu command: the caption and, after a tab, its short cut.
QString MenuText(const ui::MenuItem& item);
// Shows each item's caption, enabled, visible and checked state on its action.
void PullMenuActions(const std::vector<std::pair<ui::MenuItem*, QAction*>>& actions);

} // namespace corvane::desktop
