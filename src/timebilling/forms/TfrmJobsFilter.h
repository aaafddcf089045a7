#pragma once

#include "shell/patterns/FilterForm.h"
#include "store/Table.h"
#include "ui/CheckBox.h"
#include "ui/DBLookupComboBox.h"
#include "ui/RadioGroup.h"
#include "ui/SpinEdit.h"

#include <optional>

namespace corvane::timebilling {

struct JobsReportOptions;

// The criteria of the jobs list: customer, project leader, lowest priority, authorized or not.
class TfrmJobsFilter : public shell::FilterForm {
public:
    TfrmJobsFilter(ui::Application& app, shell::ListForm& list);

    store::Table tblCustomer, tblEmployee;
    ui::DBLookupComboBox cboCustomer;
    ui::DBLookupComboBox cboProjectLeader;
    // Off: the box reads "<All>" and every priority shows. On: it steps from 10.
    ui::CheckBox chkAllPriorities{*this, "chkAllPriorities", "All"};
    ui::SpinEdit spnPriority{*this, "spnPriority"};
    ui::RadioGroup rgpAuthorized{*this, "rgpAuthorized", "OK to Proceed", {"Yes", "No", "All"}};

    // The lowest priority shown, when the box is on.
    std::optional<int> LowestPriority() const;
    void SetLowestPriority(std::optional<int> priority);
    // The criteria as the jobs report reads them.
    void Narrow(JobsReportOptions& options) const;

    static constexpr int StartPriority = 10;
};

} // namespace corvane::timebilling
