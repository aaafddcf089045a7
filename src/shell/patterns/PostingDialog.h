#pragma once

#include "ui/Button.h"
#include "ui/Form.h"
#include "ui/Label.h"
#include "ui/ProgressBar.h"
#include "ui/WaitCursor.h"

#include <cstdint>
#include <optional>
#include <string>

namespace corvane::shell {

// The dialog of a posting run: the count of what waits, counted when the dialog is made, a
// progress bar, OK and Cancel. OK refuses while the entry form of the documents is open, runs
// the posting and closes the dialog with OK once the run has ended; whatever stops the run
// closes it as cancelled, and its message follows.
class PostingDialog : public ui::Form {
public:
    std::int64_t Count() const { return count_; }

    ui::Label lblCount{*this, "lblCount"};
    ui::ProgressBar ProgressBar1{*this, "ProgressBar1"};
    ui::Button btnOK{*this, "btnOK", "OK"};
    ui::Button btnCancel{*this, "btnCancel", "Cancel"};

protected:
    struct Documents {
        std::int64_t Count = 0;
        std::string Waiting; // follows the count on the label: " JV(s) to be posted"
        // The entry form that keeps documents in hand, and the refusal while it is open.
        const char* EntryForm = "";
        const char* ConflictMessage = "";
        // With nothing waiting OK closes the dialog as cancelled, or else does nothing.
        bool EmptyClosesAsCancelled = true;
    };
    PostingDialog(ui::Application& app, std::string name, std::string caption, Documents documents);

    // What the run reports as it goes: the bar runs from 0 to the count the run found, one step
    // a document, and the wait cursor shows from the start to the end of the run.
    class Progress {
    public:
        explicit Progress(PostingDialog& dialog) : dialog_(dialog) {}
        void Start(std::int64_t count);
        void Step();

    private:
        PostingDialog& dialog_;
        std::optional<ui::WaitCursor> wait_;
    };

    // Posts every document that waits, reporting to the progress.
    virtual void RunPosting(Progress& progress) = 0;

private:
    void Post();

    std::int64_t count_;
    Documents documents_;
};

} // namespace corvane::shell
