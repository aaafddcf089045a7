#include "ledger/reports/TrptGLHistory.h"

#include "ledger/inquiry/AccountLabel.h"
#include "ledger/reports/ReportColumns.h"
#include "ledger/vouchers/VoucherTexts.h"
#include "reports/engine/TQRDBText.h"
#include "reports/engine/TQRExpr.h"
#include "reports/engine/TQRShape.h"
#include "reports/system/StandardBands.h"

namespace corvane::ledger {

using namespace reports;

namespace {

constexpr double DateLeft = 0, DateWidth = 52;
constexpr double NumberLeft = 54, NumberWidth = 40;
constexpr double SourceLeft = 100, SourceWidth = 40;
constexpr double DescriptionLeft = 144, DescriptionWidth = 196;
constexpr double AccountLeft = 344, AccountWidth = 110;
constexpr double AmountLeft = 458, AmountWidth = 82;

TQRExpr& AmountTotal(TQRBand& band, double top, bool reset) {
    auto& total = band.Add<TQRExpr>("SUM(Amount)");
    total.SetBounds(AmountLeft, top, AmountWidth, 12);
    total.Alignment = Align::Right;
    total.Mask = kSignedAmountMask;
    total.Font.bold = true;
    total.ResetAfterPrint = reset;
    return total;
}

} // namespace

TrptGLHistory::TrptGLHistory(store::Database& db)
    : tblGLHist(db, "GLHist"), tblGLAccnt(db, "GLAccnt"), tblGLAcSub1(db, "GLAcSub1"),
      tblGLAcSub2(db, "GLAcSub2"), tblGLAcSub3(db, "GLAcSub3") {
    tblGLHist.Name = "tblGLHist";
    tblGLHist.SetIndexName(kAllIndex);
    tblGLHist.AddCalculatedField("Periodppyyyy", store::FieldType::String, 7);
    tblGLHist.AddCalculatedField("SourceType", store::FieldType::String, 6);
    tblGLHist.AddCalculatedField("AccountNo", store::FieldType::String, 30);
    tblGLHist.AddCalculatedField("AccountNameLabel", store::FieldType::String, 80);
    tblGLHist.OnCalcFields = [this](store::DataSet& ds) { CalculateRow(ds); };
    tblGLHist.OnFilterRecord = [this](store::DataSet& ds) { return TypeMatches(ds); };
    QuickReport.ReportTitle = "GL History";
    QuickReport.DataSet = &tblGLHist;
    AddStandardTitle(QuickReport, CompanyNameOf(db));

    TQRBand& columns = QuickReport.Band(BandKind::ColumnHeader, 24);
    AddHeading(columns, "Date", DateLeft, DateWidth);
    AddHeading(columns, "JV no.", NumberLeft, NumberWidth, true);
    AddHeading(columns, "Source", SourceLeft, SourceWidth);
    AddHeading(columns, "Description", DescriptionLeft, DescriptionWidth);
    AddHeading(columns, "Account no.", AccountLeft, AccountWidth);
    AddHeading(columns, "Amount", AmountLeft, AmountWidth, true);
    columns.Add<TQRShape>(ShapeKind::HorLine).SetBounds(0, 12, kPortraitWidth, 12);

    TQRGroup& period = QuickReport.AddGroup("GLYear * 100 + GLPeriod", 24);
    auto& periodCaption = period.Add<TQRLabel>("Period");
    periodCaption.SetBounds(DateLeft, 12, DateWidth, 12);
    periodCaption.Font.bold = true;
    auto& periodText = period.Add<TQRDBText>(nullptr, "Periodppyyyy");
    periodText.SetBounds(NumberLeft, 12, 80, 12);
    periodText.Font.bold = true;

    TQRBand& detail = QuickReport.Band(BandKind::Detail, 12);
    detail.Add<TQRDBText>(nullptr, "TransDate").SetBounds(DateLeft, 0, DateWidth, 12);
    auto& number = detail.Add<TQRDBText>(nullptr, "JVNumber");
    number.SetBounds(NumberLeft, 0, NumberWidth, 12);
    number.Alignment = Align::Right;
    detail.Add<TQRDBText>(nullptr, "SourceType").SetBounds(SourceLeft, 0, SourceWidth, 12);
    detail.Add<TQRDBText>(nullptr, "TransDescription")
        .SetBounds(DescriptionLeft, 0, DescriptionWidth, 12);
    detail.Add<TQRDBText>(nullptr, "AccountNo").SetBounds(AccountLeft, 0, AccountWidth, 12);
    auto& amount = detail.Add<TQRDBText>(nullptr, "Amount");
    amount.SetBounds(AmountLeft, 0, AmountWidth, 12);
    amount.Alignment = Align::Right;
    amount.Mask = kSignedAmountMask;

    TQRBand& periodFooter = period.FooterBand(24);
    periodFooter.Add<TQRShape>(ShapeKind::HorLine).SetBounds(AmountLeft, 0, AmountWidth, 12);
    auto& periodLabel = periodFooter.Add<TQRExpr>("'Total of period ' + Periodppyyyy");
    periodLabel.SetBounds(DescriptionLeft, 12, DescriptionWidth, 12);
    periodLabel.Font.bold = true;
    AmountTotal(periodFooter, 12, true);

    TQRBand& summary = QuickReport.Band(BandKind::Summary, 24);
    summary.Add<TQRShape>(ShapeKind::HorLine).SetBounds(0, 0, kPortraitWidth, 12);
    auto& label = summary.Add<TQRLabel>("Total");
    label.SetBounds(DescriptionLeft, 12, DescriptionWidth, 12);
    label.Font.bold = true;
    AmountTotal(summary, 12, false);

    AddStandardPageFooter(QuickReport);
}

void TrptGLHistory::Open() {
    int level = 0;
    for (store::Table* table : {&tblGLAccnt, &tblGLAcSub1, &tblGLAcSub2, &tblGLAcSub3}) {
        table->Name = level == 0 ? "tblGLAccnt" : "tblGLAcSub" + std::to_string(level);
        table->Open();
        ++level;
    }
    // The type test runs only under a filter; a type alone needs the filter switched on.
    if (AccountType != 0) tblGLHist.SetFiltered(true);
    tblGLHist.Open();
    if (Account) {
        tblGLHist.SetIndexName(kAccountIndex);
        std::vector<store::Value> key{*Account};
        if (Year) key.push_back(*Year);
        if (Year && Period) key.push_back(*Period);
        tblGLHist.SetRange(key, key);
    } else if (Year) {
        tblGLHist.SetIndexName(kAllIndex);
        std::vector<store::Value> key{*Year};
        if (Period) key.push_back(*Period);
        tblGLHist.SetRange(key, key);
    }
    tblGLHist.First();
}

void TrptGLHistory::CalculateRow(store::DataSet& ds) {
    ds.FieldByName("Periodppyyyy")
        .SetAsString(PeriodText(static_cast<int>(ds.FieldByName("GLPeriod").AsInteger()),
                                static_cast<int>(ds.FieldByName("GLYear").AsInteger())));
    ds.FieldByName("SourceType")
        .SetAsString(VoucherSourceLabel(ds.FieldByName("Source").AsString(),
                                        ds.FieldByName("TransType").AsString()));
    AccountLabelParts parts;
    std::vector<store::Value> account = tblGLAccnt.LookupValues(
        "GLAccountID", {ds.FieldByName("GLAccountID").AsValue()}, "GLAccount;AccountName");
    if (account.size() == 2) {
        parts.Number = account[0].IsNull() ? std::string() : account[0].Str();
        parts.Name = account[1].IsNull() ? std::string() : account[1].Str();
    }
    store::Table* subs[] = {&tblGLAcSub1, &tblGLAcSub2, &tblGLAcSub3};
    for (int level = 0; level < 3; ++level) {
        store::Value id = ds.FieldByName("SubAccount" + std::to_string(level + 1) + "ID").AsValue();
        if (id.IsNull()) continue;
        std::vector<store::Value> sub =
            subs[level]->LookupValues("SubAccountID", {id}, "SubAccount;SubAccountName");
        if (sub.size() != 2 || sub[0].IsNull()) continue;
        parts.SubNumbers[level] = sub[0].Str();
        parts.SubNames[level] = sub[1].IsNull() ? std::string() : sub[1].Str();
    }
    ds.FieldByName("AccountNo").SetAsString(AccountNumberLabel(parts));
    ds.FieldByName("AccountNameLabel").SetAsString(AccountNameLabel(parts));
}

bool TrptGLHistory::TypeMatches(store::DataSet& ds) {
    if (AccountType == 0) return true;
    store::Value type =
        tblGLAccnt.Lookup("GLAccountID", {ds.FieldByName("GLAccountID").AsValue()}, "AccountType");
    return !type.IsNull() && type.Int() == AccountType;
}

} // namespace corvane::ledger
