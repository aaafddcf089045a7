#include "desktop/MenuBarBinding.h"

#include "desktop/FormWindow.h"
#include "ui/MenuItem.h"

#include <QAction>
#include <QMenu>
#include <QMenuBar>

namespace corvane::desktop {

QString MenuText(const ui::MenuItem& item) {
    QString text = QString::fromStdString(item.Caption);
    if (item.ShortCut.Code != ui::Key::None)
        text += '\t' + QString::fromStdString(ui::ShortCutText(item.ShortCut));
    return text;
}

MenuBarBinding::MenuBarBinding(FormWindow& window, ui::MainMenu& menu)
    : window_(window), menu_(menu), bar_(new QMenuBar(&window)) {
    bar_->setObjectName(QString::fromStdString(menu.Name()));
    Build();
    Pull();
}

void MenuBarBinding::ShapeOf(const ui::MenuNode& node, Shape& shape) {
    for (const ui::MenuItem* item : node.Items()) {
        int kind = item->IsSeparator() ? 0 : item->Items().empty() ? 1 : 2;
        shape.emplace_back(item, kind);
        if (kind == 2) ShapeOf(*item, shape);
        shape.emplace_back(nullptr, -1); // closes the item's level
    }
}

void MenuBarBinding::Build() {
    bar_->clear();
    // A rebuild may run inside the handler of one of these menus' own commands (a company
    // chosen from the Companies menu fills that menu again): Qt is still in that menu when the
    // handler returns, so the old menus go once the event is over.
    for (QMenu* menu : menus_) {
        menu->hide();
        menu->setParent(nullptr);
        menu->deleteLater();
    }
    menus_.clear();
    actions_.clear();
    shape_.clear();
    ShapeOf(menu_, shape_);
    AddItems(menu_, nullptr);
}

void MenuBarBinding::AddItems(ui::MenuNode& node, QMenu* menu) {
    for (ui::MenuItem* item : node.Items()) {
        QAction* action = nullptr;
        if (item->IsSeparator()) {
            action = menu ? menu->addSeparator() : bar_->addSeparator();
        } else if (!item->Items().empty()) {
            QMenu* sub = menu ? menu->addMenu(QString::fromStdString(item->Caption))
                              : bar_->addMenu(QString::fromStdString(item->Caption));
            sub->setObjectName(QString::fromStdString(item->Name()));
            // A sub-menu goes with the menu it stands in; the bar's own are freed on a rebuild.
            if (!menu) menus_.push_back(sub);
            AddItems(*item, sub);
            action = sub->menuAction();
        } else {
            action = menu ? menu->addAction(MenuText(*item)) : bar_->addAction(MenuText(*item));
            QObject::connect(action, &QAction::triggered,
                             [this, item] { window_.UserEvent([item] { item->Click(); }); });
        }
        action->setObjectName(QString::fromStdString(item->Name()));
        actions_.emplace_back(item, action);
    }
}

void MenuBarBinding::Pull() {
    // Only the live tree is walked: an action whose item has gone is never read.
    Shape now;
    ShapeOf(menu_, now);
    if (now != shape_) Build();
    PullMenuActions(actions_);
}

QAction* MenuBarBinding::ActionOf(const ui::MenuItem& item) const {
    for (const auto& [each, action] : actions_)
        if (each == &item) return action;
    return nullptr;
}

bool MenuBarBinding::DropDown(const ui::MenuItem& item) {
    std::vector<const ui::MenuItem*> path;
    const ui::MenuNode* node = &item;
    while (auto* step = dynamic_cast<const ui::MenuItem*>(node)) {
        path.insert(path.begin(), step);
        node = &step->Parent();
    }
    if (node != &menu_) return false;
    Pull();
    for (const ui::MenuItem* step : path)
        if (!step->Usable() || !ActionOf(*step)) return false;
    // The bar opens the top menu; each menu then opens the sub-menu of the next step at once.
    bar_->setActiveAction(ActionOf(*path.front()));
    QMenu* open = ActionOf(*path.front())->menu();
    for (std::size_t i = 1; i < path.size() && open; ++i) {
        QAction* action = ActionOf(*path[i]);
        open->setActiveAction(action);
        open = action->menu();
    }
    return true;
}

void PullMenuActions(const std::vector<std::pair<ui::MenuItem*, QAction*>>& actions) {
    for (const auto& [item, action] : actions) {
        action->setVisible(item->Visible);
        action->setEnabled(item->Enabled);
        if (item->IsSeparator()) continue;
        if (item->Items().empty()) {
            QString text = MenuText(*item);
            if (action->text() != text) action->setText(text);
            action->setCheckable(item->RadioItem || item->Checked());
            action->setChecked(item->Checked());
        } else if (action->text() != QString::fromStdString(item->Caption)) {
            action->setText(QString::fromStdString(item->Caption));
        }
    }
}

} // namespace corvane::desktop
