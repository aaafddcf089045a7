#pragma once

#include "shell/patterns/SearchForm.h"

namespace corvane::ledger {

// Picks a subaccount of one level by typing its number or name. OK returns the SubAccountID
// through SelectedKey.
class TfrmGLAccountSubSearch : public shell::SearchForm {
public:
    TfrmGLAccountSubSearch(ui::Application& app, store::Database& db);

    ui::Edit editFindSubAccount{*this, "editFindSubAccount"};
    ui::Edit editFindSubAccountName{*this, "editFindSubAccountName"};

    int Level() const { return level_; }
    // Searches the subaccounts of level 1 to 3 from now on.
    void SetLevel(int level);

private:
    int level_ = 1;
};

} // namespace corvane::ledger
