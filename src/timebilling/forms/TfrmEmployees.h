#pragma once

#include "shell/patterns/ListForm.h"

namespace corvane::timebilling {

// The employees, by name. An employee named on time sheets may still go: the sheets then show
// no name.
class TfrmEmployees : public shell::ListForm {
public:
    TfrmEmployees(ui::Application& app, store::Database& db);

    store::Table& tblEmployee = MainTable;
    ui::MenuItem& mnuSortEmployeeName;

protected:
    shell::EntryForm& Entry() override;
};

} // namespace corvane::timebilling
