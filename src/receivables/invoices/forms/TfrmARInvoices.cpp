#include "receivables/invoices/forms/TfrmARInvoices.h"

#include "core/Exception.h"
#include "receivables/invoices/InvoiceDocument.h"
#include "receivables/invoices/forms/NewInvoiceChoice.h"
#include "receivables/invoices/forms/TfrmARInvoice.h"
#include "receivables/invoices/forms/TfrmARInvoicePayments.h"
#include "receivables/invoices/forms/TfrmARInvoicesFilter.h"
#include "receivables/invoices/forms/TfrmARInvoicesFind.h"
#include "receivables/invoices/print/InvoiceCommands.h"
#include "receivables/invoices/print/TfrmARInvoiceSetup.h"
#include "receivables/invoices/print/TfrmARInvoicesPrint.h"
#include "receivables/posting/InvoiceReader.h"
#include "shell/patterns/OpenList.h"
#include "store/Query.h"
#include "ui/Application.h"

namespace corvane::receivables {

TfrmARInvoices::TfrmARInvoices(ui::Application& app, store::Database& db)
    : ListForm(app, "frmARInvoices", "AR Invoices", db, "ARInv", "tblARInv", "ARInvoiceID"),
      mnuSortDate(AddSortEntry("mnuSortDate", "&Date", "InvoiceDate", "InvoiceDateInvoiceNoDESC")),
      mnuSortInvoiceNo(AddSortEntry("mnuSortInvoiceNo", "&Invoice no.", "InvoiceNo", "InvoiceNo")),
      tblCustomer(db, "Customer") {
    tblCustomer.Open();
    AddListFields();
    grdList.AddColumn("InvoiceDate", "Date", 90);
    grdList.AddColumn("Periodppyyyy", "Period", 70);
    grdList.AddColumn("Age", "Age", 50);
    grdList.AddColumn("CustomerNo", "Customer no.", 100);
    grdList.AddColumn("CustomerName", "Name", 180);
    grdList.AddColumn("InvoiceNo", "Invoice no.", 80);
    grdList.AddColumn("Description", "Description", 180);
    grdList.AddColumn("InvoiceAmount", "Amount", 90);
    grdList.AddColumn("Owing", "Owing", 90);
    grdList.AddColumn("Printed", "Printed", 50);
    grdList.AddColumn("Posted", "Posted", 50);
    mnuOutstanding.Visible = true;
    mnuPost.Visible = App().HasForm("frmARInvoicesPost");
    mnuDelete.OnClick = popDelete.OnClick = tbnDelete.OnClick = [this] { DeleteInvoice(); };
    mnuCopy.OnClick = [this] { CopyInvoice(); };
    mnuPost.OnClick = [this] { PostInvoices(); };
    mnuPayments.OnClick = [this] { ShowPayments(); };
    mnuCustomer.Visible = App().HasForm("frmCustomer");
    mnuCustomer.OnClick = [this] { ShowCustomer(); };
    mnuSalesHistory.Visible = App().HasForm("frmSalesHistory");
    mnuSalesHistory.OnClick = [this] { ShowSalesHistory(); };
    mnuFind.Visible = true;
    mnuFind.OnClick =
        tbnFind.OnClick = [this] { App().SingleForm<TfrmARInvoicesFind>(*this).ShowModal(); };
    mnuFilter.OnClick = tbnFilter.OnClick = [this] {
        OpenFilter();
        ApplyFilters();
    };
    mnuFileSep.Visible = mnuExit.Visible = false;
    mnuClose.OnClick = [this] { Close(); };
    auto selected = [this]() -> std::optional<std::int64_t> {
        if (tblARInv.IsEmpty()) return std::nullopt;
        return tblARInv.FieldByName("ARInvoiceID").AsInteger();
    };
    mnuPrintSelected.OnClick = [this, selected] {
        if (auto id = selected()) PrintInvoices(id);
    };
    mnuPrintUnprinted.OnClick = [this] { PrintInvoices(std::nullopt); };
    mnuEmailInvoice.OnClick = [this, selected] {
        if (auto id = selected()) EmailSelectedInvoice(App(), Db(), *id);
    };
    mnuExportInvoice.OnClick = [this, selected] {
        if (auto id = selected()) ExportSelectedInvoice(App(), Db(), *id);
    };
    mnuInvoiceSetup.OnClick = [this] { App().CreateForm<TfrmARInvoiceSetup>(Db()).ShowModal(); };
    mnuOutstanding.OnClick = [this] { ToggleOutstanding(); };
    OnShow = [this] { Caption = CaptionNow(); };
    mnuSortDate.Click();
}

void TfrmARInvoices::AddListFields() {
    tblARInv.Close();
    tblARInv.AddLookupField("CustomerNo", store::FieldType::String, 10, "CustomerID", tblCustomer,
                            "CustomerID", "CustomerNo");
    tblARInv.AddLookupField("CustomerName", store::FieldType::String, 40, "CustomerID", tblCustomer,
                            "CustomerID", "CustomerName");
    tblARInv.AddCalculatedField("Periodppyyyy", store::FieldType::String, 8);
    tblARInv.AddCalculatedField("Age", store::FieldType::Integer);
    tblARInv.OnCalcFields = [](store::DataSet& ds) {
        const store::Field& period = ds.FieldByName("GLPeriod");
        const store::Field& year = ds.FieldByName("GLYear");
        std::string pp = period.IsNull() ? "" : std::to_string(period.AsInteger());
        if (pp.size() == 1) pp = "0" + pp;
        ds.FieldByName("Periodppyyyy").SetAsString(pp + "/" + year.AsString());
        const store::Field& date = ds.FieldByName("InvoiceDate");
        if (!date.IsNull()) ds.FieldByName("Age").SetAsInteger(Date::Today() - date.AsDate());
    };
    tblARInv.Open();
    tblARInv.FieldByName("InvoiceDate").DisplayFormat = "dd mmm yy";
    for (const char* money : {"InvoiceAmount", "Owing"})
        tblARInv.FieldByName(money).DisplayFormat = "#,###,##0.00#;(#,###,##0.00#)";
}

std::string TfrmARInvoices::CaptionNow() const {
    const bool outstanding = mnuOutstanding.Checked();
    const bool filtered = mnuFilter.Checked();
    if (outstanding && filtered) return "AR Invoices (Outstanding, Filtered)";
    if (outstanding) return "AR Invoices (Outstanding)";
    if (filtered) return "AR Invoices (Filtered)";
    return "AR Invoices";
}

void TfrmARInvoices::ToggleOutstanding() {
    mnuOutstanding.SetChecked(!mnuOutstanding.Checked());
    ApplyFilters();
}

void TfrmARInvoices::ApplyFilters() {
    std::string expression = filter_ && mnuFilter.Checked() ? filter_->Expression() : "";
    if (mnuOutstanding.Checked())
        expression = expression.empty() ? "Owing <> 0" : expression + " AND (Owing <> 0)";
    if (expression.empty()) {
        tblARInv.SetFiltered(false);
        tblARInv.SetFilter("");
    } else {
        tblARInv.SetFilter(expression);
        tblARInv.SetFiltered(true);
    }
    ShowList();
    Caption = CaptionNow();
}

shell::FilterForm* TfrmARInvoices::Filter() {
    if (!filter_) filter_ = &App().SingleForm<TfrmARInvoicesFilter>(*this);
    return filter_;
}

void TfrmARInvoices::ShowCustomer() {
    if (tblARInv.IsEmpty()) return;
    OpenCustomerRecord(App(), tblARInv.FieldByName("CustomerID").AsValue());
}

void TfrmARInvoices::ShowSalesHistory() {
    if (tblARInv.IsEmpty()) return;
    const store::Value customer = tblARInv.FieldByName("CustomerID").AsValue();
    if (customer.IsNull()) return;
    const std::string filter = "(CustomerID = " + std::to_string(customer.Int()) + ")";
    shell::OpenListOn(App(), "frmSalesHistory", "SalesHistory", filter, filter);
}

TfrmARInvoice& TfrmARInvoices::InvoiceForm() {
    TfrmARInvoice& form = App().SingleForm<TfrmARInvoice>(Db());
    form.PrintInvoice = [this](std::int64_t id) { PrintInvoices(id); };
    form.AfterSave = [this](shell::EntryForm& saved) {
        store::Value id = saved.EntryTable.FieldByName("ARInvoiceID").AsValue();
        RefreshList();
        tblARInv.Locate("ARInvoiceID", {id});
    };
    if (!form.OpenPayment)
        form.OpenPayment = [this, &form] {
            if (ui::Form* pop = App().OpenForm("frmARInvoicePOSPmt")) pop->ShowModal();
            (void)form;
        };
    return form;
}

shell::EntryForm& TfrmARInvoices::Entry() {
    return InvoiceForm();
}

void TfrmARInvoices::NewRecord() {
    if (ui::Form* selection = App().OpenForm("frmARInvoiceNew")) {
        if (selection->ShowModal() != ui::mrOK) return;
        const auto* choice = dynamic_cast<const NewInvoiceChoice*>(selection);
        if (choice && !choice->ManualChosen()) {
            RefreshList();
            return;
        }
    }
    ListForm::NewRecord();
}

void TfrmARInvoices::DeleteInvoice() {
    if (tblARInv.IsEmpty()) return;
    const std::string no = tblARInv.FieldByName("InvoiceNo").AsString();
    if (App().MessageDlg("Delete invoice '" + no + "'?", ui::MsgType::Confirmation,
                         {ui::mbYes, ui::mbNo}) != ui::mbYes)
        return;
    const InvoiceVerdict verdict =
        receivables::DeleteInvoice(Db(), tblARInv.FieldByName("ARInvoiceID").AsInteger());
    if (!verdict.Accepted()) throw Exception(verdict.Message);
    RefreshList();
}

void TfrmARInvoices::CopyInvoice() {
    if (tblARInv.IsEmpty()) return;
    const std::int64_t id = tblARInv.FieldByName("ARInvoiceID").AsInteger();
    if (tblARInv.FieldByName("TimeInvoice").AsBoolean())
        throw Exception("Unable to copy invoice '" + tblARInv.FieldByName("InvoiceNo").AsString() +
                        "'...\nInvoices AutoCreated from time sheets cannot be copied");
    TfrmARInvoice& form = InvoiceForm();
    form.CopyFrom(id);
    form.Show();
}

void TfrmARInvoices::PostInvoices() {
    ui::Form* post = App().OpenForm("frmARInvoicesPost");
    if (!post) return;
    const ui::ModalResult result = post->ShowModal();
    RefreshList();
    // The vouchers the run wrote go to the ledger at once, if the user agrees there.
    if (result == ui::mrOK)
        if (ui::Form* vouchers = App().OpenForm("frmJVsPost")) vouchers->ShowModal();
}

void TfrmARInvoices::PrintInvoices(std::optional<std::int64_t> arInvoiceId) {
    store::Value at =
        tblARInv.IsEmpty() ? store::Value() : tblARInv.FieldByName("ARInvoiceID").AsValue();
    auto& print = App().CreateForm<TfrmARInvoicesPrint>(Db(), arInvoiceId);
    print.ShowModal();
    RefreshList();
    if (!at.IsNull()) tblARInv.Locate("ARInvoiceID", {at});
}

void TfrmARInvoices::ShowPayments() {
    if (tblARInv.IsEmpty()) return;
    const std::string no = tblARInv.FieldByName("InvoiceNo").AsString();
    if (!tblARInv.FieldByName("Posted").AsBoolean()) {
        if (!tblARInv.FieldByName("POSPmtAmount").AsMoney().IsZero())
            throw Exception("POS Payment not yet created because invoice '" + no +
                            "' not yet posted.");
        throw Exception("No payments exist for invoice '" + no + "'.");
    }
    store::Query q(Db(), "SELECT PaymentID FROM ARInvPmt WHERE ARInvoiceID = :ID");
    q.ParamByName("ID").SetValue(tblARInv.FieldByName("ARInvoiceID").AsValue());
    q.Open();
    if (q.IsEmpty()) throw Exception("No payments exist for invoice '" + no + "'.");
    auto& payments = App().SingleForm<TfrmARInvoicePayments>(Db());
    payments.ShowInvoice(tblARInv.FieldByName("ARInvoiceID").AsInteger(), no);
    payments.Show();
}

} // namespace corvane::receivables
