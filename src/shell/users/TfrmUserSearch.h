#pragma once

#include "shell/patterns/SearchForm.h"

namespace corvane::shell {

// Finds a user by typing the start of the name.
class TfrmUserSearch : public SearchForm {
public:
    TfrmUserSearch(ui::Application& app, store::Database& db);

    ui::Edit editFindUserName{*this, "editFindUserName"};
};

} // namespace corvane::shell
