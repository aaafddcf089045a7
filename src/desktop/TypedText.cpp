#include "desktop/TypedText.h"

#include "ui/CustomEdit.h"
#include "ui/Form.h"

#include <algorithm>

namespace corvane::desktop {

namespace {

// A cut inside a character of several bytes would make no sense to the control.
bool Continues(char c) {
    return (static_cast<unsigned char>(c) & 0xC0) == 0x80;
}

} // namespace

void FeedTypedText(ui::CustomEdit& edit, const std::string& next) {
    if (!edit.Focused() && edit.CanFocus()) edit.SetFocus();
    if (!edit.Focused()) return;
    ui::Form& form = edit.OwnerForm();
    std::string current = edit.Text();
    if (next == current) return;

    // Most often the box replaced the control's selection (or typed at its caret): the text on
    // either side of it is still there.
    auto start = static_cast<std::size_t>(edit.SelStart());
    std::size_t end = start + static_cast<std::size_t>(edit.SelLength());
    std::size_t kept = start + (current.size() - end);
    if (next.size() >= kept && next.compare(0, start, current, 0, start) == 0 &&
        next.compare(next.size() - (current.size() - end), std::string::npos, current, end) == 0) {
        std::string typed = next.substr(start, next.size() - kept);
        if (typed.empty())
            edit.ClearSelection();
        else
            for (char ch : typed)
                form.TypeChar(ch);
        return;
    }

    // Else the box changed text around its caret (Backspace, a cut): find what changed.
    std::size_t shortest = std::min(current.size(), next.size());
    std::size_t head = 0;
    while (head < shortest && current[head] == next[head])
        ++head;
    std::size_t tail = 0;
    while (tail < shortest - head &&
           current[current.size() - 1 - tail] == next[next.size() - 1 - tail])
        ++tail;
    while (head > 0 && head < current.size() && Continues(current[head]))
        --head;
    while (tail > 0 && tail < current.size() - head && Continues(current[current.size() - tail]))
        --tail;

    edit.Select(static_cast<int>(head), static_cast<int>(current.size() - tail));
    std::string typed = next.substr(head, next.size() - tail - head);
    if (typed.empty()) {
        edit.ClearSelection();
        return;
    }
    for (char ch : typed)
        form.TypeChar(ch);
}

} // namespace corvane::desktop
