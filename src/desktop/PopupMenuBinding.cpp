#include "desktop/PopupMenuBinding.h"

#include "desktop/FormWindow.h"
#include "desktop/MenuBarBinding.h"
#include "ui/Menu.h"
#include "ui/MenuItem.h"

#include <QAction>
#include <QMenu>

namespace corvane::desktop {

PopupMenuBinding::PopupMenuBinding(FormWindow& window, ui::PopupMenu& popup)
    : window_(window), popup_(popup), menu_(new QMenu(&window)) {
    menu_->setObjectName(QString::fromStdString(popup.Name()));
    AddItems(popup, menu_);
    Pull();
}

void PopupMenuBinding::AddItems(ui::MenuNode& node, QMenu* menu) {
    for (ui::MenuItem* item : node.Items()) {
        QAction* action = nullptr;
        if (item->IsSeparator()) {
            action = menu->addSeparator();
        } else if (!item->Items().empty()) {
            QMenu* sub = menu->addMenu(QString::fromStdString(item->Caption));
            AddItems(*item, sub);
            action = sub->menuAction();
        } else {
            action = menu->addAction(MenuText(*item));
            QObject::connect(action, &QAction::triggered,
                             [this, item] { window_.UserEvent([item] { item->Click(); }); });
        }
        action->setObjectName(QString::fromStdString(item->Name()));
        actions_.emplace_back(item, action);
    }
}

void PopupMenuBinding::Pull() {
    PullMenuActions(actions_);
}

void PopupMenuBinding::Show(const QPoint& globalPos) {
    Pull();
    menu_->popup(globalPos);
}

} // namespace corvane::desktop
