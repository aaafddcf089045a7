#pragma once

#include "shell/patterns/FilterForm.h"
#include "ui/Edit.h"
#include "ui/RadioGroup.h"

namespace corvane::ledger {

// Narrows the chart to accounts whose number or name begins with (or, with a leading *,
// contains) a text, and to the suspended or the active ones.
class TfrmGLAccountsFilter : public shell::FilterForm {
public:
    explicit TfrmGLAccountsFilter(ui::Application& app, shell::ListForm& list);

    ui::Edit editGLAccount{*this, "editGLAccount"};
    ui::Edit editAccountName{*this, "editAccountName"};
    ui::RadioGroup rgpSuspended{*this, "rgpSuspended", "Suspended", {"&Yes", "&No", "&All"}};
};

} // namespace corvane::ledger
