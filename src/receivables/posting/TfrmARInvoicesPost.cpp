#include "receivables/posting/TfrmARInvoicesPost.h"

#include "core/Exception.h"
#include "receivables/posting/InvoicePostingRun.h"
#include "receivables/posting/InvoiceReader.h"
#include "ui/Application.h"
#include "ui/DesktopServices.h"
#include "ui/Layout.h"
#include "ui/WaitCursor.h"

#include <optional>

namespace corvane::receivables {

TfrmARInvoicesPost::TfrmARInvoicesPost(ui::Application& app, store::Database& db)
    : Form(app, "frmARInvoicesPost"), db_(db) {
    using namespace ui;
    Caption = "Post AR Invoices";
    count_ = InvoiceReader::CountToPost(db_);
    lblCount.Caption = std::to_string(count_) + " printed invoice(s) to be posted";
    btnOK.Default = true;
    btnCancel.Cancel = true;
    btnCancel.ModalResult = mrCancel;
    SetLayout(Column{lblCount, ProgressBar1, ButtonRow{btnOK, btnCancel}});
    btnOK.OnClick = [this] { Post(); };
}

void TfrmARInvoicesPost::Post() {
    // Whatever stops the run closes the dialog as cancelled; the message follows.
    std::optional<ui::ModalResult> result = ui::mrCancel;
    struct CloseWith {
        TfrmARInvoicesPost& form;
        std::optional<ui::ModalResult>& result;
        ~CloseWith() {
            if (result) form.SetModalResult(*result);
        }
    } closer{*this, result};
    if (count_ == 0) return;
    // An invoice in edit keeps its own totals and lines in hand; posting under it would take
    // a half-changed invoice.
    if (App().FindForm("frmARInvoice")) throw Exception(ConflictMessage);

    InvoicePostingRun run(db_);
    run.CheckWording = App().Desktop().CountryName() == "United States";
    std::optional<ui::WaitCursor> wait;
    run.OnStart = [&](std::int64_t count) {
        wait.emplace(App());
        ProgressBar1.Min = 0;
        ProgressBar1.Max = static_cast<int>(count);
        ProgressBar1.Position = 0;
        ProgressBar1.Step = 1;
    };
    run.OnInvoicePosted = [this] {
        ProgressBar1.StepIt();
        if (ProgressBar1.Position % 100 == 0) App().ProcessMessages();
    };
    run.Run(ledger::AskRetryThrough(App()));
    result = ui::mrOK;
}

} // namespace corvane::receivables
