#include "ui/ListBox.h"

#include <algorithm>
#include <cctype>

namespace corvane::ui {

namespace {

bool LessIgnoringCase(const std::string& a, const std::string& b) {
    return std::lexicographical_compare(a.begin(), a.end(), b.begin(), b.end(), [](char x, char y) {
        return std::toupper(static_cast<unsigned char>(x)) <
               std::toupper(static_cast<unsigned char>(y));
    });
}

bool SameIgnoringCase(std::string_view a, std::string_view b) {
    return a.size() == b.size() && std::equal(a.begin(), a.end(), b.begin(), [](char x, char y) {
               return std::toupper(static_cast<unsigned char>(x)) ==
                      std::toupper(static_cast<unsigned char>(y));
           });
}

} // namespace

void ListBox::SetItems(std::vector<std::string> items) {
    items_ = std::move(items);
    if (Sorted) std::stable_sort(items_.begin(), items_.end(), LessIgnoringCase);
    index_ = -1;
}

int ListBox::Add(std::string item) {
    auto at = Sorted ? std::upper_bound(items_.begin(), items_.end(), item, LessIgnoringCase)
                     : items_.end();
    int index = static_cast<int>(at - items_.begin());
    items_.insert(at, std::move(item));
    if (index_ >= index) ++index_;
    return index;
}

void ListBox::Delete(int index) {
    if (index < 0 || index >= Count()) return;
    items_.erase(items_.begin() + index);
    if (index_ == index)
        index_ = -1;
    else if (index_ > index)
        --index_;
}

void ListBox::Clear() {
    items_.clear();
    index_ = -1;
}

int ListBox::IndexOf(std::string_view text) const {
    for (int i = 0; i < Count(); ++i)
        if (SameIgnoringCase(items_[static_cast<std::size_t>(i)], text)) return i;
    return -1;
}

void ListBox::SetItemIndex(int index) {
    index_ = index >= 0 && index < Count() ? index : -1;
}

void ListBox::ClickItem(int index) {
    SetItemIndex(index);
    if (OnClick) OnClick();
}

void ListBox::DblClick() {
    if (OnDblClick) OnDblClick();
}

std::string ListBox::Text() const {
    return index_ < 0 ? std::string() : items_[static_cast<std::size_t>(index_)];
}

void ListBox::KeyDown(Key& key, Modifiers) {
    if (items_.empty()) return;
    int last = Count() - 1;
    int next = index_;
    switch (key) {
    case Key::Up:
        next = std::max(index_ - 1, 0);
        break;
    case Key::Down:
        next = std::min(index_ + 1, last);
        break;
    case Key::Home:
        next = 0;
        break;
    case Key::End:
        next = last;
        break;
    default:
        return;
    }
    key = Key::None;
    if (next != index_) ClickItem(next);
}

} // namespace corvane::ui
