#pragma once

#include "core/Date.h"

#include <optional>

class QWidget;

namespace corvane::desktop {

// A month calendar in a small modal dialog; nothing when the user cancels.
std::optional<Date> PickDate(QWidget* parent, std::optional<Date> start);

} // namespace corvane::desktop
