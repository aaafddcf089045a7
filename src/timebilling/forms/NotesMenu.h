#pragma once

#include "ui/Menu.h"
#include "ui/MenuItem.h"

#include <functional>

namespace corvane::ui {
class RichEdit;
}

namespace corvane::timebilling {

// The right-click menu of a job's notes: Edit (the notes in a window of their own), Font, Bold,
// Underline, Find and Word Wrap.
class NotesMenu {
public:
    NotesMenu(ui::Form& form, ui::RichEdit& notes, std::function<void()> edit,
              std::function<void()> find);

    ui::PopupMenu popNotes;
    ui::MenuItem popNotesEdit{popNotes, "popNotesEdit", "&Edit..."};
    ui::MenuItem popNotesFont{popNotes, "popNotesFont", "&Font..."};
    ui::MenuItem popNotesBold{popNotes, "popNotesBold", "&Bold"};
    ui::MenuItem popNotesUnderline{popNotes, "popNotesUnderline", "&Underline"};
    ui::MenuItem popNotesFind{popNotes, "popNotesFind", "F&ind..."};
    ui::MenuItem popNotesWordWrap{popNotes, "popNotesWordWrap", "&Word Wrap"};
};

} // namespace corvane::timebilling
