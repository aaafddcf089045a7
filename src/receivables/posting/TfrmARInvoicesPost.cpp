#include "receivables/posting/TfrmARInvoicesPost.h"

#include "ledger/posting/TableLockRetry.h"
#include "receivables/posting/InvoicePostingRun.h"
#include "receivables/posting/InvoiceReader.h"
#include "ui/Application.h"
#include "ui/DesktopServices.h"

namespace corvane::receivables {

TfrmARInvoicesPost::TfrmARInvoicesPost(ui::Application& app, store::Database& db)
    : PostingDialog(app, "frmARInvoicesPost", "Post AR Invoices",
                    {InvoiceReader::CountToPost(db), " printed invoice(s) to be posted",
                     "frmARInvoice", ConflictMessage}),
      db_(db) {}

void TfrmARInvoicesPost::RunPosting(Progress& progress) {
    InvoicePostingRun run(db_);
    run.CheckWording = App().Desktop().CountryName() == "United States";
    run.OnStart = [&](std::int64_t count) { progress.Start(count); };
    run.OnInvoicePosted = [&] { progress.Step(); };
    run.Run(ledger::AskRetryThrough(App()));
}

} // namespace corvane::receivables
