#pragma once

#include "shell/patterns/ListForm.h"

namespace corvane::shell {

// The users of the company, by name.
class TfrmUsers : public ListForm {
public:
    TfrmUsers(ui::Application& app, store::Database& db);

    store::Table& tblUsers = MainTable;
    ui::MenuItem& mnuSortUserName;

protected:
    EntryForm& Entry() override;
    FilterForm* Filter() override;
    SearchForm* Search() override;
};

} // namespace corvane::shell
