// The aged trial balance over a large receivable: 100,000 open invoices of 5,000 customers, a
// fifth of them part paid by posted payments. The aging works each invoice out as of the date
// from the invoices and the payments, so page 1 waits for that query; the rest is layout.

#include "receivables/reports/TrptAgedTrialBalance.h"
#include "reports/page/ReportDocument.h"
#include "reports/render/PdfWriter.h"
#include "store/BulkWriter.h"
#include "store/Database.h"
#include "store/Session.h"
#include "store/tables/CompanyDatabase.h"

#include <benchmark/benchmark.h>

#include <chrono>
#include <filesystem>
#include <memory>

namespace {

using namespace corvane;
using Clock = std::chrono::steady_clock;
namespace fs = std::filesystem;

constexpr int kCustomers = 5'000;
constexpr int kInvoices = 100'000;

// The company, made once and kept in the temporary folder between runs.
struct AgingCompany {
    AgingCompany() {
        folder = (fs::temp_directory_path() / "corvane-bench-aging-100000").string();
        if (!store::Database::IsDatabaseFolder(folder)) Build();
        db = std::make_unique<store::Database>(session);
        db->SetDirectory(folder);
        db->Open();
    }

    void Build() {
        fs::remove_all(folder);
        store::tables::CreateCompanyDatabase(folder);
        store::Database build(session);
        build.SetDirectory(folder);
        build.Open();
        store::Transaction tx(build,
                              {"Company", "Currency", "Customer", "ARInv", "ARPmt", "ARInvPmt"});
        store::BulkInsert company(build, "Company", {"CompanyNo", "CompanyName", "FiscalYear"});
        company.Add({1, "Aging Bench Co", 2018});
        store::BulkInsert currency(build, "Currency",
                                   {"CurrencyID", "CurrencyName", "ExchangeRate", "APGLAccountID",
                                    "APDiscGLAccountID", "ARGLAccountID", "ARDiscGLAccountID"});
        currency.Add({1, "Dollars", 1.0, 1, 1, 1, 1});
        currency.Add({2, "Euros", 1.25, 1, 1, 1, 1});
        store::BulkInsert customer(
            build, "Customer",
            {"CustomerID", "CustomerNo", "CustomerName", "CurrencyID", "Phone", "PrintStatement"});
        for (int c = 1; c <= kCustomers; ++c)
            customer.Add({c, "C" + std::to_string(10000 + c),
                          "Customer " + std::to_string(100000 + c * 7919 % kCustomers), 1 + c % 2,
                          "555-" + std::to_string(1000 + c % 9000), true});
        store::BulkInsert invoice(build, "ARInv",
                                  {"ARInvoiceID", "CustomerID", "InvoiceNo", "InvoiceDate",
                                   "InvoiceAmount", "Owing", "GLYear", "GLPeriod", "Printed",
                                   "Posted"});
        store::BulkInsert payment(build, "ARPmt",
                                  {"PaymentID", "CustomerID", "BankID", "PaymentDate",
                                   "ChequeAmount", "Posted", "PaidBy"});
        store::BulkInsert applied(build, "ARInvPmt",
                                  {"ARInvoiceID", "PaymentID", "Seq", "PaymentAmount"});
        const Date start = Date::FromYmd(2018, 1, 1);
        for (int i = 1; i <= kInvoices; ++i) {
            const Date date = start.AddDays(i % 180);
            const Money amount = Money::FromCents(10000 + (i * 37) % 90000);
            const bool partPaid = i % 5 == 0;
            const Money paid = partPaid ? Money::FromCents(5000) : Money();
            invoice.Add({i, 1 + i % kCustomers, std::to_string(100000 + i), date, amount,
                         amount - paid, date.Year(), date.Month(), true, true});
            if (partPaid) {
                payment.Add({i, 1 + i % kCustomers, 1, date.AddDays(10), paid, true, 2});
                applied.Add({i, i, 1, paid});
            }
        }
        tx.Commit();
    }

    std::string folder;
    store::Session session;
    std::unique_ptr<store::Database> db;
};

AgingCompany& Company() {
    static AgingCompany company;
    return company;
}

receivables::ARReportOptions AsOfMidYear() {
    receivables::ARReportOptions options;
    options.AsOf = Date::FromYmd(2018, 6, 30);
    return options;
}

// From the start of the run (the query included) until page 1 could show; then cancelled, as
// closing the preview would.
void BM_AgingFirstPage(benchmark::State& state) {
    AgingCompany& company = Company();
    for (auto _ : state) {
        receivables::TrptAgedTrialBalance report(*company.db, AsOfMidYear());
        reports::ReportDocument doc;
        const auto started = Clock::now();
        double firstPage = 0;
        doc.OnPageAvailable = [&](int number) {
            if (number != 1) return;
            firstPage = std::chrono::duration<double>(Clock::now() - started).count();
            doc.RequestCancel();
        };
        report.Open();
        report.QuickReport.Prepare(doc);
        state.SetIterationTime(firstPage);
        if (doc.PageCount() != 1) state.SkipWithError("the run did not stop after page 1");
    }
}
BENCHMARK(BM_AgingFirstPage)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(5);

// The whole aging laid out and written to a PDF file.
void BM_AgingWholeRunToPdf(benchmark::State& state) {
    AgingCompany& company = Company();
    const std::string path = (fs::temp_directory_path() / "corvane-aging-bench.pdf").string();
    int pages = 0;
    for (auto _ : state) {
        receivables::TrptAgedTrialBalance report(*company.db, AsOfMidYear());
        reports::ReportDocument doc;
        report.Open();
        report.QuickReport.Prepare(doc);
        reports::WritePdf(doc, path);
        pages = doc.PageCount();
    }
    state.counters["pages"] = pages;
    state.counters["pdf_bytes"] = static_cast<double>(fs::file_size(path));
    fs::remove(path);
}
BENCHMARK(BM_AgingWholeRunToPdf)->Unit(benchmark::kMillisecond)->Iterations(2);

} // namespace
