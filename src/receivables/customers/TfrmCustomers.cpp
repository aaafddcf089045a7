#include "receivables/customers/TfrmCustomers.h"

#include "banking/import/ImportCommand.h"
#include "core/Exception.h"
#include "core/Refusal.h"
#include "receivables/customers/TfrmCustomer.h"
#include "receivables/customers/TfrmCustomerSearch.h"
#include "receivables/customers/TfrmCustomersFilter.h"
#include "receivables/domain/CustomerRecord.h"
#include "receivables/masters/FieldActionButton.h"
#include "reports/export/ListExport.h"
#include "reports/preview/ReportOutput.h"
#include "shell/lookups/LookUpCalcFields.h"
#include "shell/lookups/TdmLookUps.h"
#include "shell/patterns/OpenList.h"
#include "ui/Application.h"
#include "ui/WaitCursor.h"

namespace corvane::receivables {

namespace {

// Parts joined by sep, each only when it holds something.
void Join(std::string& text, std::string_view part, std::string_view sep) {
    if (part.empty()) return;
    if (!text.empty()) text += sep;
    text += part;
}

} // namespace

TfrmCustomers::TfrmCustomers(ui::Application& app, store::Database& db, shell::TdmLookUps& lookUps)
    : ListForm(app, "frmCustomers", "Customers", db, "Customer", "tblCustomer", "CustomerID"),
      tblCBalance(db, "CBalance"),
      mnuSortCustomerNo(
          AddSortEntry("mnuSortCustomerNo", "Customer &no.", "CustomerNo", "CustomerNo")),
      mnuSortCustomerName(
          AddSortEntry("mnuSortCustomerName", "&Name", "CustomerName", "CustomerName1")),
      lookUps_(lookUps) {
    // Calculated and looked-up fields exist only in a cursor that adds them before it opens.
    tblCustomer.Close();
    shell::AddOneLineAddress(tblCustomer);
    tblCBalance.Open();
    tblCustomer
        .AddLookupField("Balance", store::FieldType::Currency, 0, "CustomerID", tblCBalance,
                        "CustomerID", "Balance")
        .DisplayFormat = "#,###,##0.00#;(#,###,##0.00#)";
    tblCustomer.Open();
    grdList.AddColumn("CustomerNo", "Customer no.", 95);
    grdList.AddColumn("CustomerName", "Name", 200);
    grdList.AddColumn("Address", "Address", 320);
    grdList.AddColumn("Phone", "Phone", 115);
    grdList.AddColumn("Contact", "Contact", 130);
    grdList.AddColumn("Balance", "Balance", 90);

    popPhone.OnClick = [this] {
        const std::string phone = tblCustomer.FieldByName("Phone").AsString();
        if (!phone.empty()) DialNumber(App(), phone);
    };
    popEMail.OnClick = [this] {
        const std::string mail = tblCustomer.FieldByName("EMail").AsString();
        if (!mail.empty()) MailTo(App(), mail);
    };
    popMap.OnClick = [this] { App().Desktop().OpenUrl(MapService + "/maps?q=" + MapAddress()); };
    popCopyAddress.OnClick = [this] { App().Desktop().SetClipboardText(ClipboardAddress()); };
    struct CustomerList {
        ui::MenuItem* Item;
        const char* Form;
        const char* Right;
        const char* OpenTerm;
    };
    for (CustomerList each :
         {CustomerList{&mnuInvoices, "frmARInvoices", "ARInvoices", "Owing <> 0"},
          CustomerList{&mnuPayments, "frmARPayments", "ARPayments", "Reconciled <> true"},
          CustomerList{&mnuJobs, "frmJobs", "Jobs", "Completed = false"},
          CustomerList{&mnuTimeSheets, "frmTimeSheets", "TimeSheets", "InvoiceNo = null"},
          CustomerList{&mnuSalesHistory, "frmSalesHistory", "SalesHistory", ""}}) {
        each.Item->OnClick = [this, each] {
            if (tblCustomer.IsEmpty()) return;
            const std::string customer =
                "(CustomerID = " +
                std::to_string(tblCustomer.FieldByName("CustomerID").AsInteger()) + ")";
            const std::string openOnly =
                *each.OpenTerm ? customer + " AND (" + each.OpenTerm + ")" : customer;
            shell::OpenListOn(App(), each.Form, each.Right, customer, openOnly);
        };
    }
    mnuEmailAll.OnClick = [this] { EmailAll(); };
    mnuImport.OnClick = [this] {
        if (banking::ImportInto(App(), "Customers")) RefreshList();
    };
    mnuExport.Caption = "Export for &labels...";
    mnuExport.Visible = true;
    tblCustomer.BeforeDelete = [this](store::DataSet&) { BeforeDeleteCustomer(); };
    mnuSortCustomerName.Click();
}

TfrmCustomers::~TfrmCustomers() {
    tblCustomer.BeforeDelete = nullptr;
}

shell::EntryForm& TfrmCustomers::Entry() {
    auto& entry = App().SingleForm<TfrmCustomer>(Db(), lookUps_);
    return entry;
}

shell::FilterForm* TfrmCustomers::Filter() {
    if (!filter_) filter_ = &App().SingleForm<TfrmCustomersFilter>(*this, lookUps_);
    return filter_;
}

shell::SearchForm* TfrmCustomers::Search() {
    if (!search_) search_ = &App().SingleForm<TfrmCustomerSearch>(Db());
    return search_;
}

void TfrmCustomers::Export() {
    const std::optional<std::string> path = reports::ReportOutput::Current().SaveFileName(
        "Export for labels", "Customers.xlsx",
        "Excel files (*.xlsx)|*.xlsx|Text files (*.txt)|*.txt");
    if (!path) return;
    // A mail-merge reads the text file as comma-separated, every value in quotes.
    const reports::ListExport spec{"Customers",
                                   {{"Customer no.", "CustomerNo"},
                                    {"Contact", "Contact"},
                                    {"Customer name", "CustomerName"},
                                    {"Address line 1", "AddressLine1"},
                                    {"Address line 2", "AddressLine2"},
                                    {"City", "City"},
                                    {"Province", "StateProv"},
                                    {"Postal code", "ZipCode"},
                                    {"Country", "Country"}},
                                   ',',
                                   true};
    ui::WaitCursor wait(App());
    const std::vector<store::Value> at = CurrentKey();
    reports::ExportRows(tblCustomer, spec, *path);
    if (!at.empty()) tblCustomer.Locate(KeyFields(), at);
}

std::string TfrmCustomers::AllEMailAddresses() {
    std::string addresses;
    const std::vector<store::Value> at = CurrentKey();
    tblCustomer.DisableControls();
    for (tblCustomer.First(); !tblCustomer.Eof(); tblCustomer.Next())
        Join(addresses, tblCustomer.FieldByName("EMail").AsString(), "; ");
    if (!at.empty()) tblCustomer.Locate(KeyFields(), at);
    tblCustomer.EnableControls();
    return addresses;
}

void TfrmCustomers::EmailAll() {
    const std::string addresses = AllEMailAddresses();
    // Beyond this a mail program refuses the address line.
    constexpr std::size_t kLongestMailto = 200001;
    if (addresses.size() + 15 > kLongestMailto)
        throw Exception("Email feature could not run because there are too many email "
                        "addresses...\n\nTry filtering the list.");
    App().Desktop().OpenMail("mailto:?cc=&bcc=" + addresses);
}

std::string TfrmCustomers::MapAddress() {
    std::string address;
    for (const char* field : {"AddressLine1", "AddressLine2", "City"})
        Join(address, tblCustomer.FieldByName(field).AsString(), ", ");
    return address;
}

std::string TfrmCustomers::ClipboardAddress() {
    auto text = [this](const char* field) { return tblCustomer.FieldByName(field).AsString(); };
    std::string city;
    Join(city, text("City"), "");
    Join(city, text("StateProv"), ", ");
    Join(city, text("ZipCode"), "  ");
    std::string lines;
    for (const std::string& line :
         {text("CustomerName"), text("AddressLine1"), text("AddressLine2"), city, text("Country")})
        Join(lines, line, "\n");
    return lines;
}

void TfrmCustomers::BeforeDeleteCustomer() {
    const std::string label = CustomerLabel(tblCustomer.FieldByName("CustomerNo").AsString(),
                                            tblCustomer.FieldByName("CustomerName").AsString());
    if (App().MessageDlg(DeleteQuestion(label), ui::MsgType::Confirmation, {ui::mbYes, ui::mbNo}) !=
        ui::mbYes)
        Abort();
    const std::int64_t id = tblCustomer.FieldByName("CustomerID").AsInteger();
    const std::string reason = CustomerInUse(Db(), id);
    if (!reason.empty()) throw Exception(DeleteRefusal(label, reason));
    // The customer goes with its balance row and contacts in one transaction; the list then
    // only has to read itself again.
    DeleteCustomer(Db(), id);
    RefreshList();
    Abort();
}

} // namespace corvane::receivables
