#include "shell/patterns/PostingDialog.h"

#include "core/Exception.h"
#include "ui/Application.h"
#include "ui/Layout.h"

namespace corvane::shell {

PostingDialog::PostingDialog(ui::Application& app, std::string name, std::string caption,
                             Documents documents)
    : Form(app, std::move(name)), count_(documents.Count), documents_(std::move(documents)) {
    using namespace ui;
    Caption = std::move(caption);
    lblCount.Caption = std::to_string(count_) + documents_.Waiting;
    btnOK.Default = true;
    btnCancel.Cancel = true;
    btnCancel.ModalResult = mrCancel;
    SetLayout(Column{lblCount, ProgressBar1, ButtonRow{btnOK, btnCancel}});
    btnOK.OnClick = [this] { Post(); };
}

void PostingDialog::Post() {
    if (count_ == 0 && !documents_.EmptyClosesAsCancelled) return;
    std::optional<ui::ModalResult> result = ui::mrCancel;
    struct CloseWith {
        PostingDialog& form;
        std::optional<ui::ModalResult>& result;
        ~CloseWith() {
            if (result) form.SetModalResult(*result);
        }
    } closer{*this, result};
    if (count_ == 0) return;
    // The entry form keeps its own lines and totals in hand; posting under it would take a
    // half-changed document.
    if (App().FindForm(documents_.EntryForm)) throw Exception(documents_.ConflictMessage);
    Progress progress(*this);
    RunPosting(progress);
    result = ui::mrOK;
}

void PostingDialog::Progress::Start(std::int64_t count) {
    wait_.emplace(dialog_.App());
    dialog_.ProgressBar1.Min = 0;
    dialog_.ProgressBar1.Max = static_cast<int>(count);
    dialog_.ProgressBar1.Position = 0;
    dialog_.ProgressBar1.Step = 1;
}

void PostingDialog::Progress::Step() {
    dialog_.ProgressBar1.StepIt();
    // The window is repainted now and then, not after every document: a long run stays quick.
    if (dialog_.ProgressBar1.Position % 100 == 0) dialog_.App().ProcessMessages();
}

} // namespace corvane::shell
