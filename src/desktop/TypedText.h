#pragma once

#include <string>

namespace corvane::ui {
class CustomEdit;
}

namespace corvane::desktop {

// What the user's editing in a Qt text box made of the text, fed to the control as typing: the
// characters added at the end are typed one by one (so key handlers, masks and length limits
// act), anything else (a deletion, an edit in the middle, a paste over part) sets the text as
// the control's user would leave it. Runs inside a user event.
void FeedTypedText(ui::CustomEdit& edit, const std::string& next);

} // namespace corvane::desktop
