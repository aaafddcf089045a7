#pragma once

#include "ui/Button.h"
#include "ui/Form.h"
#include "ui/Memo.h"

#include <optional>
#include <string>

namespace corvane::receivables {

// The notes of an invoice line, in a window of their own where they have room: Ctrl+Enter keeps
// them, Esc leaves the line's notes as they were.
class TfrmARInvoiceNotes : public ui::Form {
public:
    explicit TfrmARInvoiceNotes(ui::Application& app);

    ui::Memo memoNotes{*this, "memoNotes"};
    ui::Button btnOK{*this, "btnOK", "OK"};
    ui::Button btnCancel{*this, "btnCancel", "Cancel"};

    // Shows notes for changing; the notes kept, or nothing when the person cancelled.
    std::optional<std::string> Edit(const std::string& notes);
};

} // namespace corvane::receivables
