#include "receivables/posting/TfrmARPaymentsPost.h"

#include "core/Exception.h"
#include "receivables/posting/PaymentPostingRun.h"
#include "receivables/posting/PaymentReader.h"
#include "ui/Application.h"
#include "ui/DesktopServices.h"
#include "ui/Layout.h"
#include "ui/WaitCursor.h"

#include <optional>

namespace corvane::receivables {

TfrmARPaymentsPost::TfrmARPaymentsPost(ui::Application& app, store::Database& db)
    : Form(app, "frmARPaymentsPost"), db_(db) {
    using namespace ui;
    Caption = "Post AR Payments";
    count_ = PaymentReader::CountToPost(db_);
    lblCount.Caption = std::to_string(count_) + " payment(s) to be posted";
    btnOK.Default = true;
    btnCancel.Cancel = true;
    btnCancel.ModalResult = mrCancel;
    // The Alt key moves nothing here: the dialog has no accelerators to show.
    OnKeyDown = [](ui::Key& key, ui::Modifiers) {
        if (key == ui::Key::Alt) key = ui::Key::None;
    };
    SetLayout(Column{lblCount, ProgressBar1, ButtonRow{btnOK, btnCancel}});
    btnOK.OnClick = [this] { Post(); };
}

void TfrmARPaymentsPost::Post() {
    // With nothing to post OK does nothing; whatever stops a run closes the dialog as cancelled,
    // and the message follows.
    if (count_ == 0) return;
    std::optional<ui::ModalResult> result = ui::mrCancel;
    struct CloseWith {
        TfrmARPaymentsPost& form;
        std::optional<ui::ModalResult>& result;
        ~CloseWith() {
            if (result) form.SetModalResult(*result);
        }
    } closer{*this, result};
    // A payment in edit keeps its own lines and total in hand; posting under it would take a
    // half-changed payment.
    if (App().FindForm("frmARPayment")) throw Exception(ConflictMessage);

    PaymentPostingRun run(db_);
    run.CheckWording = App().Desktop().CountryName() == "United States";
    std::optional<ui::WaitCursor> wait;
    run.OnStart = [&](std::int64_t count) {
        wait.emplace(App());
        ProgressBar1.Min = 0;
        ProgressBar1.Max = static_cast<int>(count);
        ProgressBar1.Position = 0;
        ProgressBar1.Step = 1;
    };
    run.OnPaymentPosted = [this] {
        ProgressBar1.StepIt();
        if (ProgressBar1.Position % 100 == 0) App().ProcessMessages();
    };
    run.Run(ledger::AskRetryThrough(App()));
    result = ui::mrOK;
}

} // namespace corvane::receivables
