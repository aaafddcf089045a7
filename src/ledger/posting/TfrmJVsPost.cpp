#include "ledger/posting/TfrmJVsPost.h"

#include "core/Exception.h"
#include "ledger/posting/PostingRun.h"
#include "ledger/posting/VoucherReader.h"
#include "ui/Application.h"
#include "ui/Layout.h"
#include "ui/WaitCursor.h"

#include <optional>

namespace corvane::ledger {

TfrmJVsPost::TfrmJVsPost(ui::Application& app, store::Database& db)
    : Form(app, "frmJVsPost"), db_(db) {
    using namespace ui;
    Caption = "Post Journal Vouchers";
    count_ = VoucherReader::CountUnposted(db_);
    lblCount.Caption = std::to_string(count_) + " JV(s) to be posted";
    btnOK.Default = true;
    btnCancel.Cancel = true;
    btnCancel.ModalResult = mrCancel;
    SetLayout(Column{lblCount, ProgressBar1, ButtonRow{btnOK, btnCancel}});
    btnOK.OnClick = [this] { Post(); };
}

void TfrmJVsPost::Post() {
    // Whatever stops the run closes the dialog as cancelled; the message follows.
    std::optional<ui::ModalResult> result = ui::mrCancel;
    struct CloseWith {
        TfrmJVsPost& form;
        std::optional<ui::ModalResult>& result;
        ~CloseWith() {
            if (result) form.SetModalResult(*result);
        }
    } closer{*this, result};
    if (count_ == 0) return;
    // The voucher form keeps its own totals of what it shows; posting under it would make
    // them lie.
    if (App().FindForm("frmJV")) throw Exception(ConflictMessage);

    PostingRun run(db_);
    std::optional<ui::WaitCursor> wait;
    run.OnStart = [&](std::int64_t count) {
        result = ui::mrOK;
        wait.emplace(App());
        ProgressBar1.Min = 0;
        ProgressBar1.Max = static_cast<int>(count);
        ProgressBar1.Position = 0;
        ProgressBar1.Step = 1;
    };
    run.OnVoucherPosted = [this] {
        ProgressBar1.StepIt();
        if (ProgressBar1.Position % 100 == 0) App().ProcessMessages();
    };
    run.Run(AskRetryThrough(App()));
}

} // namespace corvane::ledger
