#pragma once

#include "shell/patterns/FilterForm.h"
#include "ui/Edit.h"
#include "ui/RadioGroup.h"

namespace corvane::ledger {

// Narrows the voucher list by description, source and whether the vouchers are posted.
class TfrmJVsFilter : public shell::FilterForm {
public:
    TfrmJVsFilter(ui::Application& app, shell::ListForm& list);

    ui::Edit editDescription{*this, "editDescription"};
    ui::Edit editSource{*this, "editSource"};
    ui::RadioGroup rgPosted{*this, "rgPosted", "Posted", {"&Yes", "&No", "&All"}};
};

} // namespace corvane::ledger
