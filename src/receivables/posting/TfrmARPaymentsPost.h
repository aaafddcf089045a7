#pragma once

#include "shell/patterns/PostingDialog.h"

namespace corvane::store {
class Database;
}

namespace corvane::receivables {

// "Post AR Payments": OK posts every unposted payment through PaymentPostingRun.
class TfrmARPaymentsPost : public shell::PostingDialog {
public:
    TfrmARPaymentsPost(ui::Application& app, store::Database& db);

    static constexpr const char* ConflictMessage =
        "A conflicting program is running...\nPlease close 'AR Payment' form";

private:
    void RunPosting(Progress& progress) override;

    store::Database& db_;
};

} // namespace corvane::receivables
