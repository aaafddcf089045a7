#include "timebilling/forms/NotesMenu.h"

#include "ui/RichEdit.h"

namespace corvane::timebilling {

NotesMenu::NotesMenu(ui::Form& form, ui::RichEdit& notes, std::function<void()> edit,
                     std::function<void()> find)
    : popNotes(form, "popNotes") {
    notes.Popup = &popNotes;
    popNotesEdit.Visible = static_cast<bool>(edit);
    popNotesEdit.OnClick = std::move(edit);
    popNotesFind.OnClick = std::move(find);
    popNotesFont.OnClick = [&notes] { notes.ApplyFormat(ui::RichEdit::Format::Font); };
    popNotesBold.OnClick = [&notes] { notes.ApplyFormat(ui::RichEdit::Format::Bold); };
    popNotesUnderline.OnClick = [&notes] { notes.ApplyFormat(ui::RichEdit::Format::Underline); };
    popNotesWordWrap.SetChecked(notes.WordWrap);
    popNotesWordWrap.OnClick = [this, &notes] {
        notes.WordWrap = !notes.WordWrap;
        popNotesWordWrap.SetChecked(notes.WordWrap);
    };
}

} // namespace corvane::timebilling
