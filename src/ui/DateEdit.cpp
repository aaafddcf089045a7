#include "ui/DateEdit.h"

#include "core/DateEntry.h"
#include "ui/Application.h"
#include "ui/Form.h"
#include "ui/TfrmCalendar.h"

#include <optional>

namespace corvane::ui {

void DateEdit::ClickButton() {
    if (!Enabled || !Showing() || IsReadOnly()) return;
    SetFocus();
    if (!Focused()) return;
    if (OnButtonClick)
        OnButtonClick();
    else
        PickFromCalendar();
}

void DateEdit::PickFromCalendar() {
    std::optional<corvane::Date> start;
    try {
        if (!Text().empty()) start = ParseEnteredDate(Text());
    } catch (const std::exception&) {
        // Text that is no date yet opens the calendar on today.
    }
    auto& calendar = OwnerForm().App().SingleForm<TfrmCalendar>();
    std::optional<corvane::Date> picked = calendar.Execute(start, CalendarCaption);
    if (!picked) return;
    SetText(DateToStr(*picked));
    // Written at once, as Enter writes a typed date: a date the field refuses raises its message
    // here, and the text stays for the user to correct.
    CommitEdit();
    SelectAll();
}

void DateEdit::KeyDown(Key& key, Modifiers mods) {
    if (key == Key::Down && mods.Alt) {
        key = Key::None;
        ClickButton();
        return;
    }
    CustomEdit::KeyDown(key, mods);
}

} // namespace corvane::ui
