#pragma once

#include <string>

namespace corvane::ui {
class CustomEdit;
}

namespace corvane::desktop {

// What the user's editing in a Qt text box made of the text, fed to the control as typing. The
// part that changed is found by what the old and the new text share at both ends: the control
// selects the characters that went and types those that came one by one, so key handlers, masks
// and length limits act wherever the caret was; a change that only removes deletes the selection.
// Runs inside a user event.
void FeedTypedText(ui::CustomEdit& edit, const std::string& next);

} // namespace corvane::desktop
