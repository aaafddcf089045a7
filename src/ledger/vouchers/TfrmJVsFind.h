#pragma once

#include "shell/patterns/FindForm.h"
#include "ui/Edit.h"

namespace corvane::ledger {

// Goes to a voucher by its number or by the start of its description.
class TfrmJVsFind : public shell::FindForm {
public:
    TfrmJVsFind(ui::Application& app, shell::ListForm& list);

    ui::Edit editJVNumber{*this, "editJVNumber"};
    ui::Edit editDescription{*this, "editDescription"};
};

} // namespace corvane::ledger
