#include "receivables/reports/ARReports.h"

#include "core/Exception.h"
#include "receivables/invoices/print/TrptARInvoice.h"
#include "receivables/reports/TrptARHistory.h"
#include "receivables/reports/TrptARStatements.h"
#include "receivables/reports/TrptARStatementsInv.h"
#include "receivables/reports/TrptAgedTrialBalance.h"
#include "reports/run/ReportRegistry.h"

namespace corvane::receivables {

using reports::ReportRequest;

namespace {

void Refuse(const std::optional<std::string>& refusal) {
    if (refusal) throw Exception(*refusal);
}

ARReportOptions OptionsOf(store::Database& db, const ReportRequest& request) {
    ARReportOptions o;
    if (auto asOf = request.DateOption("asof")) o.AsOf = *asOf;
    o.DateFrom = request.DateOption("from");
    o.DateTo = request.DateOption("to");
    if (auto year = request.WholeOption("year")) o.Year = static_cast<int>(*year);
    if (auto period = request.WholeOption("period")) {
        Refuse(CheckPeriod(static_cast<int>(*period)));
        if (!o.Year) throw Exception("--period needs --year.");
        o.Period = static_cast<int>(*period);
    }
    o.CurrencyID = request.KeyOption(
        db, "currency", "SELECT CurrencyID FROM Currency WHERE CurrencyName = :No", "currency");
    o.SalesmanID = request.WholeOption("salesman");
    o.CustomerID = request.KeyOption(
        db, "customer", "SELECT CustomerID FROM Customer WHERE CustomerNo = :No", "customer");
    if (std::string text = request.Option("min-owing"); !text.empty()) {
        auto amount = Money::Parse(text);
        if (!amount) throw Exception("--min-owing takes an amount, not '" + text + "'.");
        Refuse(CheckMinOwing(*amount));
        o.Thresholds.MinOwing = *amount;
    }
    if (auto days = request.WholeOption("min-days")) {
        Refuse(CheckMinDaysOld(static_cast<int>(*days)));
        o.Thresholds.MinDaysOld = static_cast<int>(*days);
    }
    return o;
}

reports::ReportFactory Factory(ARReportKind kind) {
    return [kind](store::Database& db, const ReportRequest& request) {
        return MakeARReport(kind, db, OptionsOf(db, request));
    };
}

} // namespace

ARReportChoices ChoicesOf(ARReportKind kind) {
    switch (kind) {
    case ARReportKind::Aged:
    case ARReportKind::AgedSummary:
        return {true, false, false, true, true};
    case ARReportKind::History:
        return {false, true, true, false, false};
    case ARReportKind::StatementsHistory:
        return {true, true, false, false, true};
    case ARReportKind::StatementsUnpaid:
        return {true, false, false, false, true};
    }
    return {};
}

std::unique_ptr<reports::TrptBase> MakeARReport(ARReportKind kind, store::Database& db,
                                                ARReportOptions options) {
    // What the report does not offer stays out of it, whatever was typed before a change of
    // report.
    const ARReportChoices choices = ChoicesOf(kind);
    if (!choices.AsOf) options.AsOf = Date::Today();
    if (!choices.DateFrom) options.DateFrom.reset();
    if (!choices.PeriodYearDateTo) {
        options.DateTo.reset();
        options.Year.reset();
        options.Period.reset();
    }
    if (!choices.Salesman) options.SalesmanID.reset();
    if (!choices.Thresholds) options.Thresholds = {};
    switch (kind) {
    case ARReportKind::Aged:
        return std::make_unique<TrptAgedTrialBalance>(db, std::move(options));
    case ARReportKind::AgedSummary:
        return std::make_unique<TrptAgedReceivablesSummary>(db, std::move(options));
    case ARReportKind::History:
        return std::make_unique<TrptARHistory>(db, std::move(options));
    case ARReportKind::StatementsHistory:
        return std::make_unique<TrptARStatements>(db, std::move(options));
    case ARReportKind::StatementsUnpaid:
        return std::make_unique<TrptARStatementsInv>(db, std::move(options));
    }
    return nullptr;
}

void RegisterARReports(reports::ReportRegistry& registry) {
    registry.Register("AgedReceivables",
                      "Open invoices by age as of a date (--asof, --currency, --salesman, "
                      "--customer, --min-owing, --min-days)",
                      Factory(ARReportKind::Aged));
    registry.Register("AgedReceivablesSummary",
                      "Customers' open sums by age as of a date (options as AgedReceivables)",
                      Factory(ARReportKind::AgedSummary));
    registry.Register("ARHistory",
                      "Posted invoices and payments by customer (--year, --period, --from, --to, "
                      "--currency, --customer)",
                      Factory(ARReportKind::History));
    registry.Register("ARStatements",
                      "Statements of account history (--asof, --from, --currency, --customer, "
                      "--min-owing, --min-days)",
                      Factory(ARReportKind::StatementsHistory));
    registry.Register("ARStatementsInv",
                      "Statements of unpaid invoices (--asof, --currency, --customer, "
                      "--min-owing, --min-days)",
                      Factory(ARReportKind::StatementsUnpaid));
    registry.Register(
        "ARInvoice",
        "Sales invoices as printed: one (--number) or every unprinted one; --style classic or "
        "professional, else the company's",
        [](store::Database& db, const ReportRequest& request) {
            std::optional<std::int64_t> id = request.KeyOption(
                db, "number", "SELECT ARInvoiceID FROM ARInv WHERE InvoiceNo = :No", "invoice");
            const std::string style = request.Option("style");
            int chosen = CompanyInvoiceStyle(db);
            if (style == "classic")
                chosen = TrptARInvoice::Classic;
            else if (style == "professional")
                chosen = TrptARInvoice::Professional;
            else if (!style.empty())
                throw Exception("--style takes classic or professional, not '" + style + "'.");
            return std::unique_ptr<reports::TrptBase>(
                std::make_unique<TrptARInvoice>(db, id, chosen));
        });
}

} // namespace corvane::receivables
