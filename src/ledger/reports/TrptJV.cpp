#include "ledger/reports/TrptJV.h"

#include "ledger/inquiry/AccountLabel.h"
#include "ledger/inquiry/VoucherLabels.h"
#include "ledger/reports/ReportColumns.h"
#include "reports/engine/TQRDBText.h"
#include "reports/engine/TQRExpr.h"
#include "reports/engine/TQRShape.h"
#include "reports/system/StandardBands.h"

namespace corvane::ledger {

using namespace reports;

namespace {

// The lines with the numbers and names of their account and subaccounts; a line whose account or
// subaccount is gone still prints, with the name empty.
constexpr const char* kLines =
    "SELECT d.Seq, d.GLAmount, g.GLAccount, g.AccountName, s1.SubAccount AS SubAccount1, "
    "s1.SubAccountName AS SubAccount1Name, s2.SubAccount AS SubAccount2, s2.SubAccountName AS "
    "SubAccount2Name, s3.SubAccount AS SubAccount3, s3.SubAccountName AS SubAccount3Name FROM "
    "JVDet d LEFT OUTER JOIN GLAccnt g ON d.GLAccountID = g.GLAccountID LEFT OUTER JOIN GLAcSub1 "
    "s1 ON d.SubAccount1ID = s1.SubAccountID LEFT OUTER JOIN GLAcSub2 s2 ON d.SubAccount2ID = "
    "s2.SubAccountID LEFT OUTER JOIN GLAcSub3 s3 ON d.SubAccount3ID = s3.SubAccountID WHERE "
    "d.JVID = :JVID ORDER BY d.Seq";

constexpr double AccountLeft = 0, AccountWidth = 110;
constexpr double NameLeft = 116, NameWidth = 240;
constexpr double DebitLeft = 364, DebitWidth = 84;
constexpr double CreditLeft = 456, CreditWidth = 84;

void CalculateLine(store::DataSet& ds) {
    SetJoinedAccountLabels(ds);
    // Credits are held negative; each side prints in its own column as a positive amount.
    Money amount = ds.FieldByName("GLAmount").AsMoney();
    if (amount > Money())
        ds.FieldByName("Debit").SetAsMoney(amount);
    else if (amount < Money())
        ds.FieldByName("Credit").SetAsMoney(Money() - amount);
}

void Caption(TQRBand& band, std::string caption, double left, double top, double width) {
    auto& label = band.Add<TQRLabel>(std::move(caption));
    label.SetBounds(left, top, width, 12);
    label.Font.bold = true;
}

TQRDBText& DataText(TQRBand& band, store::DataSet* dataSet, std::string field, double left,
                    double top, double width) {
    auto& text = band.Add<TQRDBText>(dataSet, std::move(field));
    text.SetBounds(left, top, width, 12);
    return text;
}

TQRExpr& Total(TQRBand& band, TQRBand& lines, std::string expression, double left, double width) {
    auto& total = band.Add<TQRExpr>(std::move(expression));
    total.SetBounds(left, 12, width, 12);
    total.Alignment = Align::Right;
    total.Mask = kPlainAmountMask;
    total.Font.bold = true;
    total.Master = &lines;
    return total;
}

} // namespace

TrptJV::TrptJV(store::Database& db, std::int64_t jvid)
    : tblJV(db, "JV"), qryJVDet(db, kLines), jvid_(jvid) {
    tblJV.Name = "tblJV";
    AddVoucherLabelFields(tblJV);
    qryJVDet.Name = "qryJVDet";
    qryJVDet.AddCalculatedField("AccountNo", store::FieldType::String, 30);
    qryJVDet.AddCalculatedField("AccountNameLabel", store::FieldType::String, 80);
    qryJVDet.AddCalculatedField("Debit", store::FieldType::Currency);
    qryJVDet.AddCalculatedField("Credit", store::FieldType::Currency);
    qryJVDet.OnCalcFields = CalculateLine;
    QuickReport.ReportTitle = "JV";
    QuickReport.DataSet = &tblJV;
    AddStandardTitle(QuickReport, CompanyNameOf(db));

    // The voucher itself, then the headings of its lines.
    TQRBand& voucher = QuickReport.Band(BandKind::Detail, 84);
    Caption(voucher, "JV no.:", 0, 0, 70);
    DataText(voucher, nullptr, "JVNumber", 76, 0, 100);
    Caption(voucher, "Period:", 0, 12, 70);
    DataText(voucher, nullptr, "Periodppyyyy", 76, 12, 100);
    Caption(voucher, "Date:", 0, 24, 70);
    DataText(voucher, nullptr, "TransDate", 76, 24, 100);
    Caption(voucher, "Source:", 270, 0, 70);
    DataText(voucher, nullptr, "SourceType", 346, 0, 100);
    Caption(voucher, "Description:", 0, 36, 70);
    DataText(voucher, nullptr, "TransDescription", 76, 36, kPortraitWidth - 76);
    Caption(voucher, "Account no.", AccountLeft, 60, AccountWidth);
    Caption(voucher, "Name", NameLeft, 60, NameWidth);
    auto& debitHeading = voucher.Add<TQRLabel>("Debit");
    debitHeading.SetBounds(DebitLeft, 60, DebitWidth, 12);
    debitHeading.Alignment = Align::Right;
    debitHeading.Font.bold = true;
    auto& creditHeading = voucher.Add<TQRLabel>("Credit");
    creditHeading.SetBounds(CreditLeft, 60, CreditWidth, 12);
    creditHeading.Alignment = Align::Right;
    creditHeading.Font.bold = true;
    voucher.Add<TQRShape>(ShapeKind::HorLine).SetBounds(0, 72, kPortraitWidth, 12);

    TQRSubDetail& lines = QuickReport.AddSubDetail(qryJVDet, 12);
    DataText(lines, &qryJVDet, "AccountNo", AccountLeft, 0, AccountWidth);
    DataText(lines, &qryJVDet, "AccountNameLabel", NameLeft, 0, NameWidth);
    auto& debit = DataText(lines, &qryJVDet, "Debit", DebitLeft, 0, DebitWidth);
    debit.Alignment = Align::Right;
    debit.Mask = kPlainAmountMask;
    auto& credit = DataText(lines, &qryJVDet, "Credit", CreditLeft, 0, CreditWidth);
    credit.Alignment = Align::Right;
    credit.Mask = kPlainAmountMask;

    TQRBand& summary = QuickReport.Band(BandKind::Summary, 24);
    summary.Add<TQRShape>(ShapeKind::HorLine)
        .SetBounds(DebitLeft, 0, kPortraitWidth - DebitLeft, 12);
    Caption(summary, "Totals", NameLeft, 12, NameWidth);
    Total(summary, lines, "SUM(qryJVDet.Debit)", DebitLeft, DebitWidth);
    Total(summary, lines, "SUM(qryJVDet.Credit)", CreditLeft, CreditWidth);

    AddStandardPageFooter(QuickReport);
}

void TrptJV::Open() {
    tblJV.Open();
    tblJV.SetRange({jvid_}, {jvid_});
    tblJV.First();
    if (!tblJV.IsEmpty())
        QuickReport.ReportTitle = "JV:  " + tblJV.FieldByName("JVNumber").AsString();
    qryJVDet.Close();
    qryJVDet.ParamByName("JVID").SetAsInteger(jvid_);
    qryJVDet.Open();
    qryJVDet.First();
}

std::optional<std::int64_t> TrptJV::FindVoucher(store::Database& db, int year, int period,
                                                int number) {
    store::Query find(db, "SELECT JVID FROM JV WHERE GLYear = :GLYear AND GLPeriod = :GLPeriod "
                          "AND JVNumber = :JVNumber");
    find.ParamByName("GLYear").SetAsInteger(year);
    find.ParamByName("GLPeriod").SetAsInteger(period);
    find.ParamByName("JVNumber").SetAsInteger(number);
    find.Open();
    if (find.IsEmpty()) return std::nullopt;
    return find.FieldByName("JVID").AsInteger();
}

} // namespace corvane::ledger
