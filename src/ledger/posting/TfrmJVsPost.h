#pragma once

#include "shell/patterns/PostingDialog.h"

namespace corvane::store {
class Database;
}

namespace corvane::ledger {

// "Post Journal Vouchers". The user chooses nothing: OK posts every unposted voucher through
// PostingRun.
class TfrmJVsPost : public shell::PostingDialog {
public:
    TfrmJVsPost(ui::Application& app, store::Database& db);

    static constexpr const char* ConflictMessage =
        "A conflicting program is running...\nPlease close 'Journal Voucher' form";

private:
    void RunPosting(Progress& progress) override;

    store::Database& db_;
};

} // namespace corvane::ledger
