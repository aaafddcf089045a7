#include "receivables/invoices/forms/TfrmARInvoice.h"

#include "receivables/invoices/forms/TfrmARInvoiceNotes.h"

#include "core/DisplayFormat.h"
#include "core/Exception.h"
#include "core/Text.h"
#include "ledger/periods/PeriodCheck.h"
#include "ledger/periods/YearEntry.h"
#include "receivables/invoices/InvoiceTexts.h"
#include "receivables/posting/InvoicePosting.h"
#include "receivables/taxes/TaxLookUp.h"
#include "store/Query.h"
#include "ui/Application.h"
#include "ui/Layout.h"

namespace corvane::receivables {

using store::DataSetState;
using store::Value;
namespace text = invoice_text;

namespace {

std::optional<std::int64_t> OptId(const store::Field& f) {
    if (f.IsNull()) return std::nullopt;
    return f.AsInteger();
}

// The read-only messages of the fields the user may look at but not type into.
constexpr const char* AmountReadOnly =
    "Invoice Amount is read-only...\n\nThe invoice amount is calculated based on the item totals "
    "and any taxes.";
constexpr const char* PaidReadOnly =
    "Amount Paid is read-only...\n\nThe amount paid is calculated based on any payments already "
    "entered for this invoice.";
constexpr const char* OwingReadOnly =
    "Amount Owing is read-only...\n\nThe amount owing is calculated as the original invoice "
    "amount minus any payments and discount taken.";
constexpr const char* MoneyFormat = "#,###,##0.00#;(#,###,##0.00#)";
constexpr const char* PriceFormat = "#,###,##0.00###;(#,###,##0.00###)";
constexpr const char* ShipToReadOnly =
    "Ship-to is read-only...\n\nShip-to name and address is specified on the customer.";

} // namespace

TfrmARInvoice::TfrmARInvoice(ui::Application& app, store::Database& db)
    : EntryForm(app, "frmARInvoice", db, "ARInv", "tblARInv"), tblARInvDet(db, "ARInvDet"),
      tblCustomer(db, "Customer"), tblItem(db, "Item"), tblWarehse(db, "Warehse") {
    using namespace ui;
    Caption = "New Invoice";
    for (store::Table* t : {&tblCustomer, &tblItem, &tblWarehse})
        t->Open();
    SetUpLines();

    for (const char* money : {"InvoiceAmount", "PaidAmount", "Owing", "POSPmtAmount"})
        EntryTable.FieldByName(money).DisplayFormat = MoneyFormat;
    editInvoiceDate.Bind(EntryTable, "InvoiceDate");
    editInvoiceDate.CalendarCaption = "Invoice Date";
    ledger::EnterYearAsTwoDigits(EntryTable.FieldByName("GLYear"),
                                 ledger::BadYearMessage("Period"));
    ledger::LimitPeriodNumber(EntryTable.FieldByName("GLPeriod"), "Period");
    // The year is shown through its two digits, yet it is a number beside the period's.
    editYear.AlignRight = true;

    // The customer is typed by its number and kept by its id.
    store::Field& customer = EntryTable.FieldByName("CustomerID");
    customer.DisplayLabel = "Customer";
    customer.OnGetText = [this](const store::Field& f, bool) -> std::string {
        if (f.IsNull()) return {};
        Value no = tblCustomer.Lookup("CustomerID", {f.AsValue()}, "CustomerNo");
        return no.IsNull() ? std::string() : no.Str();
    };
    customer.OnSetText = [this](store::Field& f, std::string_view typed) {
        if (EntryTable.FieldByName("TimeInvoice").AsBoolean())
            throw Exception(text::TimeCustomerFixed);
        const std::string number(TrimBlanks(typed));
        if (number.empty()) return f.Clear();
        std::vector<Value> found = tblCustomer.LookupValues("CustomerNo", {Value(number)},
                                                            "CustomerID;Suspended;CustomerName");
        if (found.empty() || found[0].IsNull()) throw Exception(text::CustomerNotFound);
        if (!found[1].IsNull() && found[1].Bool())
            throw Exception("Customer '" + number + ": " + found[2].Str() + "' has been suspended");
        f.SetValue(found[0]);
    };
    customer.OnChange = [this](store::Field&) { CustomerChanged(); };

    ReadOnlyMessage(editInvoiceAmount, AmountReadOnly);
    ReadOnlyMessage(editPaidAmount, PaidReadOnly);
    ReadOnlyMessage(editOwing, OwingReadOnly);
    lblShipTo.OnClick = [this] { App().MessageDlg(ShipToReadOnly, MsgType::Information, {mbOK}); };
    lblPosted.Visible = false;

    SetLayout(Column{
        Row{FormRow{"Invoice no.:", editInvoiceNo}, FormRow{"Customer:", editCustomerNo},
            lblCustomerName, Stretch{}, lblPosted},
        Row{FormRow{"Date:", editInvoiceDate}, FormRow{"Period:", Row{editPeriod, editYear}},
            FormRow{"Warehouse:", cboWarehouse}, chkPrinted},
        Row{FormRow{"Description:", editDescription}, FormRow{"P.O. no.:", editPurchaseOrderNo}},
        Row{FormRow{"Ship to:", lblShipTo}, FormRow{"Terms:", lblTerms}},
        grdLines,
        lblTax,
        Row{FormRow{"Invoice Amount:", editInvoiceAmount}, FormRow{"Paid:", editPaidAmount},
            FormRow{"Owing:", editOwing}, btnPayment},
        ButtonRow{btnOK, btnOKNew, btnOKPrint, btnCancel},
    });

    EntryTable.OnNewRecord = [this](store::DataSet&) { NewInvoice(); };
    EntryTable.BeforeEdit = [this](store::DataSet&) {
        if (Posted()) throw Exception(text::PostedCannotChange);
    };
    EntryTable.BeforePost = [this](store::DataSet&) { CheckBeforeSave(); };
    EntryTable.AfterPost = [this](store::DataSet&) {
        snapshot_.Forget();
        copying_ = false;
        ShowCaption();
    };
    // However the invoice is cancelled, its lines go back to what they were first.
    EntryTable.BeforeCancel = [this](store::DataSet&) { DropLines(); };
    EntryTable.AfterCancel = [this](store::DataSet&) { ShowLines(); };
    EntryTable.AfterScroll = [this](store::DataSet&) { ShowLines(); };
    EntryTable.BeforeClose = [this](store::DataSet&) { closing_ = true; };
    EntryTable.AfterOpen = [this](store::DataSet&) { closing_ = false; };

    btnOK.OnClick = [this] {
        SaveInvoice();
        Close();
    };
    btnOKNew.OnClick = [this] {
        SaveInvoice();
        EntryTable.Insert();
        Focus("CustomerID");
    };
    btnOKPrint.OnClick = [this] {
        SaveInvoice();
        const std::int64_t id = EntryTable.FieldByName("ARInvoiceID").AsInteger();
        Close();
        if (PrintInvoice) PrintInvoice(id);
    };
    btnPayment.OnClick = [this] {
        if (EntryTable.FieldByName("CustomerID").IsNull())
            throw Exception(text::PaymentNeedsCustomer);
        if (OpenPayment) OpenPayment();
    };
    // A hidden invoice form would keep the posting run from starting.
    OnClose = [](ui::CloseAction& action) { action = ui::CloseAction::Free; };
    OnShow = [this] {
        ShowCaption();
        ShowHeaderTexts();
    };
}

TfrmARInvoice::~TfrmARInvoice() {
    tblARInvDet.Close();
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

void TfrmARInvoice::ReadOnlyMessage(ui::Control& control, const char* message) {
    // The user is told why nothing happens, rather than met with a silent refusal.
    control.OnKeyPress = [this, message](char& ch) {
        ch = 0;
        App().MessageDlg(message, ui::MsgType::Information, {ui::mbOK});
    };
    control.OnKeyDown = [this, message](ui::Key& key, ui::Modifiers) {
        if (key != ui::Key::Delete) return;
        key = ui::Key::None;
        App().MessageDlg(message, ui::MsgType::Information, {ui::mbOK});
    };
}

void TfrmARInvoice::EditLineNotes(char typed) {
    // A grid without lines gets its first one; a row being typed keeps being typed.
    const bool newLine = !tblARInvDet.Editing() && tblARInvDet.IsEmpty();
    const std::string notes = newLine ? std::string() : tblARInvDet.FieldByName("Notes").AsString();
    const std::optional<std::string> kept =
        App().SingleForm<TfrmARInvoiceNotes>().Edit(notes + std::string(1, typed));
    if (!kept || (!newLine && *kept == notes)) return;
    // The line's own rules decide whether it may change (a time line may not).
    if (newLine)
        tblARInvDet.Insert();
    else if (!tblARInvDet.Editing())
        tblARInvDet.Edit();
    if (kept->empty())
        tblARInvDet.FieldByName("Notes").Clear();
    else
        tblARInvDet.FieldByName("Notes").SetAsString(*kept);
}

std::string TfrmARInvoice::KeyViolationMessage() const {
    return text::NumberNotUnique;
}

void TfrmARInvoice::SetUpLines() {
    tblARInvDet.Name = "tblARInvDet";
    tblARInvDet.AddCalculatedField("Description", store::FieldType::String, 120);
    tblARInvDet.AddCalculatedField("ExtAmount", store::FieldType::Currency);
    tblARInvDet.Open();
    tblARInvDet.SetRange({Value(0)}, {Value(0)});
    tblARInvDet.FieldByName("UnitPriceB4Disc").DisplayFormat = PriceFormat;
    tblARInvDet.FieldByName("UnitPrice").DisplayFormat = MoneyFormat;
    tblARInvDet.FieldByName("ExtAmount").DisplayFormat = MoneyFormat;
    store::Field& item = tblARInvDet.FieldByName("ItemID");
    item.DisplayLabel = "Item no.";
    item.OnGetText = [this](const store::Field& f, bool) -> std::string {
        if (f.IsNull()) return {};
        Value no = tblItem.Lookup("ItemID", {f.AsValue()}, "ItemNo");
        return no.IsNull() ? std::string() : no.Str();
    };
    item.OnSetText = [this](store::Field& f, std::string_view typed) {
        const std::string number(TrimBlanks(typed));
        if (number.empty()) return f.Clear();
        std::vector<Value> found =
            tblItem.LookupValues("ItemNo", {Value(number)}, "ItemID;Suspended;ItemDescription");
        if (found.empty() || found[0].IsNull()) throw Exception(text::ItemNotFound);
        if (!copying_ && !found[1].IsNull() && found[1].Bool())
            throw Exception("Item '" + number + ": " + found[2].Str() + "' has been suspended");
        f.SetValue(found[0]);
    };
    item.OnChange = [this](store::Field& f) { ItemChanged(f); };
    tblARInvDet.FieldByName("UnitPriceB4Disc").OnChange = [this](store::Field&) { PriceChanged(); };
    tblARInvDet.FieldByName("PercentDiscount").OnChange = [this](store::Field&) { PriceChanged(); };
    tblARInvDet.OnCalcFields = [this](store::DataSet& ds) {
        std::string description;
        const Value& id = ds.FieldByName("ItemID").AsValue();
        if (!id.IsNull()) {
            Value found = tblItem.Lookup("ItemID", {id}, "ItemDescription");
            if (!found.IsNull()) description = found.Str();
        }
        ds.FieldByName("Description").SetAsString(description);
        const store::Field& qty = ds.FieldByName("Quantity");
        const store::Field& price = ds.FieldByName("UnitPrice");
        if (qty.IsNull() || price.IsNull())
            ds.FieldByName("ExtAmount").Clear();
        else
            ds.FieldByName("ExtAmount").SetAsMoney(ExtendedAmount(qty.AsFloat(), price.AsMoney()));
    };

    grdLines.ReadOnly = false;
    grdLines.AddColumn("Quantity", "Quantity", 60);
    grdLines.AddColumn("ItemID", "Item no.", 80);
    grdLines.AddColumn("Description", "Description", 200);
    grdLines.AddColumn("UnitPriceB4Disc", "Unit Price", 80);
    grdLines.AddColumn("PercentDiscount", "Disc %", 50);
    grdLines.AddColumn("UnitPrice", "Adj. Price", 80);
    grdLines.AddColumn("TaxCodes", "Tax", 36);
    grdLines.AddColumn("ExtAmount", "Amount", 90);
    grdLines.AddColumn("Notes", "Notes", 120);
    grdLines.OnKeyPress = [this](char& ch) {
        const ui::GridColumn* column = grdLines.SelectedColumn();
        if (!column || column->FieldName != "Notes" || grdLines.EditorMode()) return;
        if (static_cast<unsigned char>(ch) < 32) return;
        const char typed = ch;
        ch = 0;
        EditLineNotes(typed);
    };

    tblARInvDet.BeforeInsert = [this](store::DataSet& ds) {
        BeforeLineChange(ds);
        lineBefore_ = {};
    };
    tblARInvDet.BeforeEdit = [this](store::DataSet& ds) {
        if (!ds.FieldByName("JobID").IsNull()) throw Exception(text::TimeLineNoEdit);
        BeforeLineChange(ds);
    };
    tblARInvDet.BeforeDelete = [this](store::DataSet& ds) {
        if (!ds.FieldByName("JobID").IsNull()) throw Exception(text::TimeLineNoDelete);
        BeforeLineChange(ds);
    };
    tblARInvDet.OnNewRecord = [this](store::DataSet& ds) {
        ds.FieldByName("ARInvoiceID").SetValue(EntryTable.FieldByName("ARInvoiceID").AsValue());
    };
    tblARInvDet.BeforePost = [this](store::DataSet& ds) {
        if (restoring_) return;
        const store::Field& lineItem = ds.FieldByName("ItemID");
        if (lineItem.IsNull() && ds.FieldByName("JobID").IsNull())
            throw Exception(text::LineItemMissing);
        if (!lineItem.IsNull() && tblItem.Lookup("ItemID", {lineItem.AsValue()}, "ItemID").IsNull())
            throw Exception(text::LineItemNotFound);
        if (ds.FieldByName("Seq").IsNull()) ds.FieldByName("Seq").SetAsInteger(nextSeq_++);
    };
    tblARInvDet.AfterPost = [this](store::DataSet&) {
        if (!restoring_) LineSaved();
    };
    tblARInvDet.AfterDelete = [this](store::DataSet&) {
        if (!restoring_) LineDeleted();
    };
}

bool TfrmARInvoice::Posted() {
    return EntryTable.Active() && !EntryTable.IsEmpty() &&
           EntryTable.FieldByName("Posted").AsBoolean();
}

void TfrmARInvoice::BeforeLineChange(store::DataSet& lines) {
    if (restoring_) return;
    if (Posted()) throw Exception(text::PostedCannotChange);
    // Any change of a line is a change of the invoice, and the first one keeps the lines as
    // they were for Cancel.
    if (!EntryTable.Editing()) EntryTable.Edit();
    TakeSnapshot();
    if (lines.State() == DataSetState::Browse && !lines.IsEmpty())
        lineBefore_ = {
            ExtendedAmount(lines.FieldByName("Quantity").IsNull()
                               ? std::nullopt
                               : std::optional<double>(lines.FieldByName("Quantity").AsFloat()),
                           lines.FieldByName("UnitPrice").IsNull()
                               ? std::nullopt
                               : std::optional<Money>(lines.FieldByName("UnitPrice").AsMoney())),
            lines.FieldByName("TaxCodes").AsString()};
}

void TfrmARInvoice::TakeSnapshot() {
    snapshot_.Take(EntryTable.OwnerDatabase(), "ARInvDet", "ARInvoiceID",
                   EntryTable.FieldByName("ARInvoiceID").AsValue());
}

void TfrmARInvoice::RestoreSnapshot() {
    if (!snapshot_.Taken()) return;
    restoring_ = true;
    struct Done {
        bool& flag;
        ~Done() { flag = false; }
    } done{restoring_};
    if (tblARInvDet.Editing()) tblARInvDet.Cancel();
    snapshot_.Restore(EntryTable.OwnerDatabase());
    tblARInvDet.Refresh();
}

void TfrmARInvoice::NewInvoice() {
    store::Database& db = EntryTable.OwnerDatabase();
    const std::optional<InvoiceKeys> keys = DrawInvoiceKeys(db, [this](const std::string& q) {
        return App().MessageDlg(q, ui::MsgType::Error, {ui::mbRetry, ui::mbCancel}) == ui::mbRetry;
    });
    if (!keys) {
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
    set("ARInvoiceID", Value(keys->ARInvoiceID));
    set("InvoiceNo", Value(keys->InvoiceNo));
    set("InvoiceDate", Value(Date::Today()));
    set("Printed", Value(false));
    set("Posted", Value(false));
    set("TimeInvoice", Value(false));
    set("GLPeriod", Value(period.Number));
    set("GLYear", Value(period.Year));
    set("InvoiceAmount", Value(Money()));
    set("PaidAmount", Value(Money()));
    set("Owing", Value(Money()));
    tblWarehse.First();
    if (!tblWarehse.IsEmpty()) set("WarehouseID", tblWarehse.FieldByName("WarehouseID").AsValue());
    taxes_ = {};
    buckets_ = {};
    taxAmounts_ = {};
    snapshot_.Forget();
    nextSeq_ = 1;
    tblARInvDet.SetRange({Value(keys->ARInvoiceID)}, {Value(keys->ARInvoiceID)});
    ShowHeaderTexts();
}

void TfrmARInvoice::ShowLines() {
    if (closing_ || !EntryTable.Active() || EntryTable.Editing()) return;
    const bool empty = EntryTable.IsEmpty();
    const Value id = empty ? Value(0) : EntryTable.FieldByName("ARInvoiceID").AsValue();
    tblARInvDet.SetRange({id}, {id});
    snapshot_.Forget();
    nextSeq_ = 1;
    if (!empty) {
        const std::optional<InvoiceHeader> h = ReadInvoice(
            EntryTable.OwnerDatabase(), EntryTable.FieldByName("ARInvoiceID").AsInteger());
        if (h) {
            store::Database& db = EntryTable.OwnerDatabase();
            taxes_.Tax1 = TaxFromDocumentCopy(db, h->Taxes.Tax1.TaxID, h->Taxes.Tax1.Code,
                                              h->Taxes.Tax1.Rate);
            taxes_.Tax2 = TaxFromDocumentCopy(db, h->Taxes.Tax2.TaxID, h->Taxes.Tax2.Code,
                                              h->Taxes.Tax2.Rate);
            buckets_ = h->Buckets;
            taxAmounts_ = ComputeTaxAmounts(buckets_, taxes_);
        }
        store::Query last(EntryTable.OwnerDatabase(),
                          "SELECT MAX(Seq) AS LastSeq FROM ARInvDet WHERE ARInvoiceID = :ID");
        last.ParamByName("ID").SetValue(id);
        last.Open();
        if (!last.FieldByName("LastSeq").IsNull())
            nextSeq_ = last.FieldByName("LastSeq").AsInteger() + 1;
    }
    ShowHeaderTexts();
    ShowCaption();
}

void TfrmARInvoice::CustomerChanged() {
    store::Database& db = EntryTable.OwnerDatabase();
    const std::optional<std::int64_t> id = OptId(EntryTable.FieldByName("CustomerID"));
    InvoiceTerms terms;
    Value currency;
    taxes_ = {};
    if (id) {
        store::Table c(db, "Customer");
        c.ReadOnly = true;
        c.Open();
        if (c.Locate("CustomerID", {Value(*id)})) {
            if (!c.FieldByName("DiscPC").IsNull()) terms.DiscPC = c.FieldByName("DiscPC").AsFloat();
            if (!c.FieldByName("DiscDays").IsNull())
                terms.DiscDays = static_cast<int>(c.FieldByName("DiscDays").AsInteger());
            if (!c.FieldByName("NetDays").IsNull())
                terms.NetDays = static_cast<int>(c.FieldByName("NetDays").AsInteger());
            terms.COD = c.FieldByName("COD").AsBoolean();
            terms.Prepayment = c.FieldByName("Prepayment").AsBoolean();
            terms.TermsText = c.FieldByName("TermsText").AsString();
            currency = c.FieldByName("CurrencyID").AsValue();
        }
        taxes_ = TaxesForCustomer(db, *id);
    }
    auto set = [&](std::string_view name, const Value& v) {
        EntryTable.FieldByName(name).SetValue(v);
    };
    set("DiscPC", terms.DiscPC ? Value(*terms.DiscPC) : Value());
    set("DiscDays", terms.DiscDays ? Value(*terms.DiscDays) : Value());
    set("NetDays", terms.NetDays ? Value(*terms.NetDays) : Value());
    set("COD", Value(terms.COD));
    set("Prepayment", Value(terms.Prepayment));
    set("TermsText", terms.TermsText.empty() ? Value() : Value(terms.TermsText));
    set("CurrencyID", currency);
    const DocumentTax* both[] = {&taxes_.Tax1, &taxes_.Tax2};
    for (int n = 1; n <= 2; ++n) {
        const std::string k = std::to_string(n);
        const DocumentTax& tax = *both[n - 1];
        set("Tax" + k + "ID", tax.TaxID ? Value(*tax.TaxID) : Value());
        set("Tax" + k + "Code", tax.TaxID ? Value(tax.Code) : Value());
        set("Tax" + k + "Rate", tax.TaxID ? Value(tax.Rate) : Value());
    }
    // The buckets stay: they do not depend on the customer. The taxes and amount follow.
    ApplyTaxes({}, {});
}

void TfrmARInvoice::ItemChanged(store::Field& item) {
    if (copying_ || restoring_ || item.IsNull()) return;
    std::vector<Value> found =
        tblItem.LookupValues("ItemID", {item.AsValue()}, "UnitPrice;TaxCodes;ItemDescription");
    if (found.empty()) return;
    Money price = found[0].IsNull() ? Money() : found[0].Money();
    Value rateValue;
    const Value& currency = EntryTable.FieldByName("CurrencyID").AsValue();
    if (!currency.IsNull()) {
        store::Table cur(EntryTable.OwnerDatabase(), "Currency");
        cur.ReadOnly = true;
        cur.Open();
        rateValue = cur.Lookup("CurrencyID", {currency}, "ExchangeRate");
    }
    const double rate = rateValue.IsNull() ? 0 : rateValue.Float();
    if (RateConvertsPrices(rate) &&
        App().MessageDlg(ConvertPriceQuestion(found[2].IsNull() ? "" : found[2].Str(), rate),
                         ui::MsgType::Confirmation, {ui::mbYes, ui::mbNo}) == ui::mbYes)
        price = PriceInCurrency(price, rate);
    tblARInvDet.FieldByName("UnitPriceB4Disc").SetAsMoney(price);
    tblARInvDet.FieldByName("TaxCodes").SetValue(found[1]);
    if (tblARInvDet.FieldByName("Quantity").IsNull())
        tblARInvDet.FieldByName("Quantity").SetAsFloat(1);
}

void TfrmARInvoice::PriceChanged() {
    const store::Field& b4 = tblARInvDet.FieldByName("UnitPriceB4Disc");
    const store::Field& pc = tblARInvDet.FieldByName("PercentDiscount");
    const std::optional<Money> price =
        AdjustedPrice(b4.IsNull() ? std::nullopt : std::optional<Money>(b4.AsMoney()),
                      pc.IsNull() ? std::nullopt : std::optional<double>(pc.AsFloat()));
    store::Field& adjusted = tblARInvDet.FieldByName("UnitPrice");
    if (price)
        adjusted.SetAsMoney(*price);
    else
        adjusted.Clear();
}

void TfrmARInvoice::LineSaved() {
    const store::Field& qty = tblARInvDet.FieldByName("Quantity");
    const store::Field& price = tblARInvDet.FieldByName("UnitPrice");
    const TaxedLine now{
        ExtendedAmount(qty.IsNull() ? std::nullopt : std::optional<double>(qty.AsFloat()),
                       price.IsNull() ? std::nullopt : std::optional<Money>(price.AsMoney())),
        tblARInvDet.FieldByName("TaxCodes").AsString()};
    ApplyTaxes(lineBefore_, now);
    lineBefore_ = now;
}

void TfrmARInvoice::LineDeleted() {
    ApplyTaxes(lineBefore_, {});
    lineBefore_ = {};
}

void TfrmARInvoice::ApplyTaxes(const TaxedLine& before, const TaxedLine& after) {
    if (!EntryTable.Editing()) return;
    store::Field& amount = EntryTable.FieldByName("InvoiceAmount");
    const TaxUpdate update =
        UpdateDocumentTaxes(buckets_, taxes_, amount.AsMoney(), taxAmounts_, before, after);
    for (std::size_t b = 0; b < buckets_.size(); ++b) {
        const std::string k = std::to_string(b + 1);
        EntryTable.FieldByName("TaxableAmtCode" + k)
            .SetValue(buckets_[b].Code.empty() ? Value() : Value(buckets_[b].Code));
        EntryTable.FieldByName("TaxableAmount" + k)
            .SetValue(buckets_[b].Code.empty() ? Value() : Value(buckets_[b].Amount));
    }
    lblTax.Caption = update.TaxLine;
    if (!update.Verdict.Ok()) throw Exception(std::string(TooManyTaxesMessage));
    taxAmounts_ = update.Taxes;
    amount.SetAsMoney(update.DocumentAmount);
    EntryTable.FieldByName("Owing").SetAsMoney(Header().Owing());
}

InvoiceHeader TfrmARInvoice::Header() {
    store::Table& t = EntryTable;
    auto f = [&](std::string_view name) -> store::Field& { return t.FieldByName(name); };
    InvoiceHeader h;
    h.ARInvoiceID = f("ARInvoiceID").AsInteger();
    h.InvoiceNo = f("InvoiceNo").AsString();
    h.CustomerID = OptId(f("CustomerID"));
    h.WarehouseID = OptId(f("WarehouseID"));
    h.CurrencyID = OptId(f("CurrencyID"));
    h.GLYear = static_cast<int>(f("GLYear").AsInteger());
    h.GLPeriod = static_cast<int>(f("GLPeriod").AsInteger());
    h.InvoiceAmount = f("InvoiceAmount").AsMoney();
    h.PaidAmount = f("PaidAmount").AsMoney();
    h.DiscTakenAmount = f("DiscTakenAmount").AsMoney();
    h.WriteOffAmount = f("WriteOffAmount").AsMoney();
    h.Terms.COD = f("COD").AsBoolean();
    h.Posted = f("Posted").AsBoolean();
    h.TimeInvoice = f("TimeInvoice").AsBoolean();
    h.Payment.Amount = f("POSPmtAmount").AsMoney();
    if (!f("POSPmtPaidBy").IsNull())
        h.Payment.PaidBy = static_cast<int>(f("POSPmtPaidBy").AsInteger());
    h.Payment.Reference = f("POSPmtReference").AsString();
    h.Payment.BankID = OptId(f("POSPmtBankID"));
    return h;
}

void TfrmARInvoice::SetPayment(const PointOfSalePayment& p) {
    if (!EntryTable.Editing()) EntryTable.Edit();
    const bool paid = !p.Amount.IsZero();
    auto set = [&](std::string_view name, const Value& v) {
        EntryTable.FieldByName(name).SetValue(v);
    };
    set("POSPmtAmount", paid ? Value(p.Amount) : Value());
    set("POSPmtPaidBy", paid && p.PaidBy ? Value(*p.PaidBy) : Value());
    set("POSPmtReference", paid && !p.Reference.empty() ? Value(p.Reference) : Value());
    set("POSPmtBankID", paid && p.BankID ? Value(*p.BankID) : Value());
    set("PaidAmount", Value(p.Amount));
    set("Owing", Value(Header().Owing()));
}

void TfrmARInvoice::Focus(std::string_view field) {
    for (ui::Control* c : std::initializer_list<ui::Control*>{&editCustomerNo, &editPeriod,
                                                              &editInvoiceNo, &cboWarehouse})
        if ((field == "CustomerID" && c == &editCustomerNo) ||
            (field == "GLPeriod" && c == &editPeriod) ||
            (field == "InvoiceNo" && c == &editInvoiceNo) ||
            (field == "WarehouseID" && c == &cboWarehouse)) {
            if (c->CanFocus()) c->SetFocus();
            return;
        }
    if (field == "Lines" && grdLines.CanFocus()) grdLines.SetFocus();
}

void TfrmARInvoice::CheckBeforeSave() {
    PassedWarnings passed;
    for (;;) {
        const InvoiceVerdict v = ValidateInvoice(EntryTable.OwnerDatabase(), Header(), passed);
        if (v.Accepted()) return;
        Focus(v.Field);
        if (v.Verdict == InvoiceVerdict::Kind::Refused) {
            App().MessageDlg(v.Message, ui::MsgType::Error, {ui::mbOK});
            if (v.OpenPayment && OpenPayment) OpenPayment();
            Abort();
        }
        if (!App().PassWarning(v.Message)) Abort();
        (v.Field == "GLPeriod" ? passed.Period : passed.ZeroAmount) = true;
    }
}

void TfrmARInvoice::SaveInvoice() {
    if (tblARInvDet.Editing()) tblARInvDet.Post();
    if (EntryTable.Editing()) EntryTable.Post();
    EntryTable.FlushBuffers();
    if (AfterSave) AfterSave(*this);
}

bool TfrmARInvoice::HasUnsavedWork() {
    return EntryTable.Editing() && (EntryTable.Modified() || snapshot_.Taken());
}

void TfrmARInvoice::DropLines() {
    // The lines' events are off while the snapshot goes back.
    const bool wasNew = EntryTable.State() == DataSetState::Insert;
    RestoreSnapshot();
    if (wasNew) {
        // A cancelled new invoice leaves no lines behind; its number stays spent.
        store::Query drop(EntryTable.OwnerDatabase(),
                          "DELETE FROM ARInvDet WHERE ARInvoiceID = :ID");
        drop.ParamByName("ID").SetValue(EntryTable.FieldByName("ARInvoiceID").AsValue());
        drop.ExecSQL();
    }
    copying_ = false;
}

void TfrmARInvoice::ShowCaption() {
    if (closing_ || !EntryTable.Active()) return;
    const std::string no = EntryTable.FieldByName("InvoiceNo").AsString();
    const store::Field& customer = EntryTable.FieldByName("CustomerID");
    if (copying_ && EntryTable.State() == DataSetState::Insert)
        Caption = "New (copied) Invoice";
    else if (no.empty() || customer.IsNull())
        Caption = "New Invoice";
    else {
        Value name = tblCustomer.Lookup("CustomerID", {customer.AsValue()}, "CustomerName");
        Caption = "Invoice " + no + (name.IsNull() ? "" : " - " + name.Str());
    }
}

void TfrmARInvoice::ShowHeaderTexts() {
    if (closing_ || !EntryTable.Active()) return;
    const store::Field& customer = EntryTable.FieldByName("CustomerID");
    std::vector<Value> c;
    if (!customer.IsNull())
        c = tblCustomer.LookupValues("CustomerID", {customer.AsValue()},
                                     "CustomerName;ShipToName;ShipToAddressLine1");
    lblCustomerName.Caption = c.empty() || c[0].IsNull() ? "" : c[0].Str();
    if (c.empty())
        lblShipTo.Caption = "";
    else if (c[1].IsNull() && c[2].IsNull())
        lblShipTo.Caption = "Same";
    else
        lblShipTo.Caption = c[1].IsNull() ? "" : c[1].Str();
    InvoiceTerms terms;
    auto& t = EntryTable;
    if (!t.FieldByName("DiscPC").IsNull()) terms.DiscPC = t.FieldByName("DiscPC").AsFloat();
    if (!t.FieldByName("DiscDays").IsNull())
        terms.DiscDays = static_cast<int>(t.FieldByName("DiscDays").AsInteger());
    if (!t.FieldByName("NetDays").IsNull())
        terms.NetDays = static_cast<int>(t.FieldByName("NetDays").AsInteger());
    terms.COD = t.FieldByName("COD").AsBoolean();
    terms.Prepayment = t.FieldByName("Prepayment").AsBoolean();
    terms.TermsText = t.FieldByName("TermsText").AsString();
    lblTerms.Caption = customer.IsNull() ? "" : TermsDescription(terms);
    lblTax.Caption = TaxLineText(taxes_, taxAmounts_);
    lblPosted.Visible = Posted();
    ShowCaption();
}

void TfrmARInvoice::CopyFrom(std::int64_t sourceId) {
    store::Database& db = EntryTable.OwnerDatabase();
    const std::optional<InvoiceHeader> source = ReadInvoice(db, sourceId);
    if (!source) return;
    if (source->TimeInvoice)
        throw Exception("Unable to copy invoice '" + source->InvoiceNo + "'...\n" +
                        text::TimeInvoiceNoCopy);
    EntryTable.Insert();
    copying_ = true;
    if (source->CustomerID) {
        EntryTable.FieldByName("CustomerID").SetAsInteger(*source->CustomerID);
    }
    EntryTable.FieldByName("WarehouseID")
        .SetValue(source->WarehouseID ? Value(*source->WarehouseID) : Value());
    EntryTable.FieldByName("Description")
        .SetValue(source->Description.empty() ? Value() : Value(source->Description));
    EntryTable.FieldByName("PurchaseOrderNo")
        .SetValue(source->PurchaseOrderNo.empty() ? Value() : Value(source->PurchaseOrderNo));
    store::Query lines(db, "SELECT * FROM ARInvDet WHERE ARInvoiceID = :ID ORDER BY Seq");
    lines.ParamByName("ID").SetAsInteger(sourceId);
    lines.Open();
    for (lines.First(); !lines.Eof(); lines.Next()) {
        tblARInvDet.Append();
        tblARInvDet.FieldByName("Seq").SetValue(lines.FieldByName("Seq").AsValue());
        tblARInvDet.FieldByName("Quantity").SetValue(lines.FieldByName("Quantity").AsValue());
        tblARInvDet.FieldByName("ItemID").SetValue(lines.FieldByName("ItemID").AsValue());
        Money original = lines.FieldByName("UnitPriceB4Disc").AsMoney();
        Value current =
            tblItem.Lookup("ItemID", {lines.FieldByName("ItemID").AsValue()}, "UnitPrice");
        Value codes = tblItem.Lookup("ItemID", {lines.FieldByName("ItemID").AsValue()}, "TaxCodes");
        Money price = original;
        if (!current.IsNull() && current.Money() != original) {
            Value description = tblItem.Lookup("ItemID", {lines.FieldByName("ItemID").AsValue()},
                                               "ItemDescription");
            if (App().MessageDlg("'" + (description.IsNull() ? "" : description.Str()) +
                                     "' current price is not same as original invoice price.\nUse "
                                     "current price?",
                                 ui::MsgType::Confirmation, {ui::mbYes, ui::mbNo}) == ui::mbYes)
                price = current.Money();
        }
        tblARInvDet.FieldByName("UnitPriceB4Disc").SetAsMoney(price);
        tblARInvDet.FieldByName("PercentDiscount")
            .SetValue(lines.FieldByName("PercentDiscount").AsValue());
        tblARInvDet.FieldByName("TaxCodes").SetValue(codes);
        tblARInvDet.FieldByName("Notes").SetValue(lines.FieldByName("Notes").AsValue());
        tblARInvDet.Post();
        const std::int64_t seq = lines.FieldByName("Seq").AsInteger();
        if (seq >= nextSeq_) nextSeq_ = seq + 1;
    }
    ShowCaption();
}

} // namespace corvane::receivables
