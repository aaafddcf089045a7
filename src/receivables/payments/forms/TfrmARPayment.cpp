#include "receivables/payments/forms/TfrmARPayment.h"

#include "core/DisplayFormat.h"
#include "core/Exception.h"
#include "core/Text.h"
#include "ledger/accounts/TfrmGLAccountSearch.h"
#include "ledger/accounts/TfrmGLAccountSubSearch.h"
#include "ledger/domain/PeriodRules.h"
#include "ledger/periods/YearEntry.h"
#include "receivables/payments/domain/PaymentTexts.h"
#include "receivables/posting/InvoicePosting.h"
#include "store/Query.h"
#include "ui/Application.h"
#include "ui/DesktopServices.h"
#include "ui/Layout.h"

#include <initializer_list>

namespace corvane::receivables {

using store::DataSetState;
using store::Value;
namespace text = payment_text;

namespace {

constexpr const char* MoneyFormat = "#,###,##0.00#;(#,###,##0.00#)";

std::optional<std::int64_t> OptId(const store::Field& f) {
    if (f.IsNull()) return std::nullopt;
    return f.AsInteger();
}

std::optional<Money> OptMoney(const store::Field& f) {
    if (f.IsNull()) return std::nullopt;
    return f.AsMoney();
}

Value ValueOf(const std::optional<Money>& m) {
    return m ? Value(*m) : Value();
}

Value ValueOf(const std::optional<std::int64_t>& id) {
    return id ? Value(*id) : Value();
}

// The grid's columns in their order: invoice, its date and what it owes, then the line's own.
constexpr const char* LineColumns[] = {
    "ARInvoiceID",          "InvoiceDate",           "Owing",
    "PaymentAmount",        "DiscTakenAmount",       "WriteOffAmount",
    "WriteOffGLAccountID",  "WriteOffSubAccount1ID", "WriteOffSubAccount2ID",
    "WriteOffSubAccount3ID"};

} // namespace

TfrmARPayment::TfrmARPayment(ui::Application& app, store::Database& db)
    : EntryForm(app, "frmARPayment", db, "ARPmt", "tblARPmt"), tblARInvPmt(db, "ARInvPmt"),
      tblCustomer(db, "Customer"), tblBank(db, "Bank"), tblARInv(db, "ARInv") {
    using namespace ui;
    Caption = "New Payment";
    checkWording_ = App().Desktop().CountryName() == "United States";
    for (store::Table* t : {&tblCustomer, &tblBank, &tblARInv}) {
        t->ReadOnly = true;
        t->Open();
    }
    SetUpLines();

    EntryTable.FieldByName("ChequeAmount").DisplayFormat = MoneyFormat;
    EntryTable.FieldByName("ChequeNo").DisplayLabel = "Reference";
    editPaymentDate.Bind(EntryTable, "PaymentDate");
    editPaymentDate.CalendarCaption = "Payment Date";
    ledger::EnterYearAsTwoDigits(EntryTable.FieldByName("GLYear"),
                                 ledger::BadYearMessage("Period"));
    ledger::LimitPeriodNumber(EntryTable.FieldByName("GLPeriod"), "Period");
    // The year is shown through its two digits, yet it is a number beside the period's.
    editYear.AlignRight = true;
    for (int code = 1; code <= 7; ++code)
        cboPaidBy.Items.push_back(PaidByText(code, checkWording_));
    cboPaidBy.OnChange = [this] {
        if (closing_ || !EntryTable.Active()) return;
        const int index = cboPaidBy.ItemIndex();
        store::Field& paidBy = EntryTable.FieldByName("PaidBy");
        const Value chosen = index >= 0 ? Value(index + 1) : Value();
        if (paidBy.AsValue() == chosen) return;
        if (!EntryTable.Editing()) EntryTable.Edit();
        paidBy.SetValue(chosen);
    };

    // The customer is typed by its number and kept by its id.
    store::Field& customer = EntryTable.FieldByName("CustomerID");
    customer.DisplayLabel = "Customer";
    customer.OnGetText = [this](const store::Field& f, bool) -> std::string {
        if (f.IsNull()) return {};
        Value no = tblCustomer.Lookup("CustomerID", {f.AsValue()}, "CustomerNo");
        return no.IsNull() ? std::string() : no.Str();
    };
    customer.OnSetText = [this](store::Field& f, std::string_view typed) {
        CustomerTyped(f, typed);
    };
    customer.OnChange = [this](store::Field&) { CustomerChanged(); };

    lblPosted.Visible = false;
    lblReconciled.Visible = false;
    SetLayout(Column{
        Row{FormRow{"Customer:", Row{editCustomerNo, btnCustomer}}, lblCustomerName, Stretch{},
            lblPosted, lblReconciled},
        Row{FormRow{"Address:", lblAddress}},
        Row{FormRow{"Reference:", editChequeNo}, FormRow{"Paid by:", cboPaidBy},
            FormRow{"Bank:", cboBank}},
        Row{FormRow{"Date:", editPaymentDate}, FormRow{"Period:", Row{editPeriod, editYear}},
            FormRow{"Amount:", editAmount}},
        grdLines,
        Row{btnAutoCreate, Stretch{}, FormRow{"Total:", lblTotal}},
        ButtonRow{btnOK, btnOKNew, btnCancel},
    });

    EntryTable.OnNewRecord = [this](store::DataSet&) { NewPayment(); };
    EntryTable.BeforeEdit = [this](store::DataSet&) {
        if (Posted()) throw Exception(text::PostedCannotChange);
    };
    EntryTable.BeforePost = [this](store::DataSet&) { CheckBeforeSave(); };
    EntryTable.AfterPost = [this](store::DataSet&) {
        snapshot_.Forget();
        ShowCaption();
    };
    // However the payment is cancelled, its lines go back to what they were first.
    EntryTable.BeforeCancel = [this](store::DataSet&) { DropLines(); };
    EntryTable.AfterCancel = [this](store::DataSet&) { ReadLines(); };
    EntryTable.AfterScroll = [this](store::DataSet&) { ReadLines(); };
    EntryTable.BeforeClose = [this](store::DataSet&) { closing_ = true; };
    EntryTable.AfterOpen = [this](store::DataSet&) { closing_ = false; };

    btnOK.OnClick = [this] {
        SavePayment();
        Close();
    };
    btnOKNew.OnClick = [this] {
        SavePayment();
        EntryTable.Insert();
        if (editCustomerNo.CanFocus()) editCustomerNo.SetFocus();
    };
    btnCustomer.OnClick = [this] {
        if (!ChooseCustomer) return;
        const std::optional<std::int64_t> chosen = ChooseCustomer();
        if (!chosen) return;
        if (!EntryTable.Editing()) EntryTable.Edit();
        if (EntryTable.FieldByName("CustomerID").AsValue() != Value(*chosen)) {
            if (LineCount() > 0) throw Exception(text::CustomerFixed);
            EntryTable.FieldByName("CustomerID").SetAsInteger(*chosen);
        }
        // Only a customer chosen from the search is offered its invoices at once.
        Value name = tblCustomer.Lookup("CustomerID", {Value(*chosen)}, "CustomerName");
        if (App().MessageDlg("AutoCreate invoice payment lines for '" +
                                 (name.IsNull() ? std::string() : name.Str()) + "'?",
                             ui::MsgType::Confirmation, {ui::mbYes, ui::mbNo}) == ui::mbYes)
            AutoCreate();
    };
    btnAutoCreate.OnClick = popAutoCreate.OnClick = [this] { AutoCreate(); };
    // A hidden payment form would keep the posting run from starting.
    OnClose = [](ui::CloseAction& action) { action = ui::CloseAction::Free; };
    OnShow = [this] {
        ShowCaption();
        ShowHeaderTexts();
        ShowTotal();
    };
}

TfrmARPayment::~TfrmARPayment() {
    tblARInvPmt.Close();
    for (store::DataSet::Handler* handler :
         {&EntryTable.OnNewRecord, &EntryTable.BeforeEdit, &EntryTable.BeforePost,
          &EntryTable.BeforeCancel, &EntryTable.AfterCancel, &EntryTable.AfterPost,
          &EntryTable.AfterScroll, &EntryTable.BeforeClose, &EntryTable.AfterOpen})
        *handler = nullptr;
    if (store::Field* customer = EntryTable.FindField("CustomerID")) {
        customer->OnGetText = nullptr;
        customer->OnSetText = nullptr;
        customer->OnChange = nullptr;
    }
}

std::string TfrmARPayment::KeyViolationMessage() const {
    return "Payment already exists";
}

void TfrmARPayment::SetUpLines() {
    tblARInvPmt.Name = "tblARInvPmt";
    tblARInvPmt.AddCalculatedField("InvoiceDate", store::FieldType::Date);
    tblARInvPmt.AddCalculatedField("Owing", store::FieldType::Currency);
    tblARInvPmt.SetIndexName("PaymentIDSeq");
    tblARInvPmt.Open();
    tblARInvPmt.SetRange({Value(0)}, {Value(0)});
    for (const char* money : {"Owing", "PaymentAmount", "DiscTakenAmount", "WriteOffAmount"})
        tblARInvPmt.FieldByName(money).DisplayFormat = MoneyFormat;
    tblARInvPmt.FieldByName("InvoiceDate").DisplayFormat = "dd mmm yy";

    // The invoice is shown by its number; a number typed into the cell chooses among the
    // invoices the chooser would offer.
    store::Field& invoice = tblARInvPmt.FieldByName("ARInvoiceID");
    invoice.DisplayLabel = "Invoice";
    invoice.OnGetText = [this](const store::Field& f, bool) -> std::string {
        if (f.IsNull()) return {};
        Value no = tblARInv.Lookup("ARInvoiceID", {f.AsValue()}, "InvoiceNo");
        return no.IsNull() ? std::string() : no.Str();
    };
    invoice.OnSetText = [this](store::Field& f, std::string_view typed) {
        const std::string number(TrimBlanks(typed));
        if (number.empty()) return f.Clear();
        store::Query q(EntryTable.OwnerDatabase(),
                       "SELECT ARInvoiceID, CustomerID, Posted, Owing FROM ARInv "
                       "WHERE InvoiceNo = :No");
        q.ParamByName("No").SetAsString(number);
        q.Open();
        const bool outstanding = popOutstanding.Checked();
        const bool offered = !q.IsEmpty() &&
                             q.FieldByName("CustomerID").AsValue() ==
                                 EntryTable.FieldByName("CustomerID").AsValue() &&
                             q.FieldByName("Posted").AsBoolean() &&
                             (!outstanding || !q.FieldByName("Owing").AsMoney().IsZero() ||
                              q.FieldByName("ARInvoiceID").AsValue() == f.AsValue());
        if (!offered) throw Exception("Invoice '" + number + "' not found");
        // The cell is being written: the grid moves on by itself.
        SetLineInvoice(q.FieldByName("ARInvoiceID").AsInteger(), false);
    };
    for (const char* field :
         {"PaymentAmount", "DiscTakenAmount", "WriteOffAmount", "WriteOffGLAccountID"})
        tblARInvPmt.FieldByName(field).DisplayLabel = field;
    tblARInvPmt.FieldByName("WriteOffAmount").OnChange = [this](store::Field& f) {
        if (restoring_ || settingInvoice_) return;
        store::Field& account = tblARInvPmt.FieldByName("WriteOffGLAccountID");
        if (!f.IsNull() && !f.AsMoney().IsZero()) {
            const Value customer = EntryTable.FieldByName("CustomerID").AsValue();
            if (account.IsNull() && !customer.IsNull())
                account.SetValue(
                    ValueOf(DefaultWriteOffAccount(EntryTable.OwnerDatabase(), customer.Int())));
        } else {
            // No write-off, no account: an emptied amount is none as much as 0 is.
            account.Clear();
            for (int level = 1; level <= 3; ++level)
                tblARInvPmt.FieldByName("WriteOffSubAccount" + std::to_string(level) + "ID")
                    .Clear();
        }
    };
    AccountColumn("WriteOffGLAccountID", 0);
    for (int level = 1; level <= 3; ++level)
        AccountColumn("WriteOffSubAccount" + std::to_string(level) + "ID", level);
    tblARInvPmt.OnCalcFields = [this](store::DataSet& ds) {
        const Value& id = ds.FieldByName("ARInvoiceID").AsValue();
        std::vector<Value> found;
        if (!id.IsNull()) found = tblARInv.LookupValues("ARInvoiceID", {id}, "InvoiceDate;Owing");
        ds.FieldByName("InvoiceDate").SetValue(found.empty() ? Value() : found[0]);
        ds.FieldByName("Owing").SetValue(found.empty() ? Value() : found[1]);
    };

    grdLines.ReadOnly = false;
    grdLines.AddColumn("ARInvoiceID", "Invoice", 80);
    grdLines.AddColumn("InvoiceDate", "Date", 80);
    grdLines.AddColumn("Owing", "Owing", 90);
    grdLines.AddColumn("PaymentAmount", "Payment", 90);
    grdLines.AddColumn("DiscTakenAmount", "Discount", 80);
    grdLines.AddColumn("WriteOffAmount", "Write-off", 80);
    grdLines.AddColumn("WriteOffGLAccountID", "Write-off GL Account", 90);
    grdLines.AddColumn("WriteOffSubAccount1ID", "Sub 1", 50);
    grdLines.AddColumn("WriteOffSubAccount2ID", "Sub 2", 50);
    grdLines.AddColumn("WriteOffSubAccount3ID", "Sub 3", 50);
    grdLines.Popup = &popLines;
    grdLines.OnKeyPress = [this](char& ch) { GridKeyPress(ch); };

    popOutstanding.SetChecked(true);
    popOutstanding.OnClick = [this] { popOutstanding.SetChecked(!popOutstanding.Checked()); };
    popNewLine.OnClick = [this] { tblARInvPmt.Append(); };
    popDeleteLine.OnClick = [this] {
        if (!tblARInvPmt.IsEmpty()) tblARInvPmt.Delete();
    };
    popPayNoDiscount.OnClick = [this] {
        ApplyToLine([](AllocationLine& l, const InvoiceDue& d) { PayNoDiscount(l, d); });
    };
    popPayTakeDiscount.OnClick = [this] {
        ApplyToLine([](AllocationLine& l, const InvoiceDue& d) { PayTakeDiscount(l, d); });
    };
    popPayIfEligible.OnClick = [this] {
        const Date date = EntryTable.FieldByName("PaymentDate").IsNull()
                              ? Date::Today()
                              : EntryTable.FieldByName("PaymentDate").AsDate();
        ApplyToLine(
            [date](AllocationLine& l, const InvoiceDue& d) { PayDiscountIfEligible(l, d, date); });
    };
    popWriteOff.OnClick = [this] {
        ApplyToLine([](AllocationLine& l, const InvoiceDue& d) { WriteOffAll(l, d); });
        // The write-off takes its default account as a typed one would.
        store::Field& account = tblARInvPmt.FieldByName("WriteOffGLAccountID");
        const Value customer = EntryTable.FieldByName("CustomerID").AsValue();
        if (account.IsNull() && !customer.IsNull())
            account.SetValue(
                ValueOf(DefaultWriteOffAccount(EntryTable.OwnerDatabase(), customer.Int())));
    };

    tblARInvPmt.BeforeInsert = [this](store::DataSet& ds) {
        BeforeLineChange(ds);
        oldAmount_ = Money();
        oldInvoice_.reset();
    };
    tblARInvPmt.BeforeEdit = [this](store::DataSet& ds) { BeforeLineChange(ds); };
    tblARInvPmt.BeforeDelete = [this](store::DataSet& ds) { BeforeLineChange(ds); };
    tblARInvPmt.OnNewRecord = [this](store::DataSet& ds) {
        ds.FieldByName("PaymentID").SetValue(EntryTable.FieldByName("PaymentID").AsValue());
    };
    tblARInvPmt.BeforePost = [this](store::DataSet& ds) { CheckLine(ds); };
    tblARInvPmt.AfterPost = [this](store::DataSet&) {
        if (!restoring_) LineSaved();
    };
    tblARInvPmt.AfterDelete = [this](store::DataSet&) {
        if (!restoring_) LineDeleted();
    };
}

void TfrmARPayment::AccountColumn(const std::string& fieldName, int level) {
    // An account or subaccount is typed by its number and kept by its id.
    const std::string table = level == 0 ? "GLAccnt" : "GLAcSub" + std::to_string(level);
    const std::string key = level == 0 ? "GLAccountID" : "SubAccountID";
    const std::string number = level == 0 ? "GLAccount" : "SubAccount";
    store::Field& field = tblARInvPmt.FieldByName(fieldName);
    field.OnGetText = [this, table, key, number](const store::Field& f, bool) -> std::string {
        if (f.IsNull()) return {};
        store::Table t(EntryTable.OwnerDatabase(), table);
        t.ReadOnly = true;
        t.Open();
        Value no = t.Lookup(key, {f.AsValue()}, number);
        return no.IsNull() ? std::string() : no.Str();
    };
    field.OnSetText = [this, table, key, number, level](store::Field& f, std::string_view typed) {
        const std::string text(TrimBlanks(typed));
        if (text.empty()) return f.Clear();
        store::Table t(EntryTable.OwnerDatabase(), table);
        t.ReadOnly = true;
        t.Open();
        std::vector<Value> found = t.LookupValues(number, {Value(text)}, key + ";Suspended");
        if (found.empty() || found[0].IsNull())
            throw Exception(level == 0 ? text::TypedAccountNotFound
                                       : text::TypedSubaccountNotFound);
        if (!found[1].IsNull() && found[1].Bool())
            throw Exception(level == 0 ? text::TypedAccountSuspended
                                       : text::TypedSubaccountSuspended);
        f.SetValue(found[0]);
    };
}

bool TfrmARPayment::Posted() {
    return EntryTable.Active() && !EntryTable.IsEmpty() &&
           EntryTable.FieldByName("Posted").AsBoolean();
}

void TfrmARPayment::GridKeyPress(char& ch) {
    const ui::GridColumn* column = grdLines.SelectedColumn();
    if (!column || grdLines.EditorMode()) return;
    if (static_cast<unsigned char>(ch) < 32) return;
    if (column->FieldName == "InvoiceDate" || column->FieldName == "Owing") {
        const char* message =
            column->FieldName == "InvoiceDate" ? text::InvoiceDateReadOnly : text::OwingReadOnly;
        ch = 0;
        App().MessageDlg(message, ui::MsgType::Information, {ui::mbOK});
        return;
    }
    if (column->FieldName == "WriteOffGLAccountID") {
        const char first = ch;
        ch = 0;
        PickAccount(0, first);
        return;
    }
    for (int level = 1; level <= 3; ++level)
        if (column->FieldName == "WriteOffSubAccount" + std::to_string(level) + "ID") {
            const char first = ch;
            ch = 0;
            PickAccount(level, first);
            return;
        }
    if (column->FieldName == "ARInvoiceID" && ChooseInvoice) {
        // The invoice is chosen, not typed: the key starts the chooser's search.
        const char first = ch;
        ch = 0;
        const std::optional<std::int64_t> chosen = ChooseInvoice(first, InvoiceFilter());
        if (chosen) SetLineInvoice(*chosen, true);
    }
}

void TfrmARPayment::PickAccount(int level, char firstChar) {
    // The account is chosen, not typed: the key starts the search's find text.
    store::Database& db = EntryTable.OwnerDatabase();
    shell::SearchForm* search = nullptr;
    shell::SearchStart start;
    start.FirstChar = firstChar;
    if (level == 0) {
        search = &App().SingleForm<ledger::TfrmGLAccountSearch>(db);
        start.IndexName = "GLAccount";
    } else {
        auto& sub = App().SingleForm<ledger::TfrmGLAccountSubSearch>(db);
        sub.SetLevel(level);
        search = &sub;
        start.IndexName = "SubAccount";
    }
    search->Start(grdLines, start);
    if (search->ShowModal() != ui::mrOK || search->SearchTable.IsEmpty()) return;
    if (search->SearchTable.FieldByName("Suspended").AsBoolean())
        throw Exception(level == 0 ? text::TypedAccountSuspended : text::TypedSubaccountSuspended);
    const Value chosen = search->SelectedKey().front();
    if (!tblARInvPmt.Editing()) {
        if (tblARInvPmt.IsEmpty())
            tblARInvPmt.Append();
        else
            tblARInvPmt.Edit();
    }
    tblARInvPmt
        .FieldByName(level == 0 ? std::string("WriteOffGLAccountID")
                                : "WriteOffSubAccount" + std::to_string(level) + "ID")
        .SetValue(chosen);
}

std::string TfrmARPayment::InvoiceFilter() {
    const std::string customer =
        "(CustomerID = " + EntryTable.FieldByName("CustomerID").AsString() + ")";
    const Value& line =
        tblARInvPmt.Active() ? tblARInvPmt.FieldByName("ARInvoiceID").AsValue() : Value();
    if (!popOutstanding.Checked()) return customer + " AND (Posted = true)";
    if (!line.IsNull())
        return "(" + customer + " AND (Posted = true) AND (Owing <> 0)) OR (ARInvoiceID = " +
               std::to_string(line.Int()) + ")";
    return customer + " AND (Posted = true) AND (Owing <> 0)";
}

void TfrmARPayment::SetLineInvoice(std::int64_t arInvoiceId, bool moveToPayment) {
    store::Database& db = EntryTable.OwnerDatabase();
    const store::Field& current = tblARInvPmt.FieldByName("ARInvoiceID");
    const bool same = !current.IsNull() && current.AsInteger() == arInvoiceId;
    if (!same && invoices_.count(arInvoiceId) && oldInvoice_ != arInvoiceId)
        throw Exception(InvoiceAlreadyOnMessage(db, arInvoiceId));
    if (!tblARInvPmt.Editing()) {
        if (tblARInvPmt.IsEmpty())
            tblARInvPmt.Append();
        else
            tblARInvPmt.Edit();
    }
    settingInvoice_ = true;
    struct Done {
        bool& flag;
        ~Done() { flag = false; }
    } done{settingInvoice_};
    tblARInvPmt.FieldByName("ARInvoiceID").SetAsInteger(arInvoiceId);
    const std::optional<InvoiceDue> due = ReadInvoiceDue(db, arInvoiceId);
    if (!due) return;
    const Date date = EntryTable.FieldByName("PaymentDate").IsNull()
                          ? Date::Today()
                          : EntryTable.FieldByName("PaymentDate").AsDate();
    AllocationLine line = CurrentLine();
    PayDiscountIfEligible(line, *due, date);
    PutLine(line);
    if (moveToPayment) FocusColumn(3);
}

AllocationLine TfrmARPayment::CurrentLine() {
    auto f = [&](const char* name) -> store::Field& { return tblARInvPmt.FieldByName(name); };
    AllocationLine line;
    line.ARInvoiceID = OptId(f("ARInvoiceID"));
    line.Seq = OptId(f("Seq"));
    line.PaymentAmount = OptMoney(f("PaymentAmount"));
    line.DiscTakenAmount = OptMoney(f("DiscTakenAmount"));
    line.WriteOffAmount = OptMoney(f("WriteOffAmount"));
    line.WriteOffGLAccountID = OptId(f("WriteOffGLAccountID"));
    for (int level = 1; level <= 3; ++level)
        line.WriteOffSubAccountIDs[static_cast<std::size_t>(level - 1)] =
            OptId(f(("WriteOffSubAccount" + std::to_string(level) + "ID").c_str()));
    return line;
}

void TfrmARPayment::PutLine(const AllocationLine& line) {
    auto f = [&](const std::string& name) -> store::Field& {
        return tblARInvPmt.FieldByName(name);
    };
    const bool wasSetting = settingInvoice_;
    settingInvoice_ = true;
    f("PaymentAmount").SetValue(ValueOf(line.PaymentAmount));
    f("DiscTakenAmount").SetValue(ValueOf(line.DiscTakenAmount));
    f("WriteOffAmount").SetValue(ValueOf(line.WriteOffAmount));
    f("WriteOffGLAccountID").SetValue(ValueOf(line.WriteOffGLAccountID));
    for (int level = 1; level <= 3; ++level)
        f("WriteOffSubAccount" + std::to_string(level) + "ID")
            .SetValue(ValueOf(line.WriteOffSubAccountIDs[static_cast<std::size_t>(level - 1)]));
    settingInvoice_ = wasSetting;
}

std::optional<InvoiceDue> TfrmARPayment::LineInvoice() {
    const store::Field& id = tblARInvPmt.FieldByName("ARInvoiceID");
    if (id.IsNull()) return std::nullopt;
    return ReadInvoiceDue(EntryTable.OwnerDatabase(), id.AsInteger());
}

void TfrmARPayment::ApplyToLine(
    const std::function<void(AllocationLine&, const InvoiceDue&)>& command) {
    if (tblARInvPmt.IsEmpty() && !tblARInvPmt.Editing()) return;
    const std::optional<InvoiceDue> due = LineInvoice();
    if (!due) return;
    if (!tblARInvPmt.Editing()) tblARInvPmt.Edit();
    AllocationLine line = CurrentLine();
    command(line, *due);
    PutLine(line);
}

void TfrmARPayment::BeforeLineChange(store::DataSet& lines) {
    if (restoring_) return;
    if (Posted()) throw Exception(text::PostedCannotChange);
    // Any change of a line is a change of the payment, and the first one keeps the lines as
    // they were for Cancel.
    if (!EntryTable.Editing()) EntryTable.Edit();
    snapshot_.Take(EntryTable.OwnerDatabase(), "ARInvPmt", "PaymentID",
                   EntryTable.FieldByName("PaymentID").AsValue());
    if (lines.State() == DataSetState::Browse && !lines.IsEmpty()) {
        oldAmount_ = lines.FieldByName("PaymentAmount").AsMoney();
        oldInvoice_ = OptId(lines.FieldByName("ARInvoiceID"));
    }
}

void TfrmARPayment::CheckLine(store::DataSet& ds) {
    if (restoring_) return;
    store::Database& db = EntryTable.OwnerDatabase();
    const AllocationLine line = CurrentLine();
    const std::optional<InvoiceDue> due =
        line.ARInvoiceID ? ReadInvoiceDue(db, *line.ARInvoiceID) : std::nullopt;
    LineAnswers answered;
    for (;;) {
        const LineVerdict v = ValidateLine(line, due, AccountsIn(db), answered);
        if (v.Accepted()) break;
        FocusColumn(v.Column);
        if (v.Verdict == LineVerdict::Kind::Refused) throw Exception(v.Message);
        if (v.Verdict == LineVerdict::Kind::Question) {
            if (App().MessageDlg(v.Message, ui::MsgType::Confirmation, {ui::mbYes, ui::mbNo}) ==
                ui::mbYes) {
                // The amount is filled in for the user to confirm; the line is not saved yet.
                ds.FieldByName("WriteOffAmount").SetAsMoney(v.WriteOff);
                FocusColumn(5);
                Abort();
            }
            answered.KeepRemainder = true;
            continue;
        }
        if (App().MessageDlg(v.Message, ui::MsgType::Warning, {ui::mbOK, ui::mbCancel}) != ui::mbOK)
            Abort();
        answered.WriteOffDiffers = true;
    }
    if (line.ARInvoiceID && invoices_.count(*line.ARInvoiceID) && oldInvoice_ != line.ARInvoiceID)
        throw Exception(InvoiceAlreadyOnMessage(db, *line.ARInvoiceID));
    if (ds.FieldByName("Seq").IsNull()) ds.FieldByName("Seq").SetAsInteger(nextSeq_++);
}

void TfrmARPayment::LineSaved() {
    const store::Field& paid = tblARInvPmt.FieldByName("PaymentAmount");
    total_ += (paid.IsNull() ? Money() : paid.AsMoney()) - oldAmount_;
    if (oldInvoice_) invoices_.erase(*oldInvoice_);
    const std::optional<std::int64_t> id = OptId(tblARInvPmt.FieldByName("ARInvoiceID"));
    if (id) invoices_[*id] = tblARInvPmt.FieldByName("Seq").AsInteger();
    oldAmount_ = Money();
    oldInvoice_.reset();
    ShowTotal();
}

void TfrmARPayment::LineDeleted() {
    total_ -= oldAmount_;
    if (oldInvoice_) invoices_.erase(*oldInvoice_);
    if (invoices_.empty()) total_ = Money();
    oldAmount_ = Money();
    oldInvoice_.reset();
    ShowTotal();
}

void TfrmARPayment::AutoCreate() {
    store::Database& db = EntryTable.OwnerDatabase();
    const store::Field& customer = EntryTable.FieldByName("CustomerID");
    if (customer.IsNull()) throw Exception(text::AutoCreateNoCustomer);
    if (Posted()) throw Exception(text::PostedCannotChange);
    if (!HasOutstandingInvoices(db, customer.AsInteger())) {
        Value name = tblCustomer.Lookup("CustomerID", {customer.AsValue()}, "CustomerName");
        throw Exception("There are no outstanding invoices for '" +
                        (name.IsNull() ? std::string() : name.Str()) + "'.");
    }
    if (tblARInvPmt.Editing()) tblARInvPmt.Cancel();
    if (LineCount() > 0 && App().MessageDlg(text::AutoCreateReplaces, ui::MsgType::Confirmation,
                                            {ui::mbOK, ui::mbCancel}) != ui::mbOK)
        return;
    if (!EntryTable.Editing()) EntryTable.Edit();
    const Value id = EntryTable.FieldByName("PaymentID").AsValue();
    snapshot_.Take(db, "ARInvPmt", "PaymentID", id);
    const Date date = EntryTable.FieldByName("PaymentDate").IsNull()
                          ? Date::Today()
                          : EntryTable.FieldByName("PaymentDate").AsDate();
    const AutoCreateResult result = AutoCreateLines(db, id.Int(), customer.AsInteger(), date);
    for (const std::string& notice : result.Notices)
        App().MessageDlg(notice, ui::MsgType::Information, {ui::mbOK});
    tblARInvPmt.Refresh();
    tblARInvPmt.First();
    ReadLines();
}

void TfrmARPayment::ReadLines() {
    if (closing_ || !EntryTable.Active()) return;
    // A new payment has its id from the start, before any row of it is stored.
    const bool none = !EntryTable.Editing() && EntryTable.IsEmpty();
    const Value id = none ? Value(0) : EntryTable.FieldByName("PaymentID").AsValue();
    if (!EntryTable.Editing()) {
        tblARInvPmt.SetRange({id}, {id});
        snapshot_.Forget();
    }
    // The form keeps the lines' total and ids itself from here on, as lines are saved.
    invoices_.clear();
    total_ = Money();
    nextSeq_ = 1;
    store::Query q(EntryTable.OwnerDatabase(),
                   "SELECT ARInvoiceID, Seq, PaymentAmount FROM ARInvPmt WHERE PaymentID = :ID");
    q.ParamByName("ID").SetValue(id);
    q.ForEachRow([this](const std::vector<Value>& row) {
        const std::int64_t seq = row[1].IsNull() ? 0 : row[1].Int();
        invoices_[row[0].Int()] = seq;
        if (!row[2].IsNull()) total_ += row[2].Money();
        if (seq >= nextSeq_) nextSeq_ = seq + 1;
    });
    ShowHeaderTexts();
    ShowCaption();
    ShowTotal();
}

void TfrmARPayment::NewPayment() {
    store::Database& db = EntryTable.OwnerDatabase();
    const std::optional<std::int64_t> id = DrawPaymentID(db, [this](const std::string& q) {
        return App().MessageDlg(q, ui::MsgType::Error, {ui::mbRetry, ui::mbCancel}) == ui::mbRetry;
    });
    if (!id) {
        // Cancel undoes the record and closes the form.
        EntryTable.Cancel();
        Close();
        Abort();
    }
    const ledger::Period period =
        ledger::DefaultPeriod(ledger::CompanyPeriods::Read(db), Date::Today());
    auto set = [&](std::string_view name, const Value& v) {
        EntryTable.FieldByName(name).SetValue(v);
    };
    set("PaymentID", Value(*id));
    set("PaymentDate", Value(Date::Today()));
    set("Reconciled", Value(false));
    set("Posted", Value(false));
    set("PaidBy", Value(2));
    set("GLPeriod", Value(period.Number));
    set("GLYear", Value(period.Year));
    snapshot_.Forget();
    invoices_.clear();
    total_ = Money();
    nextSeq_ = 1;
    popOutstanding.SetChecked(true);
    tblARInvPmt.SetRange({Value(*id)}, {Value(*id)});
    ShowHeaderTexts();
    ShowTotal();
}

void TfrmARPayment::CustomerTyped(store::Field& f, std::string_view typed) {
    const std::string number(TrimBlanks(typed));
    Value id;
    if (!number.empty()) {
        std::vector<Value> found = tblCustomer.LookupValues("CustomerNo", {Value(number)},
                                                            "CustomerID;Suspended;CustomerName");
        if (found.empty() || found[0].IsNull()) throw Exception(text::CustomerNotFound);
        if (!found[1].IsNull() && found[1].Bool())
            throw Exception("Customer '" + number + ": " + found[2].Str() + "' has been suspended");
        id = found[0];
    }
    // The lines are the customer's invoices: another customer would leave them on a stranger.
    if (id != f.AsValue() && LineCount() > 0) throw Exception(text::CustomerFixed);
    f.SetValue(id);
}

void TfrmARPayment::CustomerChanged() {
    const std::optional<std::int64_t> id = OptId(EntryTable.FieldByName("CustomerID"));
    if (!id) return;
    store::Field& bank = EntryTable.FieldByName("BankID");
    const std::optional<std::int64_t> chosen =
        BankForCustomer(EntryTable.OwnerDatabase(), *id, OptId(bank));
    if (chosen != OptId(bank)) bank.SetValue(ValueOf(chosen));
}

PaymentHeader TfrmARPayment::Header() {
    auto f = [&](std::string_view name) -> store::Field& { return EntryTable.FieldByName(name); };
    PaymentHeader h;
    h.PaymentID = f("PaymentID").AsInteger();
    h.ChequeNo = f("ChequeNo").AsString();
    h.CustomerID = OptId(f("CustomerID"));
    h.BankID = OptId(f("BankID"));
    h.GLYear = static_cast<int>(f("GLYear").AsInteger());
    h.GLPeriod = static_cast<int>(f("GLPeriod").AsInteger());
    if (!f("PaymentDate").IsNull()) h.PaymentDate = f("PaymentDate").AsDate();
    h.ChequeAmount = OptMoney(f("ChequeAmount"));
    h.PaidBy = f("PaidBy").IsNull() ? std::nullopt
                                    : std::optional<int>(static_cast<int>(f("PaidBy").AsInteger()));
    h.Posted = f("Posted").AsBoolean();
    h.Reconciled = f("Reconciled").AsBoolean();
    return h;
}

void TfrmARPayment::FocusField(std::string_view field) {
    const std::pair<const char*, ui::Control*> controls[] = {
        {"BankID", &cboBank},          {"CustomerID", &editCustomerNo},
        {"ChequeNo", &editChequeNo},   {"PaymentDate", &editPaymentDate},
        {"GLYear", &editYear},         {"GLPeriod", &editPeriod},
        {"ChequeAmount", &editAmount}, {"Lines", &grdLines}};
    for (const auto& [name, control] : controls)
        if (field == name) {
            if (control->CanFocus()) control->SetFocus();
            return;
        }
}

void TfrmARPayment::FocusColumn(int column) {
    if (grdLines.CanFocus() && !grdLines.Focused()) grdLines.SetFocus();
    const std::string_view field = LineColumns[column];
    for (std::size_t i = 0; i < grdLines.Columns.size(); ++i)
        if (grdLines.Columns[i].FieldName == field) {
            grdLines.SelectColumn(static_cast<int>(i));
            return;
        }
}

void TfrmARPayment::CheckBeforeSave() {
    PaymentAnswers answered;
    for (;;) {
        const PaymentVerdict v = ValidatePayment(EntryTable.OwnerDatabase(), Header(),
                                                 {LineCount(), total_}, checkWording_, answered);
        if (v.Accepted()) return;
        FocusField(v.Field);
        switch (v.Verdict) {
        case PaymentVerdict::Kind::Refused:
            App().MessageDlg(v.Message, ui::MsgType::Error, {ui::mbOK});
            Abort();
        case PaymentVerdict::Kind::Warning: {
            if (!App().PassWarning(v.Message)) Abort();
            answered.Period = true;
            break;
        }
        case PaymentVerdict::Kind::Question:
            // Yes fills in the amount and stays, so that the user sees it before saving.
            if (App().MessageDlg(v.Message, ui::MsgType::Confirmation, {ui::mbYes, ui::mbNo}) ==
                ui::mbYes)
                EntryTable.FieldByName("ChequeAmount").SetAsMoney(v.Amount);
            FocusField("ChequeAmount");
            Abort();
        case PaymentVerdict::Kind::Accepted:
            return;
        }
    }
}

void TfrmARPayment::SavePayment() {
    if (tblARInvPmt.Editing()) tblARInvPmt.Post();
    if (EntryTable.Editing()) EntryTable.Post();
    EntryTable.FlushBuffers();
    if (AfterSave) AfterSave(*this);
}

bool TfrmARPayment::HasUnsavedWork() {
    return EntryTable.Editing() && (EntryTable.Modified() || snapshot_.Taken());
}

void TfrmARPayment::DropLines() {
    if (tblARInvPmt.Editing()) {
        restoring_ = true;
        tblARInvPmt.Cancel();
        restoring_ = false;
    }
    store::Database& db = EntryTable.OwnerDatabase();
    const bool wasNew = EntryTable.State() == DataSetState::Insert;
    snapshot_.Restore(db);
    if (wasNew) {
        // A cancelled new payment leaves no lines behind; its id stays spent.
        store::Transaction drop(db, {"ARInvPmt"});
        store::Query q(db, "DELETE FROM ARInvPmt WHERE PaymentID = :ID");
        q.ParamByName("ID").SetValue(EntryTable.FieldByName("PaymentID").AsValue());
        q.ExecSQL();
        drop.Commit();
    }
    tblARInvPmt.Refresh();
}

void TfrmARPayment::ShowCaption() {
    if (closing_ || !EntryTable.Active()) return;
    const std::string ref = EntryTable.FieldByName("ChequeNo").AsString();
    const bool fresh = EntryTable.State() == DataSetState::Insert || EntryTable.IsEmpty();
    Caption = fresh && ref.empty() ? "New Payment" : "Payment " + ref;
}

void TfrmARPayment::ShowHeaderTexts() {
    if (closing_ || !EntryTable.Active()) return;
    const store::Field& customer = EntryTable.FieldByName("CustomerID");
    std::vector<Value> c;
    if (!customer.IsNull())
        c = tblCustomer.LookupValues("CustomerID", {customer.AsValue()},
                                     "CustomerName;AddressLine1;City");
    auto text = [&](std::size_t i) { return c.size() > i && !c[i].IsNull() ? c[i].Str() : ""; };
    lblCustomerName.Caption = text(0);
    std::string address = text(1);
    if (!text(2).empty()) address += (address.empty() ? "" : ", ") + std::string(text(2));
    lblAddress.Caption = address;
    const store::Field& paidBy = EntryTable.FieldByName("PaidBy");
    const int index = paidBy.IsNull() ? -1 : static_cast<int>(paidBy.AsInteger()) - 1;
    if (cboPaidBy.ItemIndex() != index) cboPaidBy.SetItemIndex(index);
    lblPosted.Visible = Posted();
    lblReconciled.Visible =
        !EntryTable.IsEmpty() && EntryTable.FieldByName("Reconciled").AsBoolean();
}

void TfrmARPayment::ShowTotal() {
    lblTotal.Caption = FormatMoney(MoneyFormat, total_);
}

} // namespace corvane::receivables
