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
    : window_(window), bar_(new QMenuBar(&window)) {
    bar_->setObjectName(QString::fromStdString(menu.Name()));
    AddItems(menu, nullptr);
    Pull();
}

void MenuBarBinding::AddItems(ui::MenuNode& node, QMenu* menu) {
    for (ui::MenuItem* item : node.Items()) {
        QAction* action = nullptr;
        if (item->IsSeparator()) {
            action = menu ? menu->addSeparator() : bar_->addSeparator();
        } else if (!item->Items().empty()) {
            QMenu* sub = menu ? menu->addMenu(QString::fromStdString(item->Caption))
                              : bar_->addMenu(QString::fromStdString(item->Caption));
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
    PullMenuActions(actions_);
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
