#include "receivables/payments/forms/TfrmARPaymentsFind.h"

#include "core/Exception.h"
#include "receivables/payments/forms/TfrmARPayments.h"
#include "ui/Layout.h"

namespace corvane::receivables {

TfrmARPaymentsFind::TfrmARPaymentsFind(ui::Application& app, TfrmARPayments& list)
    : Form(app, "frmARPaymentsFind"), tblCustomer(list.Db(), "Customer"), list_(list) {
    using namespace ui;
    Caption = "Find AR Payment";
    tblCustomer.SetIndexName("CustomerName1");
    tblCustomer.Open();
    btnOK.Default = true;
    btnCancel.Cancel = true;
    btnCancel.ModalResult = mrCancel;
    SetLayout(Column{
        FormRow{"Customer:", cboCustomer},
        FormRow{"Reference:", editReference},
        ButtonRow{btnOK, btnCancel},
    });
    btnOK.OnClick = [this] { FindPayment(); };
}

void TfrmARPaymentsFind::FindPayment() {
    const std::string reference = editReference.Text();
    const store::Value customer = cboCustomer.KeyValue();
    store::Table& payments = list_.tblARPmt;
    if (!customer.IsNull()) {
        if (!payments.Locate("CustomerID;ChequeNo", {customer, store::Value(reference)})) {
            const store::Value name = tblCustomer.Lookup("CustomerID", {customer}, "CustomerName");
            throw Exception("Payment '" + reference + "' not found for '" +
                            (name.IsNull() ? std::string() : name.Str()) + "'");
        }
    } else if (!payments.Locate("ChequeNo", {store::Value(reference)})) {
        throw Exception("Payment '" + reference + "' not found");
    }
    SetModalResult(ui::mrOK);
}

} // namespace corvane::receivables
