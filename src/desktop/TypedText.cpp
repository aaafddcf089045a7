#include "desktop/TypedText.h"

#include "ui/CustomEdit.h"
#include "ui/Form.h"

namespace corvane::desktop {

void FeedTypedText(ui::CustomEdit& edit, const std::string& next) {
    if (!edit.Focused() && edit.CanFocus()) edit.SetFocus();
    if (!edit.Focused()) return;
    ui::Form& form = edit.OwnerForm();
    std::string current = edit.Text();
    if (next == current) return;
    if (!next.empty() && edit.AllSelected()) {
        // The first character replaces the selected text, as in the box itself.
        for (char ch : next)
            form.TypeChar(ch);
    } else if (next.size() > current.size() && next.compare(0, current.size(), current) == 0) {
        for (char ch : next.substr(current.size()))
            form.TypeChar(ch);
    } else {
        edit.SetText(next);
    }
}

} // namespace corvane::desktop
