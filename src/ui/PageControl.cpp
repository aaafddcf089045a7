#include "ui/PageControl.h"

#include "ui/Form.h"

#include <algorithm>

namespace corvane::ui {

Page::Page(PageControl& owner, std::string name, std::string caption)
    : Component(owner.OwnerForm(), std::move(name)), Caption(std::move(caption)), owner_(owner) {
    owner_.pages_.push_back(this);
}

Page::~Page() {
    auto& pages = owner_.pages_;
    pages.erase(std::remove(pages.begin(), pages.end(), this), pages.end());
    if (owner_.active_ == this) owner_.active_ = nullptr;
}

bool Page::Showing() const {
    return TabVisible && owner_.ActivePage() == this && owner_.Showing();
}

void Page::SetLayout(LayoutItem root) {
    layout_ = std::make_unique<LayoutItem>(std::move(root));
    // Controls of a page inside this page belong to that inner page.
    layout_->ForEachControl([this](Control& c) { c.page_ = this; }, false);
}

Page* PageControl::ActivePage() const {
    if (active_) return active_;
    auto first =
        std::find_if(pages_.begin(), pages_.end(), [](const Page* p) { return p->TabVisible; });
    return first == pages_.end() ? nullptr : *first;
}

void PageControl::SetActivePage(Page& page) {
    if (&page == ActivePage() || &page.Owner() != this) return;
    bool allow = true;
    if (OnChanging) OnChanging(allow);
    if (!allow) return;
    active_ = &page;
    if (OnChange) OnChange();
}

std::string PageControl::Text() const {
    Page* page = ActivePage();
    return page ? page->Caption : std::string();
}

void PageControl::SelectNextPage(bool forward) {
    std::vector<Page*> shown;
    std::copy_if(pages_.begin(), pages_.end(), std::back_inserter(shown),
                 [](const Page* p) { return p->TabVisible; });
    auto at = std::find(shown.begin(), shown.end(), ActivePage());
    if (shown.empty() || at == shown.end()) return;
    auto index = static_cast<std::size_t>(at - shown.begin());
    Page* next =
        shown[forward ? (index + 1) % shown.size() : (index + shown.size() - 1) % shown.size()];
    SetActivePage(*next);
    Control* focused = OwnerForm().ActiveControl();
    if (!next->Showing() || !next->Layout() || (focused && focused->CanFocus())) return;
    Control* first = nullptr;
    next->Layout()->ForEachControl([&](Control& c) {
        if (!first && c.TabStop && c.CanFocus()) first = &c;
    });
    if (first) first->SetFocus();
}

} // namespace corvane::ui
