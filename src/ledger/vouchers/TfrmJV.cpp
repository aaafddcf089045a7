#include "ledger/vouchers/TfrmJV.h"

#include "core/MoneyLimit.h"

#include "core/Date.h"
#include "core/Exception.h"
#include "core/Text.h"
#include "ledger/domain/Voucher.h"
#include "ledger/domain/VoucherNumbering.h"
#include "ledger/domain/VoucherTexts.h"
#include "ledger/periods/PeriodCheck.h"
#include "ledger/periods/YearEntry.h"
#include "ledger/posting/Unposting.h"
#include "ledger/vouchers/JVImport.h"
#include "ledger/vouchers/NumberBox.h"
#include "ledger/vouchers/TfrmImportJVData.h"
#include "store/EngineError.h"
#include "store/Query.h"
#include "store/tables/CompanyTables.h"
#include "ui/Application.h"
#include "ui/Layout.h"

#include <algorithm>

namespace corvane::ledger {

using store::DataSetState;
namespace text = voucher_text;

namespace {

// The subaccount id fields of a line, level 1 to 3.
constexpr const char* kSubFields[] = {"SubAccount1ID", "SubAccount2ID", "SubAccount3ID"};

} // namespace

TfrmJV::TfrmJV(ui::Application& app, store::Database& db)
    : EntryForm(app, "frmJV", db, "JV", "tblJV"), tblJVDet(db), tblGLAccnt(db, "GLAccnt"),
      tblSub1(db, "GLAcSub1"), tblSub2(db, "GLAcSub2"), tblSub3(db, "GLAcSub3"),
      tblVendor(db, "Vendor"), tblCustomer(db, "Customer") {
    using namespace ui;
    Caption = "New Journal Voucher";
    for (store::Table* t : {&tblGLAccnt, &tblSub1, &tblSub2, &tblSub3, &tblVendor, &tblCustomer})
        t->Open();
    SetUpLineFields();

    editTransDate.Bind(EntryTable, "TransDate");
    editTransDate.CalendarCaption = "Transaction Date";
    EnterYearAsTwoDigits(EntryTable.FieldByName("GLYear"), BadYearMessage("Period"));
    LimitPeriodNumber(EntryTable.FieldByName("GLPeriod"), "Period");
    // The year is shown through its two digits, yet it is a number beside the period's.
    editYear.AlignRight = true;
    store::Field& description = EntryTable.FieldByName("TransDescription");
    description.OnGetText = [this](const store::Field& f, bool) { return DescriptionShown(f); };
    description.OnSetText = [this](store::Field& f, std::string_view typed) {
        // What the form adds to a subledger voucher's text is not part of the text.
        std::string stored = f.AsString();
        std::string shown = DescriptionShown(f);
        std::string value(typed);
        if (shown.size() > stored.size() && value.size() >= shown.size() - stored.size() &&
            value.ends_with(shown.substr(stored.size())))
            value.resize(value.size() - (shown.size() - stored.size()));
        f.SetAsString(value);
    };

    lblPosted.Visible = false;
    btnUnpost.Visible = false;
    grdLines.Popup = &popLines;
    grdLines.ReadOnly = false;
    grdLines.AddColumn("GLAccountID", "GL Account", 80);
    grdLines.AddColumn("GLAmount", "Amount", 90);
    grdLines.AddColumn("SubAccount1ID", "Sub1", 50);
    grdLines.AddColumn("SubAccount2ID", "Sub2", 50);
    grdLines.AddColumn("SubAccount3ID", "Sub3", 50);
    grdLines.AddColumn("Name", "Name", 260);
    stbTotals.SimplePanel = true;

    SetLayout(Column{
        Row{FormRow{"JV no.:", editJVNumber}, Stretch{}, lblPosted, btnUnpost},
        FormRow{"Description:", editDescription},
        Row{FormRow{"Date:", editTransDate}, FormRow{"Period:", Row{editPeriod, editYear}},
            chkAutoReverse},
        grdLines,
        Row{btnGLAccounts, Stretch{}},
        stbTotals,
        ButtonRow{btnOK, btnCancel, btnHelp, btnOKNew},
    });

    EntryTable.OnNewRecord = [this](store::DataSet&) { NewVoucher(); };
    EntryTable.BeforeEdit = [this](store::DataSet&) {
        if (Posted()) RefusePosted();
    };
    EntryTable.BeforeCancel = [this](store::DataSet&) { DropNewLines(); };
    EntryTable.AfterPost = [this](store::DataSet&) {
        copying_ = false;
        ShowCaption();
    };
    EntryTable.AfterCancel = [this](store::DataSet&) {
        copying_ = false;
        StartFromSaved();
        ShowCaption();
    };
    EntryTable.AfterScroll = [this](store::DataSet&) { StartFromSaved(); };
    // When the company closes under an open voucher, its cursors close in no set order.
    EntryTable.BeforeClose = [this](store::DataSet&) { closing_ = true; };
    EntryTable.AfterOpen = [this](store::DataSet&) { closing_ = false; };

    btnOK.OnClick = [this] {
        SaveVoucher();
        Close();
    };
    btnOKNew.OnClick = [this] {
        SaveVoucher();
        EntryTable.Insert();
        Focus(editDescription);
    };
    editDescription.OnChange = [this] { ShowCaption(); };
    btnUnpost.OnClick = [this] { Unpost(); };
    // A voucher form left hidden would keep the posting run from starting.
    OnClose = [](ui::CloseAction& action) { action = ui::CloseAction::Free; };
    popNewLine.OnClick = [this] { NewLine(); };
    popDeleteLine.OnClick = [this] { DeleteLine(); };
    popImport.OnClick = [this] { ImportJVData(); };
    btnHelp.OnClick = [this] { ShowHelp(); };
    btnGLAccounts.OnClick = [this] {
        if (ui::Form* accounts = App().OpenForm("frmGLAccounts")) accounts->Show();
    };
    OnShow = [this] {
        StartFromSaved();
        ShowCaption();
        ShowPostedState();
        ShowTotals();
    };
    ShowTotals();
}

TfrmJV::~TfrmJV() {
    // The lines close first, while the tables their names and numbers come from still stand.
    tblJVDet.Close();
    store::Database& db = EntryTable.OwnerDatabase();
    try {
        if (db.Connected() && db.TableExists(store::Database::MemorySchema, linesTable_))
            db.DropTable(store::Database::MemorySchema, linesTable_);
    } catch (...) {
    }
}

void TfrmJV::SetUpLineFields() {
    CreateLinesTable();
    tblJVDet.Name = "tblJVDet";
    tblJVDet.SetTableName(linesTable_);
    tblJVDet.SetDatabaseName(std::string(store::Database::MemorySchema));
    tblJVDet.AddCalculatedField("Name", store::FieldType::String, 120);
    tblJVDet.Open();
    // The lines stand in a scratch copy of JVDet and show as its fields do.
    for (const store::FieldDef& declared : store::tables::JVDet().Fields)
        if (store::Field* field = tblJVDet.FindField(declared.Name))
            field->DisplayFormat = declared.DisplayFormat;

    store::Field& account = tblJVDet.FieldByName("GLAccountID");
    account.DisplayLabel = "GL Account";
    ShowIdAsNumber(account, {&tblGLAccnt, "GLAccountID", "GLAccount", text::TypedUnknownAccount,
                             text::SuspendedAccount});
    store::Table* subTables[] = {&tblSub1, &tblSub2, &tblSub3};
    for (int level = 0; level < 3; ++level)
        ShowIdAsNumber(tblJVDet.FieldByName(kSubFields[level]),
                       {subTables[level], "SubAccountID", "SubAccount",
                        text::TypedUnknownSubaccount, text::SuspendedSubaccount});
    tblJVDet.OnCalcFields = [this, subTables](store::DataSet& ds) {
        std::string name;
        const store::Value& id = ds.FieldByName("GLAccountID").AsValue();
        if (!id.IsNull()) {
            store::Value found = tblGLAccnt.Lookup("GLAccountID", {id}, "AccountName");
            if (!found.IsNull()) name = found.Str();
        }
        for (int level = 0; level < 3; ++level) {
            const store::Value& subId = ds.FieldByName(kSubFields[level]).AsValue();
            if (subId.IsNull()) continue;
            store::Value found =
                subTables[level]->Lookup("SubAccountID", {subId}, "SubAccountName");
            if (!found.IsNull()) name += " - " + found.Str();
        }
        ds.FieldByName("Name").SetAsString(name);
    };

    tblJVDet.BeforeInsert = tblJVDet.BeforeEdit = tblJVDet.BeforeDelete = [this](store::DataSet&) {
        if (Posted()) RefusePosted();
    };
    tblJVDet.OnNewRecord = [this](store::DataSet& ds) {
        ds.FieldByName("JVID").SetValue(EntryTable.FieldByName("JVID").AsValue());
        lineBefore_ = Money();
    };
    tblJVDet.AfterEdit = [this](store::DataSet& ds) {
        lineBefore_ = ds.FieldByName("GLAmount").AsMoney();
    };
    tblJVDet.BeforePost = [this](store::DataSet&) { CheckLine(); };
    tblJVDet.AfterPost = [this](store::DataSet&) { LineSaved(); };
    // The amount leaving the totals is the one stored, not what was typed since.
    tblJVDet.BeforeDelete = [this](store::DataSet& ds) {
        if (Posted()) RefusePosted();
        deletedAmount_ = ds.FieldByName("GLAmount").AsMoney();
    };
    tblJVDet.AfterDelete = [this](store::DataSet&) { LineDeleted(); };
    // The totals line follows each amount as its cell is written, before the line is saved.
    tblJVDet.FieldByName("GLAmount").OnChange = [this](store::Field&) { ShowTotals(); };
    tblJVDet.AfterCancel = [this](store::DataSet&) { ShowTotals(); };
}

std::string TfrmJV::DescriptionShown(const store::Field& field) {
    std::string shown = field.AsString();
    store::DataSet& ds = field.Owner();
    std::string source = ds.FieldByName("Source").AsString();
    auto suffix = [&](store::Table& table, const char* idName, const char* nameField,
                      const char* numberField) {
        const store::Value& id = ds.FieldByName(idName).AsValue();
        if (id.IsNull()) return;
        std::vector<store::Value> party =
            table.LookupValues(idName, {id}, std::string(nameField) + ";" + numberField);
        if (party.empty() || party[0].IsNull()) return;
        shown += " - " + party[0].Str() + " (" + party[1].Str() + ")";
    };
    if (source == "AP") suffix(tblVendor, "VendorID", "VendorName", "VendorNo");
    if (source == "AR") suffix(tblCustomer, "CustomerID", "CustomerName", "CustomerNo");
    return shown;
}

void TfrmJV::NewVoucher() {
    // A control table held elsewhere past every try: Cancel leaves no new voucher behind.
    VoucherKeysTaken taken =
        TakeVoucherKeys(EntryTable.OwnerDatabase(), [this](const std::string& message) {
            return App().MessageDlg(message, ui::MsgType::Error, {ui::mbRetry, ui::mbCancel}) ==
                   ui::mbRetry;
        });
    if (!taken) Abort();
    const VoucherKeys keys = *taken;
    Period period = DefaultPeriod(CompanyPeriods::Read(EntryTable.OwnerDatabase()), Date::Today());
    EntryTable.FieldByName("JVID").SetAsInteger(keys.JVID);
    EntryTable.FieldByName("JVNumber").SetAsInteger(keys.JVNumber);
    EntryTable.FieldByName("TransDate").SetAsDate(Date::Today());
    EntryTable.FieldByName("AutoReverse").SetAsBoolean(false);
    EntryTable.FieldByName("Posted").SetAsBoolean(false);
    EntryTable.FieldByName("Source").SetAsString("GL");
    EntryTable.FieldByName("TransType").SetAsString("JV");
    EntryTable.FieldByName("GLPeriod").SetAsInteger(period.Number);
    EntryTable.FieldByName("GLYear").SetAsInteger(period.Year);
    EntryTable.FieldByName("JVAmount").SetAsMoney(Money());
    totals_.Clear();
    ClearLines();
    ShowTotals();
}

void TfrmJV::StartFromSaved() {
    // Only a voucher at rest shows what is saved: one being typed keeps its own lines.
    if (closing_ || !EntryTable.Active() || EntryTable.State() != DataSetState::Browse) return;
    if (EntryTable.IsEmpty()) {
        totals_.Clear();
        ClearLines();
    } else {
        totals_.StartFrom(EntryTable.FieldByName("JVAmount").AsMoney());
        LoadSavedLines();
    }
    ShowTotals();
    ShowPostedState();
}

void TfrmJV::CreateLinesTable() {
    // Each open voucher form has its own scratch table: two of them never share lines.
    static int formsMade = 0;
    store::Database& db = EntryTable.OwnerDatabase();
    store::TableDef def = db.TableDefinition(store::Database::MainSchema, "JVDet");
    do
        linesTable_ = "JVLines" + std::to_string(++formsMade);
    while (db.TableExists(store::Database::MemorySchema, linesTable_));
    def.Name = linesTable_;
    db.CreateTable(def, store::Database::MemorySchema);
}

void TfrmJV::ClearLines() {
    nextSeq_ = 1;
    if (!tblJVDet.Active()) return;
    if (tblJVDet.Editing()) tblJVDet.Cancel();
    // The name is the form's own, never typed by anyone.
    store::Query clear(EntryTable.OwnerDatabase(), "DELETE FROM \"\\Memory\\" + linesTable_ + "\"");
    clear.ExecSQL();
    tblJVDet.Refresh();
}

void TfrmJV::LoadSavedLines() {
    ClearLines();
    store::Database& db = EntryTable.OwnerDatabase();
    store::Query saved(db, "SELECT * FROM JVDet WHERE JVID = :JVID ORDER BY Seq");
    saved.ParamByName("JVID").SetValue(EntryTable.FieldByName("JVID").AsValue());
    saved.Open();
    // A cursor of its own, so that loading is not taken for typing.
    store::Table lines(db, linesTable_);
    lines.SetDatabaseName(std::string(store::Database::MemorySchema));
    lines.Open();
    for (; !saved.Eof(); saved.Next()) {
        lines.Append();
        for (const store::FieldDef& field : lines.Definition().Fields)
            lines.FieldByName(field.Name).SetValue(saved.FieldByName(field.Name).AsValue());
        lines.Post();
        const store::Field& seq = saved.FieldByName("Seq");
        if (!seq.IsNull()) nextSeq_ = std::max(nextSeq_, static_cast<int>(seq.AsInteger()) + 1);
    }
    lines.Close();
    tblJVDet.Refresh();
    tblJVDet.First();
}

void TfrmJV::Focus(ui::Control& control) {
    if (Visible() && control.CanFocus()) control.SetFocus();
}

void TfrmJV::CheckBeforeSave() {
    const CompanyPeriods company = CompanyPeriods::Read(EntryTable.OwnerDatabase());
    VoucherFacts facts;
    facts.VoucherPeriod = {static_cast<int>(EntryTable.FieldByName("GLYear").AsInteger()),
                           static_cast<int>(EntryTable.FieldByName("GLPeriod").AsInteger())};
    facts.Description = EntryTable.FieldByName("TransDescription").AsString();
    facts.HasLines = !tblJVDet.IsEmpty();
    facts.Debits = totals_.Debits();
    facts.Credits = totals_.Credits();
    facts.Amount = EntryTable.FieldByName("JVAmount").AsMoney();
    VoucherVerdict verdict = ValidateVoucher(company, facts);
    if (verdict.Fault == VoucherFault::PeriodWarning) {
        if (!ConfirmPeriodWarning(App(), verdict.Message, &editPeriod)) Abort();
        verdict = ValidateVoucher(company, facts, true);
    }
    if (verdict.Ok()) return;
    if (verdict.Fault == VoucherFault::PeriodRefused) Focus(editPeriod);
    if (verdict.Fault == VoucherFault::NoDescription) Focus(editDescription);
    if (verdict.WantsNewLine()) tblJVDet.Append();
    if (verdict.InLines()) Focus(grdLines);
    throw Exception(verdict.Message);
}

void TfrmJV::CheckLine() {
    const store::Value& account = tblJVDet.FieldByName("GLAccountID").AsValue();
    if (account.IsNull()) throw Exception(text::LineNoAccount);
    if (tblGLAccnt.Lookup("GLAccountID", {account}, "GLAccountID").IsNull())
        throw Exception(text::LineUnknownAccount);
    store::Table* subTables[] = {&tblSub1, &tblSub2, &tblSub3};
    for (int level = 0; level < 3; ++level) {
        const store::Value& sub = tblJVDet.FieldByName(kSubFields[level]).AsValue();
        if (!sub.IsNull() &&
            subTables[level]->Lookup("SubAccountID", {sub}, "SubAccountID").IsNull())
            throw Exception(LineUnknownSubaccount(level + 1));
    }
    // The totals this line would make, before it is written: a sum past the largest amount
    // is refused here rather than after the line is in the table.
    VoucherTotals after = totals_;
    try {
        after.LineSaved(lineBefore_, tblJVDet.FieldByName("GLAmount").AsMoney());
    } catch (const MoneyOverflow&) {
        throw Exception(text::TotalTooLarge);
    }
    store::Field& seq = tblJVDet.FieldByName("Seq");
    if (seq.IsNull()) seq.SetAsInteger(nextSeq_++);
}

void TfrmJV::LineSaved() {
    Money amount = tblJVDet.FieldByName("GLAmount").AsMoney();
    totals_.LineSaved(lineBefore_, amount);
    lineBefore_ = amount;
    StoreAmount();
}

void TfrmJV::LineDeleted() {
    totals_.LineDeleted(deletedAmount_);
    if (tblJVDet.IsEmpty()) totals_.Clear();
    StoreAmount();
}

void TfrmJV::StoreAmount() {
    if (EntryTable.State() == DataSetState::Browse) EntryTable.Edit();
    EntryTable.FieldByName("JVAmount").SetAsMoney(totals_.Debits());
    ShowTotals();
}

void TfrmJV::ShowTotals() {
    VoucherTotals shown = totals_;
    const auto state = tblJVDet.Active() ? tblJVDet.State() : DataSetState::Browse;
    // A typed amount that would carry the totals past the largest amount leaves the line shown
    // without it; writing the line refuses it with the voucher's own message.
    if (state == DataSetState::Edit || state == DataSetState::Insert) {
        try {
            shown.LineSaved(lineBefore_, tblJVDet.FieldByName("GLAmount").AsMoney());
        } catch (const MoneyOverflow&) {
            shown = totals_;
        }
    }
    stbTotals.SimpleText = shown.StatusText();
}

void TfrmJV::ShowCaption() {
    if (copying_) {
        Caption = "New (copied) Journal Voucher";
        return;
    }
    if (!EntryTable.Active()) return;
    store::Field& number = EntryTable.FieldByName("JVNumber");
    // What is typed counts before it reaches the field.
    bool untitled = number.IsNull() || editDescription.Text().empty();
    if (EntryTable.State() == DataSetState::Insert && untitled)
        Caption = "New Journal Voucher";
    else
        Caption = "JV " + number.AsString();
}

void TfrmJV::ShowPostedState() {
    bool posted = Posted();
    lblPosted.Visible = posted;
    btnUnpost.Visible = posted;
    popNewLine.Enabled = popDeleteLine.Enabled = !posted;
    popImport.Visible = !posted;
    grdLines.Popup = posted ? nullptr : &popLines;
}

bool TfrmJV::Posted() {
    return EntryTable.Active() && !EntryTable.IsEmpty() &&
           EntryTable.FieldByName("Posted").AsBoolean();
}

void TfrmJV::RefusePosted() const {
    throw Exception(text::PostedCannotChange);
}

void TfrmJV::DropNewLines() {
    if (closing_) return;
    // The saved lines come back once the voucher is at rest again (after the cancel).
    if (tblJVDet.Editing()) tblJVDet.Cancel();
    if (EntryTable.State() != DataSetState::Insert) return;
    ClearLines();
    totals_.Clear();
    ShowTotals();
}

bool TfrmJV::HasUnsavedWork() {
    // A line still being typed counts as a change of the voucher.
    return EntryForm::HasUnsavedWork() || (tblJVDet.Editing() && tblJVDet.Modified());
}

void TfrmJV::DropUntouchedWork() {
    if (EntryTable.State() == DataSetState::Insert)
        EntryTable.Cancel();
    else if (tblJVDet.Editing())
        tblJVDet.Cancel();
}

void TfrmJV::DropWork() {
    if (EntryTable.Editing())
        EntryTable.Cancel();
    else if (tblJVDet.Editing())
        tblJVDet.Cancel();
}

void TfrmJV::Unpost() {
    if (!Posted()) return;
    store::Database& db = EntryTable.OwnerDatabase();
    if (!UnpostJV(App(), db, EntryTable.FieldByName("JVID").AsInteger(),
                  CompanyPeriods::Read(db).FiscalYear))
        return;
    // The run cleared the flag through a cursor of its own: read the row again.
    EntryTable.Refresh();
    StartFromSaved();
    ShowPostedState();
    if (AfterUnpost) AfterUnpost(*this);
}

void TfrmJV::NewLine() {
    if (Posted()) RefusePosted();
    tblJVDet.CheckBrowseMode();
    tblJVDet.Append();
    Focus(grdLines);
    grdLines.SelectColumn(0);
}

void TfrmJV::ImportJVData() {
    if (Posted()) RefusePosted();
    auto& dialog = App().SingleForm<TfrmImportJVData>();
    if (dialog.ShowModal() != ui::mrOK) return;
    ImportLines(dialog.FileName());
}

void TfrmJV::ImportLines(const std::string& fileName) {
    if (Posted()) RefusePosted();
    // The line being typed is kept first, whatever the file holds.
    tblJVDet.CheckBrowseMode();
    // The whole file is read and matched before the first line is added.
    std::vector<JVImportMatch> matches =
        MatchJVImport(EntryTable.OwnerDatabase(), ReadJVImportFile(fileName));
    auto goOn = [this](std::string_view kind, const std::string& number) {
        return App().MessageDlg(MissingNumberQuestion(kind, number), ui::MsgType::Confirmation,
                                {ui::mbYes, ui::mbNo}) == ui::mbYes;
    };
    // The first number that names nothing decides the row: skipped on Yes, the end on No.
    auto accepted = [&](const JVImportMatch& match, bool& stop) {
        if (match.GLAccountID.IsNull()) {
            stop = !goOn("Account", match.Row.Account);
            return false;
        }
        for (int level = 0; level < 3; ++level) {
            const std::string& number = match.Row.SubAccounts[level];
            if (number.empty() || !match.SubAccountIDs[level].IsNull()) continue;
            stop = !goOn("SubAccount" + std::to_string(level + 1), number);
            return false;
        }
        return true;
    };
    bool stop = false;
    for (const JVImportMatch& match : matches) {
        if (!accepted(match, stop)) {
            if (stop) break;
            continue;
        }
        tblJVDet.Append();
        try {
            tblJVDet.FieldByName("GLAccountID").SetValue(match.GLAccountID);
            tblJVDet.FieldByName("GLAmount").SetAsMoney(match.Row.Amount);
            for (int level = 0; level < 3; ++level)
                tblJVDet.FieldByName(kSubFields[level]).SetValue(match.SubAccountIDs[level]);
            tblJVDet.Post();
        } catch (...) {
            // A refused line is not left half made; the lines before it stay.
            if (tblJVDet.Editing()) tblJVDet.Cancel();
            ShowTotals();
            throw;
        }
    }
    ShowTotals();
}

void TfrmJV::ShowHelp() {
    // The program's help is the main form's: one place says what there is of it.
    if (App().OnHelp) App().OnHelp(*this);
}

void TfrmJV::DeleteLine() {
    if (tblJVDet.Editing() && tblJVDet.State() == DataSetState::Insert) {
        tblJVDet.Cancel();
        return;
    }
    if (tblJVDet.IsEmpty()) return;
    tblJVDet.Delete();
}

void TfrmJV::SaveVoucher() {
    CommitPendingEdit();
    if (tblJVDet.Editing()) tblJVDet.CheckBrowseMode();
    if (!EntryTable.Editing()) return;
    // The checks stop on what the user typed: they run before the write lock is taken.
    CheckBeforeSave();
    // The lines are read through a cursor of their own: the grid stays where the user left it.
    store::Table lines(EntryTable.OwnerDatabase(), linesTable_);
    lines.SetDatabaseName(std::string(store::Database::MemorySchema));
    lines.Open();
    try {
        ledger::SaveVoucher(EntryTable, lines);
    } catch (const store::EngineError& e) {
        if (e.ErrorCode() == store::errKeyViolation) throw Exception(KeyViolationMessage());
        throw;
    }
    EntryTable.FlushBuffers();
    if (AfterSave) AfterSave(*this);
}

void TfrmJV::CopyFrom(int sourceId) {
    store::Database& db = EntryTable.OwnerDatabase();
    store::Table source(db, "JV");
    source.Open();
    if (!source.Locate("JVID", {store::Value(sourceId)}))
        throw Exception("The record has been deleted by another user");
    store::Query lines(db, "SELECT JVDet.* FROM JVDet WHERE JVDet.JVID = :JVID ORDER BY "
                           "JVDet.Seq");
    lines.ParamByName("JVID").SetAsInteger(sourceId);
    lines.Open();

    try {
        EntryTable.Insert();
        copying_ = true;
        EntryTable.FieldByName("TransDescription")
            .SetAsString(source.FieldByName("TransDescription").AsString());
        EntryTable.FieldByName("JVAmount").SetValue(source.FieldByName("JVAmount").AsValue());
        EntryTable.FieldByName("AutoReverse")
            .SetAsBoolean(source.FieldByName("AutoReverse").AsBoolean());
        for (lines.First(); !lines.Eof(); lines.Next()) {
            tblJVDet.Append();
            for (const char* field :
                 {"GLAccountID", "SubAccount1ID", "SubAccount2ID", "SubAccount3ID", "GLAmount"})
                tblJVDet.FieldByName(field).SetValue(lines.FieldByName(field).AsValue());
            tblJVDet.Post();
        }
    } catch (...) {
        copying_ = false;
        if (tblJVDet.Editing()) tblJVDet.Cancel();
        if (EntryTable.Editing()) EntryTable.Cancel();
        throw;
    }
    ShowCaption();
}

std::string TfrmJV::KeyViolationMessage() const {
    // The number is what clashes within the period: the user corrects it there.
    if (Visible() && numberEdit_->CanFocus()) numberEdit_->SetFocus();
    return text::DuplicateNumber;
}

} // namespace corvane::ledger
