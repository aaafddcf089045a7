#include "receivables/reports/TrptARStatementsInv.h"

#include "core/DateEntry.h"
#include "core/DisplayFormat.h"
#include "receivables/reports/AgingQuery.h"
#include "reports/engine/TQRDBText.h"
#include "reports/engine/TQRExpr.h"
#include "reports/engine/TQRLabel.h"
#include "reports/engine/TQRMemo.h"
#include "reports/engine/TQRShape.h"
#include "reports/system/StandardBands.h"

namespace corvane::receivables {

using namespace reports;

namespace {

constexpr double DateLeft = 0, DateWidth = 56;
constexpr double NumberLeft = 66, NumberWidth = 48;
constexpr double DescriptionLeft = 116, DescriptionWidth = 170;
constexpr double AmountLeft = 288, AmountWidth = 80;
constexpr double DueLeft = 374, DueWidth = 76;
constexpr double OwingLeft = 460, OwingWidth = 80;

} // namespace

std::string PaymentLineText(Date date, Money paid, Money discount, Money writeOff) {
    std::string text = DateToStr(date);
    const char* mask = "#,###,##0.00;-#,###,##0.00";
    if (!paid.IsZero()) text += " paid " + FormatMoney(mask, paid);
    if (!discount.IsZero()) text += " discount " + FormatMoney(mask, discount);
    if (!writeOff.IsZero()) text += " write-off " + FormatMoney(mask, writeOff);
    return text;
}

TrptARStatementsInv::TrptARStatementsInv(store::Database& db, ARReportOptions options)
    : qryInvoices(db, AgingStatement(AgingShape::Statement, options)),
      qryPayments(db, "SELECT IP.PaymentID, IP.PaymentAmount, IP.DiscTakenAmount, "
                      "IP.WriteOffAmount, P.ChequeNo, P.PaymentDate, P.ChequeAmount, P.PaidBy "
                      "FROM ARInvPmt IP "
                      "INNER JOIN ARPmt P ON P.PaymentID = IP.PaymentID "
                      "WHERE (ARInvoiceID = :ARInvoiceID) AND (P.PaymentDate <= :AsOfDate) "
                      "ORDER BY P.PaymentDate, IP.PaymentID"),
      db_(db), options_(std::move(options)) {
    qryInvoices.Name = "qryInvoices";
    qryPayments.Name = "qryPayments";
    AddAgingFields(qryInvoices, options_.AsOf);
    qryInvoices.AddCalculatedField("DescriptionText", store::FieldType::String, 60);
    qryInvoices.AddCalculatedField("DueDate", store::FieldType::Date);
    auto aging = qryInvoices.OnCalcFields;
    qryInvoices.OnCalcFields = [aging](store::DataSet& ds) {
        aging(ds);
        std::string description = ds.FieldByName("Description").AsString();
        if (description.empty())
            description =
                ds.FieldByName("InvoiceAmount").AsMoney() < Money() ? "Credit Note" : "Invoice";
        ds.FieldByName("DescriptionText").SetAsString(description);
        const store::Field& netDays = ds.FieldByName("NetDays");
        ds.FieldByName("DueDate").SetAsDate(
            ds.FieldByName("InvoiceDate")
                .AsDate()
                .AddDays(netDays.IsNull() ? 0 : static_cast<int>(netDays.AsInteger())));
    };
    qryPayments.AddCalculatedField("PaymentText", store::FieldType::String, 120);
    qryPayments.OnCalcFields = [](store::DataSet& ds) {
        auto money = [&](const char* name) {
            const store::Field& f = ds.FieldByName(name);
            return f.IsNull() ? Money() : f.AsMoney();
        };
        ds.FieldByName("PaymentText")
            .SetAsString(PaymentLineText(ds.FieldByName("PaymentDate").AsDate(),
                                         money("PaymentAmount"), money("DiscTakenAmount"),
                                         money("WriteOffAmount")));
    };

    QuickReport.ReportTitle = "Statement";
    QuickReport.DataSet = &qryInvoices;
    header_ =
        std::make_unique<StatementHeader>(db, QuickReport, qryInvoices, "Statement", options_.AsOf);

    TQRBand& columns = QuickReport.Band(BandKind::ColumnHeader, 24);
    ARHeading(columns, "Date", DateLeft, DateWidth);
    ARHeading(columns, "Invoice", NumberLeft, NumberWidth);
    ARHeading(columns, "Description", DescriptionLeft, DescriptionWidth);
    ARHeading(columns, "Amount", AmountLeft, AmountWidth, true);
    ARHeading(columns, "Due Date", DueLeft, DueWidth, true);
    ARHeading(columns, "Owing", OwingLeft, OwingWidth, true);
    columns.Add<TQRShape>(ShapeKind::HorLine).SetBounds(0, 12, kPortraitWidth, 12);

    TQRGroup& customer = QuickReport.AddGroup("CustomerID", 0);
    customer.ForceNewPage = true;

    TQRBand& detail = QuickReport.Band(BandKind::Detail, 14);
    auto& date = detail.Add<TQRDBText>(nullptr, "InvoiceDate");
    date.SetBounds(DateLeft, 2, DateWidth, 12);
    date.Mask = "dd mmm yy";
    detail.Add<TQRDBText>(nullptr, "InvoiceNo").SetBounds(NumberLeft, 2, NumberWidth, 12);
    detail.Add<TQRDBText>(nullptr, "DescriptionText")
        .SetBounds(DescriptionLeft, 2, DescriptionWidth, 12);
    auto& amount = detail.Add<TQRDBText>(nullptr, "InvoiceAmount");
    amount.SetBounds(AmountLeft, 2, AmountWidth, 12);
    amount.Alignment = Align::Right;
    amount.Mask = kARAmountMask;
    auto& due = detail.Add<TQRDBText>(nullptr, "DueDate");
    due.SetBounds(DueLeft, 2, DueWidth, 12);
    due.Alignment = Align::Right;
    due.Mask = "dd mmm yy";
    auto& owing = detail.Add<TQRDBText>(nullptr, "Owing");
    owing.SetBounds(OwingLeft, 2, OwingWidth, 12);
    owing.Alignment = Align::Right;
    owing.Mask = kARAmountMask;
    // The payments follow the invoice that prints.
    detail.BeforePrint = [this](TQRBand&, bool&) {
        qryPayments.Close();
        qryPayments.ParamByName("ARInvoiceID")
            .SetValue(qryInvoices.FieldByName("ARInvoiceID").AsValue());
        qryPayments.ParamByName("AsOfDate").SetAsDate(options_.AsOf);
        qryPayments.Open();
    };

    TQRSubDetail& payments = QuickReport.AddSubDetail(qryPayments, 11);
    auto& paymentText = payments.Add<TQRDBText>(&qryPayments, "PaymentText");
    paymentText.SetBounds(DescriptionLeft + 12, 0, kPortraitWidth - DescriptionLeft - 12, 11);
    paymentText.Font.size = 8;
    paymentText.Font.italic = true;

    TQRBand& footer = customer.FooterBand(48);
    footer.Add<TQRShape>(ShapeKind::HorLine).SetBounds(OwingLeft, 0, OwingWidth, 10);
    auto& totalLabel = footer.Add<TQRLabel>("Total owing");
    totalLabel.SetBounds(DueLeft - 30, 12, DueWidth + 30, 12);
    totalLabel.Font.bold = true;
    auto& total = footer.Add<TQRExpr>("SUM(Owing)");
    total.SetBounds(OwingLeft, 12, OwingWidth, 12);
    total.Alignment = Align::Right;
    total.Mask = kARAmountMask;
    total.ResetAfterPrint = true;
    total.Font.bold = true;
    footer.Add<TQRDBText>(nullptr, "CurrencyName").SetBounds(DateLeft, 12, 200, 12);
    auto& message = footer.Add<TQRMemo>();
    message.DataField = "CustomerMessage";
    message.SetBounds(DateLeft, 30, kPortraitWidth, 12);
}

void TrptARStatementsInv::Open() {
    qryInvoices.Close();
    BindOptions(qryInvoices, options_);
    ApplyThresholds(qryInvoices, db_, options_);
    qryInvoices.Open();
    qryInvoices.First();
}

} // namespace corvane::receivables
