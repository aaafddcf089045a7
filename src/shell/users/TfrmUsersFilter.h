#pragma once

#include "shell/patterns/FilterForm.h"

namespace corvane::shell {

// Users by name pattern and by whether they may change security.
class TfrmUsersFilter : public FilterForm {
public:
    TfrmUsersFilter(ui::Application& app, ListForm& list);

    ui::Edit editUserName{*this, "editUserName"};
    ui::RadioGroup rgSecurity{*this, "rgSecurity", "Security", {"&Yes", "&No", "&All"}};
};

} // namespace corvane::shell
