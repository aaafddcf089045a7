#include "receivables/reports/TrptARStatements.h"

#include "core/DisplayFormat.h"
#include "core/RegionalSettings.h"
#include "receivables/posting/InvoicePosting.h"
#include "reports/engine/TQRDBText.h"
#include "reports/engine/TQRLabel.h"
#include "reports/engine/TQRMemo.h"
#include "reports/engine/TQRShape.h"
#include "reports/system/StandardBands.h"

namespace corvane::receivables {

using namespace reports;

namespace {

constexpr double DateLeft = 0, DateWidth = 54;
constexpr double NumberLeft = 58, NumberWidth = 40;
constexpr double DescriptionLeft = 100, DescriptionWidth = 96;
constexpr double PaidByLeft = 198, PaidByWidth = 50;
constexpr double ChargeLeft = 250, PaymentLeft = 312, AmountWidth = 60;
constexpr double DiscountLeft = 374, WriteOffLeft = 426, SmallWidth = 50;
constexpr double BalanceLeft = 478, BalanceWidth = 62;

constexpr const char* kCustomerColumns =
    "C.CustomerID, C.CustomerNo, C.CustomerName, C.AddressLine1, C.AddressLine2, C.City, "
    "C.StateProv, C.ZipCode, C.Country, C.CustomerMessage, Cu.CurrencyName, ";

// Which customers the statements are for: one chosen, else those who get statements.
std::string CustomerTerms(const ARReportOptions& o) {
    std::string terms =
        o.CustomerID ? "(C.CustomerID = :CustomerID)" : std::string("(C.PrintStatement = True)");
    if (o.CurrencyID) terms += " AND (C.CurrencyID = :CurrencyID)";
    return terms;
}

} // namespace

std::string TrptARStatements::Statement(const ARReportOptions& o) {
    const std::string customers = CustomerTerms(o);
    std::string sql =
        std::string("SELECT ") + kCustomerColumns +
        "'I' RecordType, CAST('' AS CHAR(10)) InvoiceNo, CAST('' AS CHAR(8)) ChequeNo, "
        "CAST(NULL AS DATE) InvPmtDate, CAST('Balance Forward' AS CHAR(60)) Description, "
        "CAST(0 AS FLOAT) Amount, CAST(0 AS FLOAT) DiscTakenAmount, CAST(0 AS FLOAT) "
        "WriteOffAmount, CAST(0 AS Int) PaidBy "
        "FROM Customer C INNER JOIN Currency Cu ON C.CurrencyID = Cu.CurrencyID WHERE " +
        customers + " UNION SELECT " + kCustomerColumns +
        "'I' RecordType, I.InvoiceNo, CAST('' AS CHAR(8)) ChequeNo, I.InvoiceDate InvPmtDate, "
        "I.Description, I.InvoiceAmount Amount, CAST(0 AS FLOAT) DiscTakenAmount, "
        "CAST(0 AS FLOAT) WriteOffAmount, CAST(0 AS Int) PaidBy "
        "FROM ARInv I INNER JOIN Customer C ON I.CustomerID = C.CustomerID "
        "INNER JOIN Currency Cu ON C.CurrencyID = Cu.CurrencyID "
        "WHERE (I.Posted = true) AND (I.InvoiceDate <= :AsOfDate) AND " +
        customers + (o.DateFrom ? " AND (I.InvoiceDate >= :DateFrom)" : "") + " UNION SELECT " +
        kCustomerColumns +
        "'P' RecordType, CAST('' AS CHAR(10)) InvoiceNo, P.ChequeNo, P.PaymentDate InvPmtDate, "
        "CAST(P.ChequeNo AS CHAR(60)) Description, COALESCE(SUM(IP.PaymentAmount), 0) Amount, "
        "COALESCE(SUM(IP.DiscTakenAmount), 0) DiscTakenAmount, "
        "COALESCE(SUM(IP.WriteOffAmount), 0) WriteOffAmount, P.PaidBy "
        "FROM ARPmt P INNER JOIN Customer C ON P.CustomerID = C.CustomerID "
        "INNER JOIN Currency Cu ON C.CurrencyID = Cu.CurrencyID "
        "LEFT OUTER JOIN ARInvPmt IP ON IP.PaymentID = P.PaymentID "
        "WHERE (P.Posted = true) AND (P.PaymentDate <= :AsOfDate) AND " +
        customers + (o.DateFrom ? " AND (P.PaymentDate >= :DateFrom)" : "") +
        " GROUP BY P.PaymentID, C.CustomerID, C.CustomerNo, C.CustomerName, C.AddressLine1, "
        "C.AddressLine2, C.City, C.StateProv, C.ZipCode, C.Country, C.CustomerMessage, "
        "Cu.CurrencyName, P.ChequeNo, P.PaymentDate, P.PaidBy "
        "ORDER BY CustomerName, CustomerNo, InvPmtDate, RecordType, InvoiceNo, ChequeNo NOCASE";
    return sql;
}

TrptARStatements::TrptARStatements(store::Database& db, ARReportOptions options)
    : qryStatement(db, Statement(options)), db_(db), options_(std::move(options)) {
    qryStatement.Name = "qryStatement";
    qryStatement.AddCalculatedField("DescriptionText", store::FieldType::String, 60);
    qryStatement.AddCalculatedField("PaidByText", store::FieldType::String, 20);
    qryStatement.AddCalculatedField("Charge", store::FieldType::Currency);
    qryStatement.AddCalculatedField("Credit", store::FieldType::Currency);
    qryStatement.AddCalculatedField("Discount", store::FieldType::Currency);
    qryStatement.AddCalculatedField("WriteOff", store::FieldType::Currency);
    qryStatement.OnCalcFields = [](store::DataSet& ds) {
        const bool payment = ds.FieldByName("RecordType").AsString() == "P";
        const bool forward = !payment && ds.FieldByName("InvPmtDate").IsNull();
        const Money amount = ds.FieldByName("Amount").AsMoney();
        std::string description = ds.FieldByName("Description").AsString();
        if (!payment && !forward && description.empty())
            description = amount < Money() ? "Credit Note" : "Invoice";
        ds.FieldByName("DescriptionText").SetAsString(description);
        if (payment) {
            ds.FieldByName("PaidByText")
                .SetAsString(
                    PaidByText(ds.FieldByName("PaidBy"), ProcessCountryName() == "United States"));
            ds.FieldByName("Credit").SetAsMoney(amount);
            for (auto [from, to] : {std::pair{"DiscTakenAmount", "Discount"},
                                    std::pair{"WriteOffAmount", "WriteOff"}})
                if (Money m = ds.FieldByName(from).AsMoney(); !m.IsZero())
                    ds.FieldByName(to).SetAsMoney(m);
        } else if (!forward) {
            ds.FieldByName("Charge").SetAsMoney(amount);
        }
    };
    QuickReport.ReportTitle = "Statement";
    QuickReport.DataSet = &qryStatement;
    header_ = std::make_unique<StatementHeader>(db, QuickReport, qryStatement, "Statement",
                                                options_.AsOf);

    TQRBand& columns = QuickReport.Band(BandKind::ColumnHeader, 24);
    ARHeading(columns, "Date", DateLeft, DateWidth);
    ARHeading(columns, "Number", NumberLeft, NumberWidth);
    ARHeading(columns, "Description", DescriptionLeft, DescriptionWidth);
    ARHeading(columns, "Paid by", PaidByLeft, PaidByWidth);
    ARHeading(columns, "Invoices", ChargeLeft, AmountWidth, true);
    ARHeading(columns, "Payments", PaymentLeft, AmountWidth, true);
    ARHeading(columns, "Disc.", DiscountLeft, SmallWidth, true);
    ARHeading(columns, "Write-off", WriteOffLeft, SmallWidth, true);
    ARHeading(columns, "Balance", BalanceLeft, BalanceWidth, true);
    columns.Add<TQRShape>(ShapeKind::HorLine).SetBounds(0, 12, kPortraitWidth, 12);

    TQRGroup& customer = QuickReport.AddGroup("CustomerID", 0);
    customer.ForceNewPage = true;
    customer.BeforePrint = [this](TQRBand&, bool&) {
        auto it = forward_.find(qryStatement.FieldByName("CustomerID").AsInteger());
        balance_ = it == forward_.end() ? Money() : it->second;
    };

    TQRBand& detail = QuickReport.Band(BandKind::Detail, 12);
    auto& date = detail.Add<TQRDBText>(nullptr, "InvPmtDate");
    date.SetBounds(DateLeft, 0, DateWidth, 12);
    date.Mask = "dd mmm yy";
    detail.Add<TQRDBText>(nullptr, "InvoiceNo").SetBounds(NumberLeft, 0, NumberWidth, 12);
    detail.Add<TQRDBText>(nullptr, "DescriptionText")
        .SetBounds(DescriptionLeft, 0, DescriptionWidth, 12);
    detail.Add<TQRDBText>(nullptr, "PaidByText").SetBounds(PaidByLeft, 0, PaidByWidth, 12);
    for (auto [field, left, width] : {std::tuple{"Charge", ChargeLeft, AmountWidth},
                                      std::tuple{"Credit", PaymentLeft, AmountWidth},
                                      std::tuple{"Discount", DiscountLeft, SmallWidth},
                                      std::tuple{"WriteOff", WriteOffLeft, SmallWidth}}) {
        auto& amount = detail.Add<TQRDBText>(nullptr, field);
        amount.SetBounds(left, 0, width, 12);
        amount.Alignment = Align::Right;
        amount.Mask = kARAmountMask;
    }
    lblBalance_ = &detail.Add<TQRLabel>();
    lblBalance_->SetBounds(BalanceLeft, 0, BalanceWidth, 12);
    lblBalance_->Alignment = Align::Right;
    detail.BeforePrint = [this](TQRBand&, bool& print) { PrintRow(print); };

    TQRBand& footer = customer.FooterBand(48);
    footer.Add<TQRShape>(ShapeKind::HorLine).SetBounds(BalanceLeft, 0, BalanceWidth, 10);
    auto& closingLabel = footer.Add<TQRLabel>("Balance");
    closingLabel.SetBounds(WriteOffLeft - 40, 12, 90, 12);
    closingLabel.Font.bold = true;
    lblClosing_ = &footer.Add<TQRLabel>();
    lblClosing_->SetBounds(BalanceLeft, 12, BalanceWidth, 12);
    lblClosing_->Alignment = Align::Right;
    lblClosing_->Font.bold = true;
    footer.BeforePrint = [this](TQRBand&, bool&) {
        lblClosing_->Caption = FormatMoney(kARAmountMask, balance_);
    };
    auto& currency = footer.Add<TQRDBText>(nullptr, "CurrencyName");
    currency.SetBounds(DateLeft, 12, 200, 12);
    auto& message = footer.Add<TQRMemo>();
    message.DataField = "CustomerMessage";
    message.SetBounds(DateLeft, 30, kPortraitWidth, 12);
}

void TrptARStatements::PrintRow(bool& print) {
    const bool payment = qryStatement.FieldByName("RecordType").AsString() == "P";
    if (payment) {
        balance_ = balance_ - qryStatement.FieldByName("Amount").AsMoney() -
                   qryStatement.FieldByName("DiscTakenAmount").AsMoney() -
                   qryStatement.FieldByName("WriteOffAmount").AsMoney();
    } else if (qryStatement.FieldByName("InvPmtDate").IsNull()) {
        // The balance carried forward shows only when there is one.
        print = !balance_.IsZero();
    } else {
        balance_ = balance_ + qryStatement.FieldByName("Amount").AsMoney();
    }
    lblBalance_->Caption = FormatMoney(kARAmountMask, balance_);
}

void TrptARStatements::ReadCustomers() {
    forward_.clear();
    active_.clear();
    // Anything posted up to the as-of date makes a statement worth sending; what came before
    // the date from is carried forward as one balance.
    store::Query invoices(db_, "SELECT CustomerID, InvoiceDate, InvoiceAmount FROM ARInv "
                               "WHERE (Posted = true) AND (InvoiceDate <= :AsOfDate)");
    invoices.ParamByName("AsOfDate").SetAsDate(options_.AsOf);
    invoices.ForEachRow([this](const std::vector<store::Value>& row) {
        const std::int64_t customer = row[0].Int();
        active_.insert(customer);
        if (options_.DateFrom && row[1].Date() < *options_.DateFrom)
            forward_[customer] = forward_[customer] + row[2].Money();
    });
    store::Query payments(
        db_, "SELECT P.CustomerID, P.PaymentDate, IP.PaymentAmount, IP.DiscTakenAmount, "
             "IP.WriteOffAmount FROM ARPmt P INNER JOIN ARInvPmt IP ON IP.PaymentID = P.PaymentID "
             "WHERE (P.Posted = true) AND (P.PaymentDate <= :AsOfDate)");
    payments.ParamByName("AsOfDate").SetAsDate(options_.AsOf);
    payments.ForEachRow([this](const std::vector<store::Value>& row) {
        if (row[0].IsNull()) return;
        const std::int64_t customer = row[0].Int();
        active_.insert(customer);
        if (options_.DateFrom && row[1].Date() < *options_.DateFrom) {
            Money paid;
            for (std::size_t i = 2; i <= 4; ++i)
                if (!row[i].IsNull()) paid = paid + row[i].Money();
            forward_[customer] = forward_[customer] - paid;
        }
    });
    sums_ = std::make_unique<CustomerOpenSums>(db_);
}

bool TrptARStatements::Prints(std::int64_t customer) const {
    if (!options_.Thresholds.Pass(sums_->Find(customer), options_.AsOf)) return false;
    if (options_.CustomerID) return true;
    auto it = forward_.find(customer);
    return (it != forward_.end() && !it->second.IsZero()) || active_.count(customer) > 0;
}

void TrptARStatements::Open() {
    ReadCustomers();
    qryStatement.Close();
    BindOptions(qryStatement, options_);
    qryStatement.OnFilterRecord = [this](store::DataSet& ds) {
        const store::Field& customer = ds.FieldByName("CustomerID");
        return !customer.IsNull() && Prints(customer.AsInteger());
    };
    qryStatement.SetFiltered(true);
    qryStatement.Open();
    qryStatement.First();
}

} // namespace corvane::receivables
