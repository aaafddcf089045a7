#include "timebilling/forms/TfrmJobsFilter.h"

#include "shell/patterns/ListForm.h"
#include "timebilling/reports/TrptJobs.h"
#include "ui/Layout.h"

namespace corvane::timebilling {

namespace {

std::optional<std::int64_t> KeyOf(const ui::DBLookupComboBox& combo) {
    if (combo.KeyValue().IsNull()) return std::nullopt;
    return combo.KeyValue().Int();
}

class PriorityCriterion : public shell::FilterForm::Criterion {
public:
    explicit PriorityCriterion(TfrmJobsFilter& form) : form_(form) {}
    bool IsSet() const override { return form_.LowestPriority().has_value(); }
    std::string Term() const override {
        return "(Priority <= " + std::to_string(*form_.LowestPriority()) + ")";
    }
    store::Value Save() const override {
        auto priority = form_.LowestPriority();
        return priority ? store::Value(std::int64_t{*priority}) : store::Value();
    }
    void Restore(const store::Value& saved) override {
        form_.SetLowestPriority(saved.IsNull() ? std::nullopt
                                               : std::optional<int>(static_cast<int>(saved.Int())));
    }
    void Clear() override { form_.SetLowestPriority(std::nullopt); }

private:
    TfrmJobsFilter& form_;
};

} // namespace

TfrmJobsFilter::TfrmJobsFilter(ui::Application& app, shell::ListForm& list)
    : FilterForm(app, "frmJobsFilter", list), tblCustomer(list.Db(), "Customer"),
      tblEmployee(list.Db(), "Employee"),
      cboCustomer(*this, "cboCustomer", tblCustomer, "CustomerID", "CustomerName"),
      cboProjectLeader(*this, "cboProjectLeader", tblEmployee, "EmployeeID", "EmployeeName") {
    using namespace ui;
    tblCustomer.SetIndexName("CustomerName1");
    tblEmployee.SetIndexName("EmployeeName1");
    tblCustomer.Open();
    tblEmployee.Open();
    spnPriority.MinValue = 1;
    spnPriority.MaxValue = 99;
    chkAllPriorities.OnClick = [this] {
        const bool all = chkAllPriorities.Checked();
        spnPriority.Enabled = !all;
        spnPriority.SetText(all ? "<All>" : std::to_string(StartPriority));
    };
    SetLayout(Column{
        FormRow{"Customer", cboCustomer},
        FormRow{"Project Leader", cboProjectLeader},
        FormRow{"Lowest Priority", Row{spnPriority, chkAllPriorities}},
        rgpAuthorized,
        ButtonRow{btnOK, btnCancel, btnReset},
    });
    AddLookupCriterion(cboCustomer, "CustomerID");
    AddLookupCriterion(cboProjectLeader, "ProjectLeaderID");
    AddCriterion(std::make_unique<PriorityCriterion>(*this));
    AddYesNoCriterion(rgpAuthorized, "Authorized", 0, 1, 2);
    SetLowestPriority(std::nullopt);
}

std::optional<int> TfrmJobsFilter::LowestPriority() const {
    if (chkAllPriorities.Checked()) return std::nullopt;
    return spnPriority.Value();
}

void TfrmJobsFilter::SetLowestPriority(std::optional<int> priority) {
    chkAllPriorities.SetChecked(!priority);
    spnPriority.Enabled = priority.has_value();
    if (priority)
        spnPriority.SetValue(*priority);
    else
        spnPriority.SetText("<All>");
}

void TfrmJobsFilter::Narrow(JobsReportOptions& options) const {
    options.CustomerID = KeyOf(cboCustomer);
    options.ProjectLeaderID = KeyOf(cboProjectLeader);
    options.LowestPriority = LowestPriority();
    options.Authorized.reset();
    if (rgpAuthorized.ItemIndex() == 0) options.Authorized = true;
    if (rgpAuthorized.ItemIndex() == 1) options.Authorized = false;
}

} // namespace corvane::timebilling
