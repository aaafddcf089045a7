#pragma once

#include "store/DataSet.h"
#include "timebilling/forms/NotesMenu.h"
#include "ui/Button.h"
#include "ui/Edit.h"
#include "ui/Form.h"
#include "ui/RichEdit.h"

#include <string>

namespace corvane::timebilling {

// A job's notes in a window of their own, with their formatting menu and a find box. OK keeps
// what was typed in the job; Cancel puts the notes back as they were when the window opened.
class TfrmJobNotes : public ui::Form {
public:
    TfrmJobNotes(ui::Application& app, store::DataSet& job);

    ui::DBRichEdit memNotes;
    ui::Edit editFind{*this, "editFind"};
    ui::Button btnFindNext{*this, "btnFindNext", "Find &Next"};
    ui::Button btnOK{*this, "btnOK", "OK"};
    ui::Button btnCancel{*this, "btnCancel", "Cancel"};
    NotesMenu menu{*this, memNotes, nullptr, [this] { StartFind(); }};

    // The find box, ready for the text to look for.
    void StartFind();
    // The next showing starts in the find box.
    bool FindAtShow = false;
    // The next place of the find box's text in the notes; "'<text>' not found" when none.
    void FindNext();

private:
    std::string opening_;
};

} // namespace corvane::timebilling
