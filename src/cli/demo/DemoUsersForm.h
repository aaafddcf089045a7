#pragma once

#include "store/Table.h"
#include "ui/Button.h"
#include "ui/Form.h"
#include "ui/Grid.h"

namespace corvane::cli::demo {

// A list of the company's users with New, Edit and Delete, enough for scenarios to show what the
// runner does with a grid, a modal entry form and a question.
class DemoUsersForm : public ui::Form {
public:
    DemoUsersForm(ui::Application& app, store::Database& db);

    store::Table tblUsers;
    ui::Grid gridUsers{*this, "gridUsers", tblUsers};
    ui::Button btnNew{*this, "btnNew", "&New"};
    ui::Button btnEdit{*this, "btnEdit", "&Edit"};
    ui::Button btnDelete{*this, "btnDelete", "&Delete"};
    ui::Button btnClose{*this, "btnClose", "&Close"};

private:
    // Runs the entry form on the record just put in Insert or Edit.
    void EditCurrent();
    void UpdateButtons();
};

} // namespace corvane::cli::demo
