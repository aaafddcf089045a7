#pragma once

#include "ui/Control.h"

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace corvane::ui {

// A framed set of mutually exclusive choices.
class RadioGroup : public Control {
public:
    RadioGroup(Form& form, std::string name, std::string caption, std::vector<std::string> items)
        : Control(form, std::move(name)), Caption(std::move(caption)), Items(std::move(items)) {}

    std::string Caption;
    std::vector<std::string> Items;
    int Columns = 1;
    // -1 when nothing is chosen.
    int ItemIndex() const { return index_; }
    // Chooses as code does; OnClick runs when the choice changes.
    void SetItemIndex(int index);
    // The user's choice of an item by its caption ('&' ignored); a ScriptError when there is none.
    void Choose(std::string_view item);
    std::function<void()> OnClick;

    const char* TypeName() const override { return "RadioGroup"; }
    // The caption of the chosen item.
    std::string Text() const override;

protected:
    // The user picks an item: the data-aware group writes its field first.
    virtual void UserChoose(int index) { SetItemIndex(index); }
    void KeyDown(Key& key, Modifiers mods) override;
    // The choice as shown, without OnClick.
    void ShowIndex(int index) { index_ = index; }

private:
    int index_ = -1;
};

} // namespace corvane::ui
