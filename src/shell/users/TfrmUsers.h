#pragma once

#include "shell/patterns/ListForm.h"

namespace corvane::shell {

// The users of the company, by name. There is no filter: a company has a handful of users. The
// list will not close while users exist and none of them may change security, since nobody could
// then come back here to grant it.
class TfrmUsers : public ListForm {
public:
    TfrmUsers(ui::Application& app, store::Database& db);

    store::Table& tblUsers = MainTable;
    ui::MenuItem& mnuSortUserName;

protected:
    EntryForm& Entry() override;
    SearchForm* Search() override;

private:
    void FormCloseQuery(bool& canClose);
};

} // namespace corvane::shell
