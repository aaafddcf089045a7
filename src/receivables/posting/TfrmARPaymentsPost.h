#pragma once

#include "ui/Button.h"
#include "ui/Form.h"
#include "ui/Label.h"
#include "ui/ProgressBar.h"

#include <cstdint>

namespace corvane::store {
class Database;
}

namespace corvane::receivables {

// "Post AR Payments": the count of payments waiting, a progress bar, OK and Cancel. OK posts every
// one of them through PaymentPostingRun.
class TfrmARPaymentsPost : public ui::Form {
public:
    TfrmARPaymentsPost(ui::Application& app, store::Database& db);

    static constexpr const char* ConflictMessage =
        "A conflicting program is running...\nPlease close 'AR Payment' form";

    std::int64_t PaymentCount() const { return count_; }

    ui::Label lblCount{*this, "lblCount"};
    ui::ProgressBar ProgressBar1{*this, "ProgressBar1"};
    ui::Button btnOK{*this, "btnOK", "OK"};
    ui::Button btnCancel{*this, "btnCancel", "Cancel"};

private:
    void Post();

    store::Database& db_;
    std::int64_t count_ = 0; // counted when the form is made
};

} // namespace corvane::receivables
