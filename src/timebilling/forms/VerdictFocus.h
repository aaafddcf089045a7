#pragma once

#include "timebilling/domain/Verdict.h"

#include <initializer_list>
#include <string_view>
#include <utility>

namespace corvane::ui {
class Control;
}

namespace corvane::timebilling {

// A field of a record and the control a person types it into.
using FieldControl = std::pair<std::string_view, ui::Control*>;

// Raises a refusal's message after putting the focus on the control of the field at fault; an
// accepted verdict does nothing.
void Enforce(const Verdict& verdict, std::initializer_list<FieldControl> controls);

} // namespace corvane::timebilling
