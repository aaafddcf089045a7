#include "ui/ToolBar.h"

#include "ui/Caption.h"
#include "ui/Form.h"
#include "ui/MenuItem.h"

#include <algorithm>

namespace corvane::ui {

ToolButton::ToolButton(ToolBar& bar, std::string name, MenuItem& item)
    : Component(bar.OwnerForm(), std::move(name)), bar_(bar), item_(&item) {
    bar_.buttons_.push_back(this);
}

ToolButton::ToolButton(ToolBar& bar, std::string name, std::string caption)
    : Component(bar.OwnerForm(), std::move(name)), OwnCaption(std::move(caption)), bar_(bar) {
    bar_.buttons_.push_back(this);
}

ToolButton::~ToolButton() {
    auto& buttons = bar_.buttons_;
    buttons.erase(std::remove(buttons.begin(), buttons.end(), this), buttons.end());
}

std::string ToolButton::Caption() const {
    // A tool button has no menu to open, so the "..." of a menu entry is dropped.
    std::string caption = PlainCaption(item_ ? item_->Caption : OwnCaption);
    if (caption.size() >= 3 && caption.ends_with("...")) caption.resize(caption.size() - 3);
    return caption;
}

bool ToolButton::Enabled() const {
    return bar_.Enabled && (item_ ? item_->Enabled : OwnEnabled);
}

bool ToolButton::Visible() const {
    return item_ ? item_->Visible : OwnVisible;
}

void ToolButton::Click() {
    if (!Enabled() || !Visible() || !bar_.Showing()) return;
    OwnerForm().CommitPendingEdit();
    // The item's own menu may be closed or a pop-up; the button reaches its command all the same.
    const auto& handler = item_ ? item_->OnClick : OnClick;
    if (handler) handler();
}

} // namespace corvane::ui
