#pragma once

#include "shell/patterns/PostingDialog.h"

namespace corvane::store {
class Database;
}

namespace corvane::receivables {

// "Post AR Invoices": OK posts every printed invoice waiting through InvoicePostingRun.
class TfrmARInvoicesPost : public shell::PostingDialog {
public:
    TfrmARInvoicesPost(ui::Application& app, store::Database& db);

    static constexpr const char* ConflictMessage =
        "A conflicting program is running...\nPlease close 'AR Invoice' form";

private:
    void RunPosting(Progress& progress) override;

    store::Database& db_;
};

} // namespace corvane::receivables
