#include "timebilling/forms/TfrmTimeSheetsFilter.h"

#include "core/Text.h"
#include "shell/patterns/FilterTerms.h"
#include "shell/patterns/ListForm.h"
#include "timebilling/forms/CustomerChoice.h"
#include "ui/Layout.h"

namespace corvane::timebilling {

namespace {

// The invoice number as typed, matched whole.
class InvoiceCriterion : public shell::FilterForm::Criterion {
public:
    explicit InvoiceCriterion(ui::Edit& edit) : edit_(edit) {}
    bool IsSet() const override { return !Typed().empty(); }
    std::string Term() const override {
        return "(InvoiceNo = " + shell::QuoteFilterText(Typed()) + ")";
    }
    store::Value Save() const override { return edit_.Text(); }
    void Restore(const store::Value& saved) override { edit_.SetText(saved.Str()); }
    void Clear() override { edit_.SetText({}); }

private:
    std::string Typed() const { return std::string(TrimBlanks(edit_.Text())); }
    ui::Edit& edit_;
};

} // namespace

TfrmTimeSheetsFilter::TfrmTimeSheetsFilter(ui::Application& app, shell::ListForm& list)
    : FilterForm(app, "frmTimeSheetsFilter", list), tblEmployee(list.Db(), "Employee"),
      tblCustomer(list.Db(), "Customer"), tblJob(list.Db(), "Job"),
      cboEmployee(*this, "cboEmployee", tblEmployee, "EmployeeID", "EmployeeName"),
      cboCustomer(*this, "cboCustomer", tblCustomer, "CustomerID", "CustomerName;CustomerNo"),
      cboJob(*this, "cboJob", tblJob, "JobID", "JobName") {
    using namespace ui;
    tblEmployee.SetIndexName("EmployeeName1");
    tblCustomer.SetIndexName("CustomerName1");
    tblJob.SetIndexName("JobName1");
    tblEmployee.Open();
    tblCustomer.Open();
    tblJob.Open();
    editInvoiceNo.MaxLength = 10;
    SetLayout(Column{
        FormRow{"Employee", cboEmployee},
        FormRow{"Customer", Row{cboCustomer, btnCustomer}},
        FormRow{"Job", cboJob},
        FormRow{"Invoice no.", editInvoiceNo},
        ButtonRow{btnOK, btnCancel, btnReset},
    });
    cboCustomer.OnChange = [this] {
        // A job of another customer is no choice any more.
        const store::Value job = cboJob.KeyValue();
        NarrowJobsToCustomer(tblJob, cboCustomer.KeyValue());
        if (!job.IsNull() && !tblJob.Locate("JobID", {job})) cboJob.SetKeyValue({});
    };
    ConnectCustomerSearch(btnCustomer, cboCustomer, list.Db());
    AddLookupCriterion(cboEmployee, "EmployeeID");
    AddLookupCriterion(cboJob, "JobID");
    AddLookupCriterion(cboCustomer, "CustomerID");
    AddCriterion(std::make_unique<InvoiceCriterion>(editInvoiceNo));
}

void TfrmTimeSheetsFilter::OneJob(std::int64_t jobId) {
    Reset();
    cboJob.SetKeyValue(store::Value(jobId));
}

} // namespace corvane::timebilling
