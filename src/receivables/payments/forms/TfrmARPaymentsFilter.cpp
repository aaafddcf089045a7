#include "receivables/payments/forms/TfrmARPaymentsFilter.h"

#include "receivables/posting/InvoicePosting.h"
#include "shell/patterns/ListForm.h"
#include "ui/Application.h"
#include "ui/DesktopServices.h"
#include "ui/Layout.h"

namespace corvane::receivables {

namespace {

// The paid-by box: its first item is no choice, the others the codes from 1 in order.
class PaidByCriterion : public shell::FilterForm::Criterion {
public:
    explicit PaidByCriterion(ui::ComboBox& box) : box_(box) {}
    bool IsSet() const override { return box_.ItemIndex() > 0; }
    std::string Term() const override {
        return "(PaidBy = " + std::to_string(box_.ItemIndex()) + ")";
    }
    store::Value Save() const override { return box_.ItemIndex(); }
    void Restore(const store::Value& saved) override {
        box_.SetItemIndex(static_cast<int>(saved.Int()));
    }
    void Clear() override { box_.SetItemIndex(0); }

private:
    ui::ComboBox& box_;
};

} // namespace

TfrmARPaymentsFilter::TfrmARPaymentsFilter(ui::Application& app, shell::ListForm& list)
    : FilterForm(app, "frmARPaymentsFilter", list), tblCustomer(list.Db(), "Customer"),
      tblBank(list.Db(), "Bank") {
    using namespace ui;
    Caption = "Filter AR Payments";
    tblCustomer.SetIndexName("CustomerName1");
    tblCustomer.Open();
    tblBank.Open();
    const bool checkWording = App().Desktop().CountryName() == "United States";
    cboPaidBy.Items.push_back("");
    for (int code = 1; code <= 7; ++code)
        cboPaidBy.Items.push_back(PaidByText(code, checkWording));
    rgPosted.Columns = 3;
    SetLayout(Column{
        FormRow{"Customer:", cboCustomer},
        FormRow{"Bank:", cboBank},
        FormRow{"Paid by:", cboPaidBy},
        rgPosted,
        ButtonRow{btnOK, btnCancel, btnReset},
    });
    AddLookupCriterion(cboCustomer, "CustomerID");
    AddLookupCriterion(cboBank, "BankID");
    AddCriterion(std::make_unique<PaidByCriterion>(cboPaidBy));
    AddYesNoCriterion(rgPosted, "Posted", 0, 1, 2);
    Reset();
}

} // namespace corvane::receivables
