#include "receivables/reports/TrptARHistory.h"

#include "core/DateEntry.h"
#include "core/DisplayFormat.h"
#include "core/RegionalSettings.h"
#include "receivables/posting/InvoicePosting.h"
#include "reports/engine/TQRDBText.h"
#include "reports/engine/TQRLabel.h"
#include "reports/engine/TQRShape.h"
#include "reports/system/StandardBands.h"

namespace corvane::receivables {

using namespace reports;

namespace {

constexpr double DateLeft = 0, DateWidth = 56;
constexpr double KindLeft = 58, KindWidth = 50;
constexpr double InvoiceLeft = 110, InvoiceWidth = 56;
constexpr double ChequeLeft = 168, ChequeWidth = 56;
constexpr double PaidByLeft = 226, PaidByWidth = 84;
constexpr double AmountLeft = 312, AmountWidth = 76;
constexpr double DiscountLeft = 390, DiscountWidth = 74;
constexpr double WriteOffLeft = 466, WriteOffWidth = 74;

// The conditions of one half of the union: its table's alias, date field and customer field.
std::string Conditions(const ARReportOptions& o, const std::string& alias,
                       const std::string& dateField) {
    std::vector<std::string> terms{"(" + alias + ".Posted = true)"};
    if (o.Year) {
        terms.push_back("(" + alias + ".GLYear = :Year)");
        if (o.Period) terms.push_back("(" + alias + ".GLPeriod = :Period)");
    }
    const std::string date = alias + "." + dateField;
    if (o.DateFrom && o.DateTo)
        terms.push_back("(" + date + " BETWEEN :DateFrom AND :DateTo)");
    else if (o.DateFrom)
        terms.push_back("(" + date + " >= :DateFrom)");
    else if (o.DateTo)
        terms.push_back("(" + date + " <= :DateTo)");
    if (o.CurrencyID) terms.push_back("(C.CurrencyID = :CurrencyID)");
    if (o.CustomerID) terms.push_back("(" + alias + ".CustomerID = :CustomerID)");
    std::string where = " WHERE ";
    for (std::size_t i = 0; i < terms.size(); ++i)
        where += (i ? " AND " : "") + terms[i];
    return where;
}

std::string CountLine(int count, const char* noun, Money sum) {
    return std::to_string(count) + " " + noun + " " + FormatMoney(kARAmountMask, sum);
}

} // namespace

std::string TrptARHistory::Statement(const ARReportOptions& o) {
    return "SELECT CAST(0 AS Int) PaymentID, 'I' RecordType, I.InvoiceNo, CAST('' AS CHAR(8)) "
           "ChequeNo, CAST(0 AS Int) PaidBy, I.InvoiceDate InvPmtDate, I.InvoiceAmount Amount, "
           "C.CustomerNo, C.CustomerName, CAST(0 AS FLOAT) DiscTakenAmount, CAST(0 AS FLOAT) "
           "WriteOffAmount "
           "FROM ARInv I "
           "LEFT OUTER JOIN Customer C ON I.CustomerID = C.CustomerID" +
           Conditions(o, "I", "InvoiceDate") +
           " UNION "
           "SELECT P.PaymentID, 'P' RecordType, CAST('' AS CHAR(10)) InvoiceNo, P.ChequeNo, "
           "P.PaidBy, P.PaymentDate InvPmtDate, COALESCE(SUM(IP.PaymentAmount), 0) Amount, "
           "C.CustomerNo, C.CustomerName, COALESCE(SUM(IP.DiscTakenAmount), 0) DiscTakenAmount, "
           "COALESCE(SUM(IP.WriteOffAmount), 0) WriteOffAmount "
           "FROM ARPmt P "
           "LEFT OUTER JOIN Customer C ON P.CustomerID = C.CustomerID "
           "LEFT OUTER JOIN ARInvPmt IP ON IP.PaymentID = P.PaymentID" +
           Conditions(o, "P", "PaymentDate") +
           " GROUP BY P.PaymentID, P.ChequeNo, P.PaidBy, P.PaymentDate, C.CustomerNo, "
           "C.CustomerName "
           "ORDER BY CustomerName, InvPmtDate, RecordType, InvoiceNo, ChequeNo NOCASE";
}

std::string TrptARHistory::PeriodHeading(const ARReportOptions& o) {
    if (!o.Year) return {};
    const std::string year = std::to_string(*o.Year);
    if (!o.Period) return "Period: All " + year;
    return "Period: " + std::string(*o.Period < 10 ? "0" : "") + std::to_string(*o.Period) + "/" +
           year;
}

TrptARHistory::TrptARHistory(store::Database& db, ARReportOptions options)
    : qryHistory(db, Statement(options)), options_(std::move(options)) {
    qryHistory.Name = "qryHistory";
    qryHistory.AddCalculatedField("RecordText", store::FieldType::String, 10);
    qryHistory.AddCalculatedField("PaidByText", store::FieldType::String, 20);
    qryHistory.OnCalcFields = [](store::DataSet& ds) {
        const bool payment = ds.FieldByName("RecordType").AsString() == "P";
        ds.FieldByName("RecordText").SetAsString(payment ? "Payment" : "Invoice");
        ds.FieldByName("PaidByText")
            .SetAsString(payment ? PaidByText(ds.FieldByName("PaidBy"),
                                              ProcessCountryName() == "United States")
                                 : std::string());
    };
    QuickReport.ReportTitle = "AR History";
    QuickReport.DataSet = &qryHistory;
    QuickReport.PrintIfEmpty = true;

    std::vector<std::string> heading;
    if (std::string period = PeriodHeading(options_); !period.empty()) heading.push_back(period);
    if (options_.DateFrom) heading.push_back("From " + HeadingDate(*options_.DateFrom));
    if (options_.DateTo) heading.push_back("To " + HeadingDate(*options_.DateTo));
    for (std::string& line : OptionLines(db, options_, false, false))
        heading.push_back(std::move(line));
    AddARTitle(QuickReport, CompanyNameOf(db), heading);

    TQRBand& columns = QuickReport.Band(BandKind::ColumnHeader, 24);
    ARHeading(columns, "Date", DateLeft, DateWidth);
    ARHeading(columns, "Type", KindLeft, KindWidth);
    ARHeading(columns, "Invoice", InvoiceLeft, InvoiceWidth);
    ARHeading(columns, "Reference", ChequeLeft, ChequeWidth);
    ARHeading(columns, "Paid by", PaidByLeft, PaidByWidth);
    ARHeading(columns, "Amount", AmountLeft, AmountWidth, true);
    ARHeading(columns, "Discount", DiscountLeft, DiscountWidth, true);
    ARHeading(columns, "Write-off", WriteOffLeft, WriteOffWidth, true);
    columns.Add<TQRShape>(ShapeKind::HorLine).SetBounds(0, 12, kPortraitWidth, 12);

    TQRGroup& customer = QuickReport.AddGroup("CustomerNo", 18);
    auto& number = customer.Add<TQRDBText>(nullptr, "CustomerNo");
    number.SetBounds(DateLeft, 4, DateWidth, 12);
    number.Font.bold = true;
    auto& name = customer.Add<TQRDBText>(nullptr, "CustomerName");
    name.SetBounds(KindLeft, 4, 300, 12);
    name.Font.bold = true;

    TQRBand& detail = QuickReport.Band(BandKind::Detail, 12);
    auto& date = detail.Add<TQRDBText>(nullptr, "InvPmtDate");
    date.SetBounds(DateLeft, 0, DateWidth, 12);
    date.Mask = "dd mmm yy";
    detail.Add<TQRDBText>(nullptr, "RecordText").SetBounds(KindLeft, 0, KindWidth, 12);
    detail.Add<TQRDBText>(nullptr, "InvoiceNo").SetBounds(InvoiceLeft, 0, InvoiceWidth, 12);
    detail.Add<TQRDBText>(nullptr, "ChequeNo").SetBounds(ChequeLeft, 0, ChequeWidth, 12);
    detail.Add<TQRDBText>(nullptr, "PaidByText").SetBounds(PaidByLeft, 0, PaidByWidth, 12);
    for (auto [field, left, width] : {std::tuple{"Amount", AmountLeft, AmountWidth},
                                      std::tuple{"DiscTakenAmount", DiscountLeft, DiscountWidth},
                                      std::tuple{"WriteOffAmount", WriteOffLeft, WriteOffWidth}}) {
        auto& amount = detail.Add<TQRDBText>(nullptr, field);
        amount.SetBounds(left, 0, width, 12);
        amount.Alignment = Align::Right;
        amount.Mask = kARAmountMask;
    }
    detail.BeforePrint = [this](TQRBand&, bool&) {
        const Money amount = qryHistory.FieldByName("Amount").AsMoney();
        if (qryHistory.FieldByName("RecordType").AsString() == "P") {
            ++counts_.Payments;
            counts_.PaymentSum = counts_.PaymentSum + amount;
            counts_.Discount =
                counts_.Discount + qryHistory.FieldByName("DiscTakenAmount").AsMoney();
            counts_.WriteOff =
                counts_.WriteOff + qryHistory.FieldByName("WriteOffAmount").AsMoney();
        } else {
            ++counts_.Invoices;
            counts_.InvoiceSum = counts_.InvoiceSum + amount;
        }
    };

    TQRBand& summary = QuickReport.Band(BandKind::Summary, 64);
    summary.Add<TQRShape>(ShapeKind::HorLine).SetBounds(0, 0, kPortraitWidth, 10);
    double top = 12;
    for (TQRLabel** label : {&lblInvoices_, &lblPayments_, &lblDiscount_, &lblWriteOff_}) {
        *label = &summary.Add<TQRLabel>();
        (*label)->SetBounds(DateLeft, top, 300, 12);
        top += 12;
    }
    summary.BeforePrint = [this](TQRBand&, bool&) {
        lblInvoices_->Caption = CountLine(counts_.Invoices, "invoices", counts_.InvoiceSum);
        lblPayments_->Caption = CountLine(counts_.Payments, "payments", counts_.PaymentSum);
        lblDiscount_->Caption = "   Discount taken " + FormatMoney(kARAmountMask, counts_.Discount);
        lblWriteOff_->Caption = "   Write-off " + FormatMoney(kARAmountMask, counts_.WriteOff);
    };

    AddStandardPageFooter(QuickReport);
}

void TrptARHistory::Open() {
    counts_ = Counts{};
    qryHistory.Close();
    BindOptions(qryHistory, options_);
    if (store::Param* p = qryHistory.FindParam("Year"); p && options_.Year)
        p->SetAsInteger(*options_.Year);
    if (store::Param* p = qryHistory.FindParam("Period"); p && options_.Period)
        p->SetAsInteger(*options_.Period);
    qryHistory.Open();
    qryHistory.First();
}

} // namespace corvane::receivables
