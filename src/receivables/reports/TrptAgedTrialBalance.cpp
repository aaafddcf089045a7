#include "receivables/reports/TrptAgedTrialBalance.h"

#include "receivables/domain/Aging.h"
#include "receivables/reports/AgingQuery.h"
#include "reports/engine/TQRDBText.h"
#include "reports/engine/TQRExpr.h"
#include "reports/engine/TQRLabel.h"
#include "reports/engine/TQRShape.h"
#include "reports/system/StandardBands.h"

namespace corvane::receivables {

using namespace reports;

namespace {

constexpr double NumberLeft = 0, NumberWidth = 62;
constexpr double DateLeft = 64, DateWidth = 60;
constexpr double AgeLeft = 126, AgeWidth = 34;
constexpr double AmountWidth = 72;
// Owing, then the four age columns.
constexpr double AmountLeft[5] = {170, 244, 318, 392, 466};
constexpr const char* kAmountFields[5] = {"Owing", "AgePeriod1", "AgePeriod2", "AgePeriod3",
                                          "AgePeriod4"};

std::string AmountField(int column, bool domestic) {
    if (column == 0) return domestic ? "OwingDomestic" : "Owing";
    return std::string(kAmountFields[column]) + (domestic ? "Dom" : "Amt");
}

// The five sums of a footer line over the invoice lines; totals reset after a customer's footer,
// not after the report's.
std::vector<TQRExpr*> AddSums(TQRBand& band, TQRBand& lines, double top, bool domestic, bool reset,
                              bool bold) {
    std::vector<TQRExpr*> sums;
    for (int column = 0; column < 5; ++column) {
        auto& sum = band.Add<TQRExpr>("SUM(qryAging." + AmountField(column, domestic) + ")");
        sum.Master = &lines;
        sum.SetBounds(AmountLeft[column], top, AmountWidth, 12);
        sum.Alignment = Align::Right;
        sum.Mask = kARAmountMask;
        sum.ResetAfterPrint = reset;
        sum.Font.bold = bold;
        sums.push_back(&sum);
    }
    return sums;
}

} // namespace

TrptAgedTrialBalance::TrptAgedTrialBalance(store::Database& db, ARReportOptions options)
    : TrptAgedTrialBalance(db, std::move(options), false) {}

TrptAgedReceivablesSummary::TrptAgedReceivablesSummary(store::Database& db, ARReportOptions options)
    : TrptAgedTrialBalance(db, std::move(options), true) {}

TrptAgedTrialBalance::TrptAgedTrialBalance(store::Database& db, ARReportOptions options,
                                           bool summary)
    : tblCustomer(db, "Customer"),
      qryAging(db, AgingStatement(summary ? AgingShape::Customers : AgingShape::Invoices, options,
                                  true)),
      db_(db), options_(std::move(options)) {
    Build(db, summary);
}

void TrptAgedTrialBalance::Build(store::Database& db, bool summary) {
    qryAging.Name = "qryAging";
    AddAgingFields(qryAging, options_.AsOf);
    tblCustomer.Name = "tblCustomer";
    tblCustomer.SetIndexName("CustomerName1");
    tblCustomer.AddCalculatedField("CustomerNamePhone", store::FieldType::String, 80);
    tblCustomer.OnCalcFields = [](store::DataSet& ds) {
        ds.FieldByName("CustomerNamePhone")
            .SetAsString(ds.FieldByName("CustomerName").AsString() + "   " +
                         ds.FieldByName("Phone").AsString());
    };
    tblCustomer.OnFilterRecord = [this](store::DataSet& ds) { return Prints(ds); };
    QuickReport.ReportTitle = summary ? "Aged Receivables Summary" : "Aged Receivables";
    QuickReport.DataSet = &tblCustomer;
    // An aging with nothing open still says so, with its totals of 0.
    QuickReport.PrintIfEmpty = true;

    std::vector<std::string> heading{"As of " + HeadingDate(options_.AsOf)};
    for (std::string& line : OptionLines(db, options_, true, true))
        heading.push_back(std::move(line));
    AddARTitle(QuickReport, CompanyNameOf(db), heading);

    TQRBand& columns = QuickReport.Band(BandKind::ColumnHeader, 24);
    if (summary) {
        ARHeading(columns, "Customer", NumberLeft, AmountLeft[0] - 4);
    } else {
        ARHeading(columns, "Invoice no.", NumberLeft, NumberWidth);
        ARHeading(columns, "Date", DateLeft, DateWidth);
        ARHeading(columns, "Age", AgeLeft, AgeWidth, true);
    }
    const char* titles[5] = {"Owing", "0 - 30", "31 - 60", "61 - 90", "Over 90"};
    for (int column = 0; column < 5; ++column)
        ARHeading(columns, titles[column], AmountLeft[column], AmountWidth, true);
    columns.Add<TQRShape>(ShapeKind::HorLine).SetBounds(0, 12, kPortraitWidth, 12);

    // One group for each customer: its heading, its invoices under it, its sums.
    TQRGroup& customer = QuickReport.AddGroup("CustomerID", summary ? 0 : 16);
    // A customer who owed nothing on the date prints nothing at all.
    customer.BeforePrint = [this](TQRBand&, bool& print) {
        ReadInvoices(qryAging, tblCustomer.FieldByName("CustomerID").AsInteger());
        owes_ = !qryAging.IsEmpty();
        print = owes_;
    };
    TQRSubDetail& detail = QuickReport.AddSubDetail(qryAging, summary ? 0 : 12);
    TQRBand& footer = customer.FooterBand(summary ? 12 : 24);
    footer.BeforePrint = [this](TQRBand&, bool& print) { print = owes_; };
    if (summary) {
        // A customer is one line: its invoices are summed but never shown.
        auto& name = footer.Add<TQRDBText>(nullptr, "CustomerNamePhone");
        name.SetBounds(NumberLeft, 0, AmountLeft[0] - 4, 12);
        AddSums(footer, detail, 0, false, true, false);
    } else {
        auto& number = customer.Add<TQRDBText>(nullptr, "CustomerNo");
        number.SetBounds(NumberLeft, 4, NumberWidth, 12);
        number.Font.bold = true;
        auto& name = customer.Add<TQRDBText>(nullptr, "CustomerNamePhone");
        name.SetBounds(DateLeft, 4, kPortraitWidth - DateLeft, 12);
        name.Font.bold = true;

        detail.Add<TQRDBText>(&qryAging, "InvoiceNo").SetBounds(NumberLeft, 0, NumberWidth, 12);
        auto& date = detail.Add<TQRDBText>(&qryAging, "InvoiceDate");
        date.SetBounds(DateLeft, 0, DateWidth, 12);
        date.Mask = "dd mmm yy";
        auto& age = detail.Add<TQRDBText>(&qryAging, "Age");
        age.SetBounds(AgeLeft, 0, AgeWidth, 12);
        age.Alignment = Align::Right;
        for (int column = 0; column < 5; ++column) {
            auto& amount = detail.Add<TQRDBText>(&qryAging, AmountField(column, false));
            amount.SetBounds(AmountLeft[column], 0, AmountWidth, 12);
            amount.Alignment = Align::Right;
            amount.Mask = kARAmountMask;
        }

        // The rule has a line of its own, above the sums.
        footer.Add<TQRShape>(ShapeKind::HorLine)
            .SetBounds(AmountLeft[0], 0, kPortraitWidth - AmountLeft[0], 10);
        auto& label = footer.Add<TQRLabel>("Total");
        label.SetBounds(DateLeft, 12, 100, 12);
        label.Font.bold = true;
        AddSums(footer, detail, 12, false, true, true);
    }

    // The same sums at the present rate, for every customer whose currency has one.
    TQRBand& domestic = footer.ChildBand(12);
    auto& domesticLabel = domestic.Add<TQRLabel>("Total (domestic)");
    domesticLabel.SetBounds(summary ? NumberLeft + 12 : DateLeft, 0, 100, 12);
    std::vector<TQRExpr*> domesticSums = AddSums(domestic, detail, 0, true, true, !summary);
    domestic.BeforePrint = [this](TQRBand&, bool& print) {
        print = RateOf(tblCustomer) > 0;
        if (print) anyDomestic_ = true;
    };
    // A customer without the line still starts the next one's sums from 0.
    domestic.AfterPrint = [domesticSums](TQRBand&, bool printed) {
        if (!printed)
            for (TQRExpr* sum : domesticSums)
                sum->Reset();
    };

    TQRBand& totals = QuickReport.Band(BandKind::Summary, 24);
    totals.Add<TQRShape>(ShapeKind::HorLine).SetBounds(0, 0, kPortraitWidth, 10);
    auto& totalsLabel = totals.Add<TQRLabel>("Report Totals:");
    totalsLabel.SetBounds(NumberLeft, 12, 160, 12);
    totalsLabel.Font.bold = true;
    AddSums(totals, detail, 12, true, false, true);
    totals.BeforePrint = [this, &totalsLabel](TQRBand&, bool&) {
        totalsLabel.Caption = anyDomestic_ ? "Report Totals (Domestic):" : "Report Totals:";
    };

    AddStandardPageFooter(QuickReport);
}

double TrptAgedTrialBalance::RateOf(store::DataSet& customer) const {
    const store::Field& currency = customer.FieldByName("CurrencyID");
    if (currency.IsNull()) return 0;
    auto it = rates_.find(currency.AsInteger());
    return it == rates_.end() ? 0 : it->second;
}

void TrptAgedTrialBalance::ReadInvoices(store::Query& query, std::int64_t customerId) {
    query.Close();
    BindOptions(query, options_);
    query.ParamByName("CustomerID").SetAsInteger(customerId);
    query.Open();
}

// A customer is read when it is one the options name and passes the thresholds; whether it owed
// anything on the date is known once its invoices are read.
bool TrptAgedTrialBalance::Prints(store::DataSet& customer) {
    const std::int64_t id = customer.FieldByName("CustomerID").AsInteger();
    if (options_.CustomerID && *options_.CustomerID != id) return false;
    auto is = [&](const char* field, const std::optional<std::int64_t>& wanted) {
        const store::Field& f = customer.FieldByName(field);
        return !wanted || (!f.IsNull() && f.AsInteger() == *wanted);
    };
    if (!is("CurrencyID", options_.CurrencyID) || !is("SalesmanID", options_.SalesmanID))
        return false;
    if (!options_.Thresholds.Pass(sums_->Find(id), options_.AsOf)) return false;
    // A customer without a currency row drops out of the invoices' join, as in the lists.
    return rates_.count(customer.FieldByName("CurrencyID").AsInteger()) > 0;
}

void TrptAgedTrialBalance::Open() {
    anyDomestic_ = false;
    sums_ = std::make_unique<CustomerOpenSums>(db_);
    rates_.clear();
    store::Query currencies(db_, "SELECT CurrencyID, ExchangeRate FROM Currency");
    currencies.ForEachRow([this](const std::vector<store::Value>& row) {
        rates_[row[0].Int()] = row[1].IsNull() ? 0.0 : row[1].Float();
    });
    // The statement runs once for each customer: translated and prepared once for the run.
    qryAging.Close();
    qryAging.Prepare();
    BindOptions(qryAging, options_);
    tblCustomer.Close();
    tblCustomer.Open();
    tblCustomer.SetFiltered(true);
    tblCustomer.First();
}

} // namespace corvane::receivables
