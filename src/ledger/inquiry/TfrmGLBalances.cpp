#include "ledger/inquiry/TfrmGLBalances.h"

#include "core/Exception.h"
#include "ledger/inquiry/AccountFind.h"
#include "ledger/inquiry/AccountLabel.h"
#include "ledger/inquiry/InquiryList.h"
#include "ledger/inquiry/TfrmGLBalancesFilter.h"
#include "ledger/inquiry/TfrmGLHistory.h"
#include "ledger/reports/ListView.h"
#include "ledger/reports/TrptGLBalances.h"
#include "reports/export/ListExport.h"
#include "reports/run/PreviewReport.h"
#include "shell/main/MainMenuEntries.h"
#include "shell/patterns/FilterTerms.h"
#include "ui/Application.h"
#include "ui/Caption.h"

namespace corvane::ledger {

namespace {

// The query up to its WHERE line, which the filter replaces, and its first order.
constexpr const char* kSelect =
    "SELECT g.GLAccountID, g.GLAccount, g.AccountName, g.AccountType, a.*, s1.SubAccount as "
    "SubAccount1, s1.SubAccountName as SubAccount1Name, s2.SubAccount as SubAccount2, "
    "s2.SubAccountName as SubAccount2Name, s3.SubAccount as SubAccount3, s3.SubAccountName as "
    "SubAccount3Name FROM GLAccnt g LEFT OUTER JOIN GLActual a on g.GLAccountID = a.GLAccountID "
    "LEFT OUTER JOIN GLAcSub1 s1 on a.SubAccount1ID = s1.SubAccountID LEFT OUTER JOIN GLAcSub2 s2 "
    "on a.SubAccount2ID = s2.SubAccountID LEFT OUTER JOIN GLAcSub3 s3 on a.SubAccount3ID = "
    "s3.SubAccountID";
constexpr const char* kNoConditions = "WHERE 1=1";
constexpr const char* kByNumber = "g.GLAccount, s1.SubAccount, s2.SubAccount, s3.SubAccount, "
                                  "a.GLYear";
constexpr const char* kByName = "g.AccountName, s1.SubAccount, s2.SubAccount, s3.SubAccount, "
                                "a.GLYear";
constexpr const char* kAmountFormat = "#,###,##0.00#;#,###,##0.00#CR";

} // namespace

TfrmGLBalances::TfrmGLBalances(ui::Application& app, store::Database& db)
    : ListForm(app, "frmGLBalances", "GL Totals", db,
               QuerySource{std::string(kSelect) + " " + kNoConditions + " ORDER BY " + kByNumber,
                           "qryGLAccnt"},
               "GLAccountID;SubAccount1ID;SubAccount2ID;SubAccount3ID;GLYear"),
      where_(kNoConditions), orderBy_(kByNumber) {
    AddCalculatedFields();
    grdList.AddColumn("AccountNo", "Account no.", 90);
    grdList.AddColumn("AccountNameLabel", "Name", 200);
    grdList.AddColumn("GLYear", "Year", 50);
    grdList.AddColumn("OpeningBal", "Opening Balance", 110);
    for (int n = 1; n <= 12; ++n)
        grdList.AddColumn(PeriodField(n), PeriodField(n), 105);
    grdList.AddColumn("AmountTot", "Total Change", 110);

    // Totals are what posting left behind: no row is made, changed or removed here.
    HideRowEditing(*this);
    mnuFind.Visible = true;
    mnuExport.Visible = true;
    mnuFind.OnClick = [this] { FindAccountInList(*this, 0); };
    mnuHistory.OnClick = [this] { ShowHistory(); };
    mnuBudget.OnClick = [this] { ShowBudget(); };
    grdList.OnDblClick = [this] { ShowHistory(); };
    grdList.OnKeyPress = [this](char& ch) {
        OpenOrFindAccount(*this, ch, [this] { ShowHistory(); });
    };

    for (ui::MenuItem* item : {&mnuSortGLAccount, &mnuSortAccountName})
        item->RadioItem = true;
    mnuSortGLAccount.OnClick = [this] { SortBy(mnuSortGLAccount, kByNumber, "AccountNo"); };
    mnuSortAccountName.OnClick = [this] {
        SortBy(mnuSortAccountName, kByName, "AccountNameLabel");
    };
    grdList.OnTitleClick = [this](ui::GridColumn& column) {
        if (column.FieldName == "AccountNo") return mnuSortGLAccount.Click();
        if (column.FieldName == "AccountNameLabel") return mnuSortAccountName.Click();
        PressKey(ui::KeyStroke(ui::Key::Alt));
    };

    for (ui::MenuItem* item : {&mnuDataAuto, &mnuDataBalance, &mnuDataNetChange}) {
        item->RadioItem = true;
        item->GroupIndex = 1;
    }
    mnuDataAuto.OnClick = [this] { SetData(TotalsData::Auto); };
    mnuDataBalance.OnClick = [this] { SetData(TotalsData::Balance); };
    mnuDataNetChange.OnClick = [this] { SetData(TotalsData::NetChange); };
    mnuDataAuto.SetChecked(true);

    // Each showing reads the totals afresh: a posting since the last one shows. A list the main
    // menu opened afresh has its filter off; the dialog and the WHERE line follow it.
    auto showList = OnShow;
    OnShow = [this, showList] {
        if (!mnuFilter.Checked()) {
            if (filter_) filter_->Clear();
            where_ = kNoConditions;
        }
        Requery();
        if (showList) showList();
    };
    mnuSortGLAccount.Click();
}

TfrmGLBalances::~TfrmGLBalances() = default;

std::string TfrmGLBalances::Statement(const std::string& whereLine) {
    return std::string(kSelect) + " " + whereLine + " ORDER BY " + kByNumber;
}

void TfrmGLBalances::AddCalculatedFields() {
    // Calculated fields exist only in a cursor that adds them before it opens.
    qryGLAccnt.Close();
    qryGLAccnt.AddCalculatedField("AccountNo", store::FieldType::String, 30);
    qryGLAccnt.AddCalculatedField("AccountNameLabel", store::FieldType::String, 80);
    for (int n = 1; n <= 12; ++n)
        qryGLAccnt.AddCalculatedField(PeriodField(n), store::FieldType::Currency).DisplayFormat =
            kAmountFormat;
    qryGLAccnt.AddCalculatedField("AmountTot", store::FieldType::Currency).DisplayFormat =
        kAmountFormat;
    qryGLAccnt.OnCalcFields = [this](store::DataSet& ds) { CalculateRow(ds); };
    Requery();
}

void TfrmGLBalances::CalculateRow(store::DataSet& ds) {
    CalculateTotalsRow(ds, data_);
}

void TfrmGLBalances::Export() {
    reports::ExportList(*this, {"GLBalances", reports::GridColumns(grdList)});
}

void TfrmGLBalances::Print() {
    // The report reads the list's own statement: its conditions, its order.
    auto report = std::make_unique<TrptGLBalances>(Db(), qryGLAccnt.SQL(), data_);
    FollowFilter(qryGLAccnt, report->qryGLAccnt);
    reports::PreviewReport(App(), std::move(report));
}

void TfrmGLBalances::Requery() {
    // The statement is the program's own text; the conditions hold only numbers it produced.
    qryGLAccnt.Close();
    qryGLAccnt.SetSQL(std::string(kSelect) + " " + where_ + " ORDER BY " + orderBy_);
    qryGLAccnt.Open();
    qryGLAccnt.FieldByName("OpeningBal").DisplayFormat = kAmountFormat;
    for (int n = 1; n <= 12; ++n)
        qryGLAccnt.FieldByName("Amount" + std::to_string(n)).DisplayFormat = kAmountFormat;
}

void TfrmGLBalances::SortBy(ui::MenuItem& item, std::string orderBy, const char* fieldName) {
    orderBy_ = std::move(orderBy);
    Requery();
    qryGLAccnt.First();
    item.SetChecked(true);
    for (ui::GridColumn& column : grdList.Columns)
        column.TitleBold = column.FieldName == fieldName;
}

void TfrmGLBalances::SetConditions(const std::vector<std::string>& conditions) {
    where_ =
        conditions.empty() ? std::string(kNoConditions) : "WHERE " + shell::JoinTerms(conditions);
    Requery();
}

void TfrmGLBalances::SetData(TotalsData data) {
    data_ = data;
    switch (data) {
    case TotalsData::Auto:
        mnuDataAuto.SetChecked(true);
        break;
    case TotalsData::Balance:
        mnuDataBalance.SetChecked(true);
        break;
    case TotalsData::NetChange:
        mnuDataNetChange.SetChecked(true);
        break;
    }
    // The period columns are worked out as rows are read: reading again shows the new data.
    RefreshList();
}

shell::EntryForm& TfrmGLBalances::Entry() {
    // The record commands are hidden and disabled, and the grid's Enter opens the history; a
    // call that still arrives here is the program's error, not the user's.
    throw Exception("GL Totals are not edited");
}

shell::FilterForm* TfrmGLBalances::Filter() {
    if (!filter_) filter_ = &App().CreateForm<TfrmGLBalancesFilter>(*this);
    return filter_;
}

void TfrmGLBalances::ShowHistory() {
    if (qryGLAccnt.IsEmpty()) return;
    if (!App().CheckAccess("GLHistory", "GL History")) return;
    std::int64_t account = qryGLAccnt.FieldByName("GLAccountID").AsInteger();
    std::optional<int> year;
    if (!qryGLAccnt.FieldByName("GLYear").IsNull())
        year = static_cast<int>(qryGLAccnt.FieldByName("GLYear").AsInteger());
    App().SingleForm<TfrmGLHistory>(Db()).ShowAccount(account, year);
}

void TfrmGLBalances::ShowBudget() {
    if (!App().CheckAccess("GLBudget", "GL Budget")) return;
    if (ui::Form* budget = App().OpenForm("frmGLBudget")) {
        budget->Show();
        return;
    }
    // The same words as the main menu's entry for a form the program does not have yet.
    for (const shell::MainMenuEntry& entry : shell::MainMenuEntries())
        if (entry.Form == "frmGLBudget")
            App().ShowMessage(ui::PlainCaption(std::string(entry.Path)) +
                              " is not available in this version of Corvane yet.");
}

} // namespace corvane::ledger
