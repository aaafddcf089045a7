#include "ledger/posting/TfrmJVsPost.h"

#include "ledger/posting/PostingRun.h"
#include "ledger/posting/TableLockRetry.h"
#include "ledger/posting/VoucherReader.h"

namespace corvane::ledger {

TfrmJVsPost::TfrmJVsPost(ui::Application& app, store::Database& db)
    : PostingDialog(
          app, "frmJVsPost", "Post Journal Vouchers",
          {VoucherReader::CountUnposted(db), " JV(s) to be posted", "frmJV", ConflictMessage}),
      db_(db) {}

void TfrmJVsPost::RunPosting(Progress& progress) {
    PostingRun run(db_);
    run.OnStart = [&](std::int64_t count) { progress.Start(count); };
    run.OnVoucherPosted = [&] { progress.Step(); };
    run.Run(AskRetryThrough(App()));
}

} // namespace corvane::ledger
