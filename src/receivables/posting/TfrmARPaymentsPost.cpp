#include "receivables/posting/TfrmARPaymentsPost.h"

#include "ledger/posting/TableLockRetry.h"
#include "receivables/posting/PaymentPostingRun.h"
#include "receivables/posting/PaymentReader.h"
#include "ui/Application.h"
#include "ui/DesktopServices.h"

namespace corvane::receivables {

TfrmARPaymentsPost::TfrmARPaymentsPost(ui::Application& app, store::Database& db)
    : PostingDialog(app, "frmARPaymentsPost", "Post AR Payments",
                    {PaymentReader::CountToPost(db), " payment(s) to be posted", "frmARPayment",
                     ConflictMessage, /*EmptyClosesAsCancelled=*/false}),
      db_(db) {
    // The Alt key moves nothing here: the dialog has no accelerators to show.
    OnKeyDown = [](ui::Key& key, ui::Modifiers) {
        if (key == ui::Key::Alt) key = ui::Key::None;
    };
}

void TfrmARPaymentsPost::RunPosting(Progress& progress) {
    PaymentPostingRun run(db_);
    run.CheckWording = App().Desktop().CountryName() == "United States";
    run.OnStart = [&](std::int64_t count) { progress.Start(count); };
    run.OnPaymentPosted = [&] { progress.Step(); };
    run.Run(ledger::AskRetryThrough(App()));
}

} // namespace corvane::receivables
