#pragma once

#include "core/Refusal.h"

#include <functional>
#include <initializer_list>
#include <span>
#include <string_view>

namespace corvane::ui {
class Control;
}

namespace corvane::banking {

// Where a field of a record is typed on a form, and what brings it into view first (its page).
struct FieldControl {
    std::string_view Field;
    ui::Control* Control;
    std::function<void()> Reveal = {};
};

// How a form reports a domain check's refusal: the page of the field in front, the focus on its
// control, and the sentence raised for the message loop to show. Nothing when there is none.
void RaiseRefusal(const Verdict& verdict, std::span<const FieldControl> controls);
inline void RaiseRefusal(const Verdict& verdict, std::initializer_list<FieldControl> controls) {
    RaiseRefusal(verdict, std::span<const FieldControl>(controls.begin(), controls.size()));
}

} // namespace corvane::banking
