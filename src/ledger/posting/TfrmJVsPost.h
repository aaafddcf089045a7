#pragma once

#include "ui/Button.h"
#include "ui/Form.h"
#include "ui/Label.h"
#include "ui/ProgressBar.h"

#include <cstdint>

namespace corvane::store {
class Database;
}

namespace corvane::ledger {

// "Post Journal Vouchers": the count of what waits, a progress bar, OK and Cancel. The user
// chooses nothing: OK posts every unposted voucher through PostingRun.
class TfrmJVsPost : public ui::Form {
public:
    TfrmJVsPost(ui::Application& app, store::Database& db);

    static constexpr const char* ConflictMessage =
        "A conflicting program is running...\nPlease close 'Journal Voucher' form";

    std::int64_t VoucherCount() const { return count_; }

    ui::Label lblCount{*this, "lblCount"};
    ui::ProgressBar ProgressBar1{*this, "ProgressBar1"};
    ui::Button btnOK{*this, "btnOK", "OK"};
    ui::Button btnCancel{*this, "btnCancel", "Cancel"};

private:
    void Post();

    store::Database& db_;
    std::int64_t count_ = 0; // counted when the form is made
};

} // namespace corvane::ledger
