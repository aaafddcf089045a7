#include "receivables/payments/forms/TfrmARPayments.h"

#include "core/Exception.h"
#include "receivables/payments/domain/PaymentDocument.h"
#include "receivables/payments/forms/TfrmARPayment.h"
#include "receivables/payments/forms/TfrmARPaymentsFilter.h"
#include "receivables/payments/forms/TfrmARPaymentsFind.h"
#include "receivables/posting/InvoicePosting.h"
#include "shell/patterns/EntryForm.h"
#include "ui/Application.h"
#include "ui/DesktopServices.h"

namespace corvane::receivables {

TfrmARPayments::TfrmARPayments(ui::Application& app, store::Database& db)
    : ListForm(app, "frmARPayments", "AR Payments", db, "ARPmt", "tblARPmt", "PaymentID"),
      mnuSortDate(AddSortEntry("mnuSortDate", "&Date", "PaymentDate", "PaymentDateChequeNoDESC")),
      mnuSortReference(AddSortEntry("mnuSortReference", "&Reference", "ChequeNo", "ChequeNo")),
      tblCustomer(db, "Customer"), tblBank(db, "Bank") {
    tblCustomer.Open();
    tblBank.Open();
    AddListFields();
    grdList.AddColumn("PaymentDate", "Date", 90);
    grdList.AddColumn("ChequeNo", "Reference", 80);
    grdList.AddColumn("CustomerNo", "Customer no.", 100);
    grdList.AddColumn("CustomerName", "Name", 180);
    grdList.AddColumn("BankName", "Bank", 140);
    grdList.AddColumn("PaidByText", "Paid by", 110);
    grdList.AddColumn("ChequeAmount", "Amount", 90);
    grdList.AddColumn("Posted", "Posted", 50);
    grdList.AddColumn("Reconciled", "Reconciled", 70);
    mnuOutstanding.Visible = true;
    mnuPost.Visible = App().HasForm("frmARPaymentsPost");
    mnuDelete.OnClick = popDelete.OnClick = tbnDelete.OnClick = [this] { DeletePayment(); };
    // With no payment to edit, Edit starts a new one.
    mnuEdit.OnClick = popEdit.OnClick = tbnEdit.OnClick = [this] {
        if (tblARPmt.IsEmpty())
            NewRecord();
        else
            EditRecord();
    };
    mnuPost.OnClick = [this] { PostPayments(); };
    mnuCustomer.Visible = App().HasForm("frmCustomer");
    mnuCustomer.OnClick = [this] { ShowCustomer(); };
    mnuReconciled.OnClick = [this] { FlipReconciled(); };
    mnuOutstanding.OnClick = [this] { ToggleOutstanding(); };
    mnuFind.Visible = true;
    mnuFind.OnClick =
        tbnFind.OnClick = [this] { App().SingleForm<TfrmARPaymentsFind>(*this).ShowModal(); };
    mnuFilter.OnClick = tbnFilter.OnClick = [this] {
        OpenFilter();
        ApplyFilters();
    };
    OnShow = [this] { Caption = CaptionNow(); };
    mnuSortDate.Click();
}

void TfrmARPayments::AddListFields() {
    tblARPmt.Close();
    tblARPmt.AddLookupField("CustomerNo", store::FieldType::String, 10, "CustomerID", tblCustomer,
                            "CustomerID", "CustomerNo");
    tblARPmt.AddLookupField("CustomerName", store::FieldType::String, 40, "CustomerID", tblCustomer,
                            "CustomerID", "CustomerName");
    tblARPmt.AddLookupField("BankName", store::FieldType::String, 40, "BankID", tblBank, "BankID",
                            "BankName");
    tblARPmt.AddCalculatedField("PaidByText", store::FieldType::String, 20);
    const bool checkWording = App().Desktop().CountryName() == "United States";
    tblARPmt.OnCalcFields = [checkWording](store::DataSet& ds) {
        ds.FieldByName("PaidByText")
            .SetAsString(PaidByText(ds.FieldByName("PaidBy"), checkWording));
    };
    tblARPmt.Open();
    tblARPmt.FieldByName("PaymentDate").DisplayFormat = "dd mmm yy";
    tblARPmt.FieldByName("ChequeAmount").DisplayFormat = "#,###,##0.00#;(#,###,##0.00#)";
}

std::string TfrmARPayments::CaptionNow() const {
    const bool outstanding = mnuOutstanding.Checked();
    const bool filtered = mnuFilter.Checked();
    if (outstanding && filtered) return "AR Payments (Outstanding, Filtered)";
    if (outstanding) return "AR Payments (Outstanding)";
    if (filtered) return "AR Payments (Filtered)";
    return "AR Payments";
}

void TfrmARPayments::ToggleOutstanding() {
    mnuOutstanding.SetChecked(!mnuOutstanding.Checked());
    ApplyFilters();
}

void TfrmARPayments::ApplyFilters() {
    std::string expression = filter_ && mnuFilter.Checked() ? filter_->Expression() : "";
    if (mnuOutstanding.Checked())
        expression =
            expression.empty() ? "Reconciled <> true" : expression + " AND (Reconciled <> true)";
    if (expression.empty()) {
        tblARPmt.SetFiltered(false);
        tblARPmt.SetFilter("");
    } else {
        tblARPmt.SetFilter(expression);
        tblARPmt.SetFiltered(true);
    }
    ShowList();
    Caption = CaptionNow();
}

shell::FilterForm* TfrmARPayments::Filter() {
    if (!filter_) filter_ = &App().SingleForm<TfrmARPaymentsFilter>(*this);
    return filter_;
}

TfrmARPayment& TfrmARPayments::PaymentForm() {
    // Through the program's registration, which gives the payment its choosers.
    auto* registered = dynamic_cast<TfrmARPayment*>(App().OpenForm("frmARPayment"));
    TfrmARPayment& form = registered ? *registered : App().SingleForm<TfrmARPayment>(Db());
    form.AfterSave = [this](shell::EntryForm& saved) {
        store::Value id = saved.EntryTable.FieldByName("PaymentID").AsValue();
        RefreshList();
        tblARPmt.Locate("PaymentID", {id});
    };
    return form;
}

shell::EntryForm& TfrmARPayments::Entry() {
    return PaymentForm();
}

void TfrmARPayments::DeletePayment() {
    if (tblARPmt.IsEmpty()) return;
    const std::int64_t id = tblARPmt.FieldByName("PaymentID").AsInteger();
    if (App().MessageDlg(DeleteQuestion(Db(), id), ui::MsgType::Confirmation,
                         {ui::mbYes, ui::mbNo}) != ui::mbYes)
        return;
    const PaymentVerdict verdict = receivables::DeletePayment(Db(), id);
    if (!verdict.Accepted()) throw Exception(verdict.Message);
    RefreshList();
}

void TfrmARPayments::ShowCustomer() {
    if (tblARPmt.IsEmpty()) return;
    OpenCustomerRecord(App(), tblARPmt.FieldByName("CustomerID").AsValue());
}

void TfrmARPayments::FlipReconciled() {
    if (tblARPmt.IsEmpty()) return;
    // Posted or not, the bank's clearing is the one thing a payment may still change.
    tblARPmt.Edit();
    store::Field& reconciled = tblARPmt.FieldByName("Reconciled");
    reconciled.SetAsBoolean(!reconciled.AsBoolean());
    tblARPmt.Post();
    tblARPmt.FlushBuffers();
}

void TfrmARPayments::PostPayments() {
    ui::Form* post = App().OpenForm("frmARPaymentsPost");
    if (!post) return;
    const ui::ModalResult result = post->ShowModal();
    RefreshList();
    // The vouchers the run wrote go to the ledger at once, if the user agrees there.
    if (result == ui::mrOK)
        if (ui::Form* vouchers = App().OpenForm("frmJVsPost")) vouchers->ShowModal();
}

} // namespace corvane::receivables
