#include "ui/MenuItem.h"

#include "ui/Form.h"

#include <algorithm>

namespace corvane::ui {

MenuItem::MenuItem(MenuNode& parent, std::string name, std::string caption,
                   std::string_view shortCut)
    : MenuNode(parent.OwnerForm(), std::move(name)), Caption(std::move(caption)),
      ShortCut(shortCut.empty() ? KeyStroke() : ParseShortCut(shortCut)), parent_(&parent) {
    parent_->items_.push_back(this);
}

MenuItem::~MenuItem() {
    if (!parent_) return;
    auto& items = parent_->items_;
    items.erase(std::remove(items.begin(), items.end(), this), items.end());
}

MenuNode::~MenuNode() {
    for (MenuItem* item : items_)
        item->parent_ = nullptr;
}

void MenuItem::SetChecked(bool checked) {
    checked_ = checked;
    if (!checked || !RadioItem || !parent_) return;
    for (MenuItem* sibling : parent_->Items())
        if (sibling != this && sibling->RadioItem && sibling->GroupIndex == GroupIndex)
            sibling->checked_ = false;
}

bool MenuItem::Usable() const {
    if (!Enabled || !Visible || IsSeparator()) return false;
    if (!parent_) return false;
    auto* parentItem = dynamic_cast<const MenuItem*>(parent_);
    return !parentItem || parentItem->Usable();
}

void MenuItem::Click() {
    if (!Usable()) return;
    OwnerForm().CommitPendingEdit();
    if (OnClick) OnClick();
}

} // namespace corvane::ui
