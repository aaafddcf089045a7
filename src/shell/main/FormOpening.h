#pragma once

#include "shell/main/MainMenuEntries.h"

#include <functional>

namespace corvane::ui {
class Form;
}

namespace corvane::shell {

// Brings up the form of a main menu entry the way the entry says (see OpenKind). existing is the
// form when it is already there; make returns it, making it first when it is not.
void OpenFormFromMenu(const MainMenuEntry& entry, ui::Form* existing,
                      const std::function<ui::Form&()>& make);

} // namespace corvane::shell
