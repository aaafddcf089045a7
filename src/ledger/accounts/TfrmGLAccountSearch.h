#pragma once

#include "shell/patterns/SearchForm.h"
#include "ui/ComboBox.h"

#include <string>

namespace corvane::ledger {

// The filter that narrows the accounts to one type, behind the filter already in force (empty
// for none).
std::string AccountTypeFilter(const std::string& standing, int accountType);

// Picks an account by typing its number or name, optionally among one type of account. OK
// returns the GLAccountID through SelectedKey.
class TfrmGLAccountSearch : public shell::SearchForm {
public:
    TfrmGLAccountSearch(ui::Application& app, store::Database& db);

    ui::Edit editFindGLAccount{*this, "editFindGLAccount"};
    ui::Edit editFindAccountName{*this, "editFindAccountName"};
    // "All" and then the five types.
    ui::ComboBox cboAccountType{*this, "cboAccountType"};

    std::int64_t SelectedAccountID();

private:
    void TypeChosen();

    // The filter the search was started with, which the type narrows further.
    std::string standing_;
};

} // namespace corvane::ledger
