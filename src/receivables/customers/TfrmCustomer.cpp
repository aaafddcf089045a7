#include "receivables/customers/TfrmCustomer.h"

#include "banking/usage/RefusalFocus.h"
#include "core/DisplayFormat.h"
#include "core/Exception.h"
#include "core/Refusal.h"
#include "receivables/customers/TfrmCContact.h"
#include "receivables/domain/CustomerRecord.h"
#include "shell/lookups/TdmLookUps.h"
#include "store/Query.h"
#include "ui/Application.h"
#include "ui/Layout.h"

#include "shell/patterns/OpenList.h"
#include <algorithm>
#include <cctype>

namespace corvane::receivables {

namespace {

using shell::LookUp;

std::string Upper(std::string_view text) {
    std::string upper(text);
    std::transform(upper.begin(), upper.end(), upper.begin(),
                   [](unsigned char c) { return static_cast<char>(std::toupper(c)); });
    return upper;
}

// Postal codes are kept in capitals, however they were typed.
void ForceUpperCase(store::Field& field) {
    field.OnSetText = [](store::Field& f, std::string_view text) { f.SetAsString(Upper(text)); };
}

// A web address typed with its scheme keeps what follows it: characters 8 to 29 of the text.
void StripScheme(store::Field& field) {
    field.OnSetText = [](store::Field& f, std::string_view text) {
        if (text.find("http://") != std::string_view::npos)
            f.SetAsString(text.size() > 7 ? text.substr(7, 22) : std::string_view());
        else
            f.SetAsString(text);
    };
}

} // namespace

TfrmCustomer::TfrmCustomer(ui::Application& app, store::Database& db, shell::TdmLookUps& lookUps)
    : EntryForm(app, "frmCustomer", db, "Customer", "tblCustomer"), tblCContact(db, "CContact"),
      cboCurrency(*this, "cboCurrency", EntryTable, "CurrencyID",
                  lookUps.ListSource(LookUp::Currency), "CurrencyID", "CurrencyName"),
      cboTax1(*this, "cboTax1", EntryTable, "Tax1ID", lookUps.ListSource(LookUp::Tax), "TaxID",
              "TaxName"),
      cboTax2(*this, "cboTax2", EntryTable, "Tax2ID", lookUps.ListSource(LookUp::Tax), "TaxID",
              "TaxName"),
      cboSalesman(*this, "cboSalesman", EntryTable, "SalesmanID",
                  lookUps.ListSource(LookUp::Salesman), "SalesmanID", "LastName;FirstName"),
      cboCustomerType(*this, "cboCustomerType", EntryTable, "CustomerTypeID",
                      lookUps.ListSource(LookUp::CusType), "CustomerTypeID", "TypeName"),
      lookUps_(lookUps) {
    using namespace ui;
    for (LookUp which : {LookUp::Currency, LookUp::Tax, LookUp::Salesman, LookUp::CusType})
        lookUps_.Open(which, db);
    EntryTable.FieldByName("CustomerNo").DisplayLabel = "Customer no.";
    EntryTable.FieldByName("CustomerName").DisplayLabel = "Customer Name";
    EntryTable.FieldByName("CreditLimit").DisplayFormat = "#,###,##0.00#;(#,###,##0.00#)";
    ForceUpperCase(EntryTable.FieldByName("ZipCode"));
    ForceUpperCase(EntryTable.FieldByName("ShipToZipCode"));
    StripScheme(EntryTable.FieldByName("WebPage"));

    tblCContact.SetIndexName("CustomerIDFullName");
    tblCContact.SetMasterSource(&EntryTable, "CustomerID");
    tblCContact.AddCalculatedField("FullName", store::FieldType::String, 61);
    tblCContact.OnCalcFields = [](store::DataSet& ds) {
        ds.FieldByName("FullName").SetAsString(ContactFullName(ds));
    };
    tblCContact.Open();
    grdContacts.ReadOnly = true;
    grdContacts.AddColumn("FullName", "Name", 160);
    grdContacts.AddColumn("JobTitle", "Job Title", 120);
    grdContacts.AddColumn("BusinessPhone", "Phone", 100);
    grdContacts.AddColumn("EMail", "E-Mail", 140);

    actions_.push_back(std::make_unique<FieldActionButton>(
        btnPhone, EntryTable, "Phone", [this](const std::string& n) { DialNumber(App(), n); }));
    actions_.push_back(std::make_unique<FieldActionButton>(
        btnEMail, EntryTable, "EMail", [this](const std::string& a) { MailTo(App(), a); }));
    actions_.push_back(std::make_unique<FieldActionButton>(
        btnWebPage, EntryTable, "WebPage", [this](const std::string& w) { BrowseTo(App(), w); }));
    auto lookUpButton = [this](Button& button, std::string_view form, std::string_view right) {
        button.OnClick = [this, form, right] { shell::OpenList(App(), form, right); };
    };
    lookUpButton(btnCurrencies, "frmCurrencies", "Currencies");
    lookUpButton(btnTaxes, "frmTaxes", "Taxes");
    lookUpButton(btnSalesmen, "frmSalesmen", "Salesmen");
    lookUpButton(btnCustomerTypes, "frmCusTypes", "CustomerTypes");
    btnContactNew.OnClick = [this] { NewContact(); };
    btnContactEdit.OnClick = [this] { EditContact(); };
    btnContactDelete.OnClick = [this] { DeleteContact(); };

    tabAddress.SetLayout(Column{
        FormRow{"Address:", editAddressLine1},
        FormRow{"", editAddressLine2},
        FormRow{"City:", editCity},
        FormRow{"State/Prov:", Row{editStateProv, editZipCode}},
        FormRow{"Country:", editCountry},
        FormRow{"Contact:", editContact},
        FormRow{"Phone:", Row{editPhone, btnPhone}},
        FormRow{"Fax:", editFax},
        FormRow{"E-Mail:", Row{editEMail, btnEMail}},
        FormRow{"Web Page:", Row{editWebPage, btnWebPage}},
        Stretch{},
    });
    tabShipTo.SetLayout(Column{
        FormRow{"Name:", editShipToName},
        FormRow{"Address:", editShipToAddressLine1},
        FormRow{"", editShipToAddressLine2},
        FormRow{"City:", editShipToCity},
        FormRow{"State/Prov:", Row{editShipToStateProv, editShipToZipCode}},
        FormRow{"Country:", editShipToCountry},
        Stretch{},
    });
    tabTerms.SetLayout(Column{
        FormRow{"Discount %:", editDiscPC},
        FormRow{"Discount Days:", editDiscDays},
        FormRow{"Net Days:", editNetDays},
        Row{chkCOD, chkPrepayment, Stretch{}},
        FormRow{"Terms Text:", editTermsText},
        FormRow{"Credit Limit:", editCreditLimit},
        FormRow{"Currency:", Row{cboCurrency, btnCurrencies, Stretch{}}},
        FormRow{"Message:", editCustomerMessage},
        Row{chkPrintStatement, chkAllowBackorders, Stretch{}},
        Stretch{},
    });
    tabTax.SetLayout(Column{
        FormRow{"Tax 1:", Row{cboTax1, btnTaxes, Stretch{}}},
        FormRow{"Exemption No. 1:", editTax1ExemptionNo},
        FormRow{"Tax 2:", Row{cboTax2, Stretch{}}},
        FormRow{"Exemption No. 2:", editTax2ExemptionNo},
        FormRow{"Tax No.:", editTaxNo},
        FormRow{"Salesman:", Row{cboSalesman, btnSalesmen, Stretch{}}},
        FormRow{"Customer Type:", Row{cboCustomerType, btnCustomerTypes, Stretch{}}},
        Stretch{},
    });
    tabContacts.SetLayout(Column{
        grdContacts,
        Row{btnContactNew, btnContactEdit, btnContactDelete, Stretch{}},
    });
    tabNotes.SetLayout(Column{memNotes});
    SetLayout(Column{
        FormRow{"Customer no.:", Row{editCustomerNo, chkSuspended, Stretch{}}},
        FormRow{"Name:", editCustomerName},
        FormRow{"Balance:", lblBalance},
        pgcCustomer,
        ButtonRow{btnOK, btnCancel},
    });

    EntryTable.OnNewRecord = [this](store::DataSet&) { NewCustomer(); };
    EntryTable.BeforePost = [this](store::DataSet&) { BeforePostCustomer(); };
    EntryTable.FieldByName("CurrencyID").OnValidate = [this](store::Field&) {
        CheckCurrencyUnchanged();
    };
    EntryTable.AfterScroll = [this](store::DataSet&) { ShowBalance(); };
    OnShow = [this] {
        pgcCustomer.SetActivePage(tabAddress);
        ShowState();
        ShowBalance();
    };
}

TfrmCustomer::~TfrmCustomer() {
    EntryTable.OnNewRecord = EntryTable.BeforePost = EntryTable.AfterScroll = nullptr;
}

void TfrmCustomer::NewCustomer() {
    store::Database& db = EntryTable.OwnerDatabase();
    auto keys = DrawCustomerKeys(db, [this](const std::string& message) {
        return App().MessageDlg(message, ui::MsgType::Warning, {ui::mbRetry, ui::mbCancel}) ==
               ui::mbRetry;
    });
    // Cancel gives up the new customer: the form does not open.
    if (!keys) Abort();
    EntryTable.FieldByName("CustomerNo").SetAsString(keys->CustomerNo);
    EntryTable.FieldByName("CustomerID").SetAsInteger(keys->CustomerID);
    SetNewCustomerDefaults(db, EntryTable);
}

void TfrmCustomer::BeforePostCustomer() {
    auto page = [this](ui::Page& tab) { return [this, &tab] { pgcCustomer.SetActivePage(tab); }; };
    banking::RaiseRefusal(CheckCustomer(EntryTable.OwnerDatabase(), EntryTable),
                          {{"CustomerNo", &editCustomerNo},
                           {"CustomerName", &editCustomerName},
                           {"CurrencyID", &cboCurrency, page(tabTerms)},
                           {"SalesmanID", &cboSalesman, page(tabTax)},
                           {"CustomerTypeID", &cboCustomerType, page(tabTax)}});
}

void TfrmCustomer::CheckCurrencyUnchanged() {
    if (EntryTable.State() == store::DataSetState::Insert) return;
    banking::RaiseRefusal(CheckCurrencyChange(EntryTable.OwnerDatabase(),
                                              EntryTable.FieldByName("CustomerID").AsInteger()),
                          {});
}

void TfrmCustomer::ShowState() {
    if (!EntryTable.Active()) return;
    const std::string name = EntryTable.FieldByName("CustomerName").AsString();
    Caption =
        EntryTable.State() == store::DataSetState::Insert && name.empty() ? "New Customer" : name;
}

void TfrmCustomer::ShowBalance() {
    lblBalance.Caption.clear();
    if (!EntryTable.Active() || EntryTable.FieldByName("CustomerID").IsNull()) return;
    store::Query balance(EntryTable.OwnerDatabase(),
                         "SELECT Balance FROM CBalance WHERE CustomerID = :ID");
    balance.ParamByName("ID").SetAsInteger(EntryTable.FieldByName("CustomerID").AsInteger());
    balance.Open();
    // A customer with nothing posted has no balance row and shows none.
    if (!balance.IsEmpty())
        lblBalance.Caption =
            FormatMoney("#,###,##0.00#;(#,###,##0.00#)", balance.FieldByName("Balance").AsMoney());
}

bool TfrmCustomer::SavedBeforeContacts() {
    if (EntryTable.State() != store::DataSetState::Insert) return true;
    if (App().MessageDlg("New customer must be saved before entering contacts...\nSave now?",
                         ui::MsgType::Confirmation, {ui::mbYes, ui::mbNo}) != ui::mbYes)
        return false;
    EntryTable.Post();
    EntryTable.Edit();
    return true;
}

void TfrmCustomer::ShowContact(bool insert) {
    auto& contact = App().SingleForm<TfrmCContact>(EntryTable.OwnerDatabase());
    const std::int64_t customerId = EntryTable.FieldByName("CustomerID").AsInteger();
    const std::string customerName = EntryTable.FieldByName("CustomerName").AsString();
    contact.AfterSave = [this](shell::EntryForm& form) {
        const store::Value id = form.EntryTable.FieldByName("ContactID").AsValue();
        const store::Value customer = form.EntryTable.FieldByName("CustomerID").AsValue();
        tblCContact.Refresh();
        tblCContact.Locate("CustomerID;ContactID", {customer, id});
    };
    if (insert)
        contact.StartNew(customerId, customerName);
    else
        contact.StartEdit(customerId, tblCContact.FieldByName("ContactID").AsInteger(),
                          customerName);
    contact.Show();
}

void TfrmCustomer::NewContact() {
    if (!SavedBeforeContacts()) return;
    ShowContact(true);
}

void TfrmCustomer::EditContact() {
    if (tblCContact.IsEmpty()) return NewContact();
    ShowContact(false);
}

void TfrmCustomer::DeleteContact() {
    if (tblCContact.IsEmpty()) return;
    if (App().MessageDlg(DeleteQuestion(ContactFullName(tblCContact)), ui::MsgType::Confirmation,
                         {ui::mbYes, ui::mbNo}) != ui::mbYes)
        return;
    tblCContact.Delete();
}

std::string TfrmCustomer::KeyViolationMessage() const {
    if (Visible() && numberEdit_->CanFocus()) numberEdit_->SetFocus();
    return std::string(CustomerNoTakenMessage);
}

} // namespace corvane::receivables
