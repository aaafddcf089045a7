#pragma once

#include "shell/patterns/ListForm.h"

namespace corvane::timebilling {

// The task types, by name. A type that tasks use cannot go.
class TfrmTaskTypes : public shell::ListForm {
public:
    TfrmTaskTypes(ui::Application& app, store::Database& db);

    store::Table& tblTaskType = MainTable;
    ui::MenuItem& mnuSortTypeName;

protected:
    shell::EntryForm& Entry() override;
};

} // namespace corvane::timebilling
