#include "ledger/inquiry/TfrmGLHistory.h"

#include "core/Exception.h"
#include "ledger/domain/VoucherTexts.h"
#include "ledger/inquiry/AccountFind.h"
#include "ledger/inquiry/HistoryLineFields.h"
#include "ledger/inquiry/InquiryList.h"
#include "ledger/inquiry/TfrmGLHistoryFilter.h"
#include "ledger/reports/ListView.h"
#include "ledger/reports/TrptGLHistory.h"
#include "ledger/vouchers/TfrmJV.h"
#include "reports/export/ListExport.h"
#include "reports/run/PreviewReport.h"
#include "ui/Application.h"

namespace corvane::ledger {

namespace {

// The kinds of document a line may come from, as the user knows them.
std::string DocumentName(std::string_view source, std::string_view transType) {
    if (source == "AP") return transType == "Chq" ? "AP Payments" : "AP Invoices";
    if (source == "AR") return transType == "Pmt" ? "AR Payments" : "AR Invoices";
    if (source == "IN") return "Inv Adjustments";
    return std::string(source) + " " + std::string(transType);
}

} // namespace

TfrmGLHistory::TfrmGLHistory(ui::Application& app, store::Database& db)
    : ListForm(app, "frmGLHistory", "GL History", db, "GLHist", "tblGLHist", "GLHistID"),
      tblGLAccnt(db, "GLAccnt"), tblGLAcSub1(db, "GLAcSub1"), tblGLAcSub2(db, "GLAcSub2"),
      tblGLAcSub3(db, "GLAcSub3") {
    int level = 0;
    for (store::Table* table : {&tblGLAccnt, &tblGLAcSub1, &tblGLAcSub2, &tblGLAcSub3}) {
        table->Name = level == 0 ? "tblGLAccnt" : "tblGLAcSub" + std::to_string(level);
        table->Open();
        ++level;
    }
    AddCalculatedFields();
    tblGLHist.SetIndexName(kAllIndex);
    tblGLHist.OnFilterRecord = [this](store::DataSet& ds) { return TypeMatches(ds); };
    grdList.AddColumn("Periodppyyyy", "Period", 64);
    grdList.AddColumn("TransDate", "Date", 84);
    grdList.AddColumn("JVNumber", "JV no.", 56);
    grdList.AddColumn("SourceType", "Source", 64);
    grdList.AddColumn("TransDescription", "Description", 220);
    grdList.AddColumn("AccountNo", "Account no.", 90);
    grdList.AddColumn("AccountNameLabel", "Name", 180);
    // The line's amount: what a person reading the history looks for first.
    grdList.AddColumn("Amount", "Amount", 105);

    // History is written by posting only: nothing is made, changed or removed here.
    HideRowEditing(*this);
    mnuFind.Visible = true;
    mnuExport.Visible = true;
    mnuFind.OnClick = [this] { FindAccountInList(*this, 0); };
    mnuJV.OnClick = [this] { OpenVoucher(); };
    mnuSource.OnClick = [this] { OpenSource(); };
    mnuCopyJV.OnClick = [this] { CopyVoucher(); };
    grdList.OnDblClick = [this] { OpenVoucher(); };
    grdList.OnKeyPress = [this](char& ch) {
        OpenOrFindAccount(*this, ch, [this] { OpenVoucher(); });
    };
    // A list the main menu opened afresh has its filter off: the dialog follows it.
    auto showList = OnShow;
    OnShow = [this, showList] {
        if (!mnuFilter.Checked()) {
            if (filter_) filter_->Clear();
            accountType_ = 0;
            // Without a filter every line shows, newest first; a range another list set on an
            // account stands on that account's order and stays.
            if (!tblGLHist.HasRange()) tblGLHist.SetIndexName(kAllIndex);
        }
        if (showList) showList();
    };
}

TfrmGLHistory::~TfrmGLHistory() = default;

void TfrmGLHistory::AddCalculatedFields() {
    // Calculated fields exist only in a cursor that adds them before it opens.
    tblGLHist.Close();
    tblGLHist.AddCalculatedField("Periodppyyyy", store::FieldType::String, 7);
    tblGLHist.AddCalculatedField("SourceType", store::FieldType::String, 6);
    tblGLHist.AddCalculatedField("AccountNo", store::FieldType::String, 30);
    tblGLHist.AddCalculatedField("AccountNameLabel", store::FieldType::String, 80);
    tblGLHist.OnCalcFields = [this](store::DataSet& ds) { CalculateRow(ds); };
    tblGLHist.Open();
    // Debits plain, credits marked, as on the totals.
    tblGLHist.FieldByName("Amount").DisplayFormat = "#,###,##0.00#;#,###,##0.00#CR";
}

void TfrmGLHistory::CalculateRow(store::DataSet& ds) {
    CalculateHistoryLine(ds, {tblGLAccnt, tblGLAcSub1, tblGLAcSub2, tblGLAcSub3});
}

bool TfrmGLHistory::TypeMatches(store::DataSet& ds) {
    return HistoryLineHasType(ds, tblGLAccnt, accountType_);
}

void TfrmGLHistory::ApplyFilter(const std::string& expression, bool byAccount, int accountType) {
    // A range set by the accounts list gives way to the filter's own account.
    tblGLHist.CancelRange();
    tblGLHist.SetIndexName(byAccount ? kAccountIndex : kAllIndex);
    accountType_ = accountType;
    if (expression.empty() && accountType == 0) {
        mnuFilter.SetChecked(false);
        tblGLHist.SetFiltered(false);
    } else {
        // The table checks the expression first: a bad one raises and nothing changes.
        tblGLHist.SetFilter(expression);
        tblGLHist.SetFiltered(true);
        mnuFilter.SetChecked(true);
    }
    ShowList();
}

void TfrmGLHistory::ShowAccount(std::int64_t accountId, std::optional<int> year) {
    FilterDialog().ApplyAccountYear(accountId, year);
    if (State == ui::WindowState::Minimized) State = ui::WindowState::Normal;
    Show();
}

TfrmGLHistoryFilter& TfrmGLHistory::FilterDialog() {
    if (!filter_) filter_ = &App().CreateForm<TfrmGLHistoryFilter>(*this);
    return *filter_;
}

void TfrmGLHistory::Export() {
    reports::ExportList(*this, {"GLHistory", reports::GridColumns(grdList)});
}

void TfrmGLHistory::Print() {
    auto report = std::make_unique<TrptGLHistory>(Db());
    FollowList(tblGLHist, report->tblGLHist);
    report->AccountType = accountType_;
    // A range another list set stands on one account: the line in front names it.
    if (tblGLHist.HasRange() && !tblGLHist.IsEmpty())
        report->Account = tblGLHist.FieldByName("GLAccountID").AsInteger();
    reports::PreviewReport(App(), std::move(report));
}

shell::FilterForm* TfrmGLHistory::Filter() {
    return &FilterDialog();
}

TfrmJV& TfrmGLHistory::VoucherForm() {
    return App().SingleForm<TfrmJV>(Db());
}

shell::EntryForm& TfrmGLHistory::Entry() {
    return VoucherForm();
}

std::int64_t TfrmGLHistory::CurrentVoucherId() {
    store::Value id = tblGLHist.FieldByName("JVID").AsValue();
    store::Table vouchers(Db(), "JV");
    vouchers.Open();
    if (id.IsNull() || !vouchers.Locate("JVID", {id}))
        throw Exception("JV '" + tblGLHist.FieldByName("JVNumber").AsString() +
                        "' ...\nIt may have been unposted and deleted");
    return id.Int();
}

void TfrmGLHistory::OpenVoucher() {
    if (tblGLHist.IsEmpty()) return;
    std::int64_t id = CurrentVoucherId();
    TfrmJV& form = VoucherForm();
    // The voucher opens to be looked at: a posted one refuses every change.
    if (!form.EntryTable.Locate("JVID", {store::Value(id)}))
        throw Exception("The record has been deleted by another user");
    form.Show();
}

void TfrmGLHistory::OpenSource() {
    if (tblGLHist.IsEmpty()) return;
    std::string source = tblGLHist.FieldByName("Source").AsString();
    if (source == "GL") return OpenVoucher();
    // The documents of the subledgers have no forms yet.
    App().ShowMessage(DocumentName(source, tblGLHist.FieldByName("TransType").AsString()) +
                      " is not available in this version of Corvane yet.");
}

void TfrmGLHistory::CopyVoucher() {
    if (tblGLHist.IsEmpty()) return;
    if (tblGLHist.FieldByName("Source").AsString() != "GL")
        throw Exception("Unable to copy JV '" + tblGLHist.FieldByName("JVNumber").AsString() +
                        "'...\n" + voucher_text::NotGLSource);
    std::int64_t id = CurrentVoucherId();
    TfrmJV& form = VoucherForm();
    form.CopyFrom(static_cast<int>(id));
    form.Show();
}

} // namespace corvane::ledger
