#pragma once

#include "shell/patterns/FilterForm.h"
#include "store/Table.h"
#include "ui/DBLookupComboBox.h"
#include "ui/RadioGroup.h"

namespace corvane::timebilling {

// The criteria of the jobs list: customer, project leader, authorized or not.
class TfrmJobsFilter : public shell::FilterForm {
public:
    TfrmJobsFilter(ui::Application& app, shell::ListForm& list);

    store::Table tblCustomer, tblEmployee;
    ui::DBLookupComboBox cboCustomer;
    ui::DBLookupComboBox cboProjectLeader;
    ui::RadioGroup rgpAuthorized{*this, "rgpAuthorized", "OK to Proceed", {"Yes", "No", "All"}};
};

} // namespace corvane::timebilling
