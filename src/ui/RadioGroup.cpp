#include "ui/RadioGroup.h"

#include "ui/Caption.h"
#include "ui/Form.h"
#include "ui/ScriptError.h"

namespace corvane::ui {

void RadioGroup::SetItemIndex(int index) {
    if (index < -1 || index >= static_cast<int>(Items.size())) index = -1;
    if (index == index_) return;
    index_ = index;
    if (OnClick) OnClick();
}

void RadioGroup::Choose(std::string_view item) {
    for (std::size_t i = 0; i < Items.size(); ++i)
        if (PlainCaption(Items[i]) == PlainCaption(item)) {
            if (Enabled && Showing()) UserChoose(static_cast<int>(i));
            return;
        }
    throw ScriptError("Radio group '" + Name() + "' on form '" + OwnerForm().Name() +
                      "' has no item '" + std::string(item) + "'");
}

std::string RadioGroup::Text() const {
    return index_ < 0 ? std::string() : PlainCaption(Items[static_cast<std::size_t>(index_)]);
}

void RadioGroup::KeyDown(Key& key, Modifiers) {
    bool arrow = key == Key::Up || key == Key::Down || key == Key::Left || key == Key::Right;
    if (!arrow || Items.empty()) return;
    int step = key == Key::Up || key == Key::Left ? -1 : 1;
    key = Key::None;
    int next = index_ < 0 ? 0 : index_ + step;
    if (next >= 0 && next < static_cast<int>(Items.size())) UserChoose(next);
}

} // namespace corvane::ui
