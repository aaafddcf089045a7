#include "ui/Layout.h"

#include "ui/Label.h"
#include "ui/PageControl.h"

namespace corvane::ui {

LayoutItem::LayoutItem(Control& control) : kind_(Kind::Control), control_(&control) {}

LayoutItem::LayoutItem(Kind kind, std::string title, std::vector<LayoutItem> items, int factor,
                       Control* control)
    : kind_(kind), title_(std::move(title)), items_(std::move(items)), factor_(factor),
      control_(control) {}

FormRow::FormRow(Label& label, LayoutItem field)
    : LayoutItem(Kind::FormRow, {}, {field}, 0, &label) {}

void LayoutItem::ForEachControl(const std::function<void(Control&)>& visit, bool intoPages) const {
    if (control_) {
        visit(*control_);
        if (auto* pages = dynamic_cast<PageControl*>(control_); pages && intoPages)
            for (Page* page : pages->Pages())
                if (page->Layout()) page->Layout()->ForEachControl(visit, intoPages);
    }
    for (const auto& item : items_)
        item.ForEachControl(visit, intoPages);
}

} // namespace corvane::ui
