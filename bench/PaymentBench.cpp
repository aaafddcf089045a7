// Customer payments at scale. First, a customer with ten thousand posted invoices still owing:
// the payment form is made, a new payment drawn, the customer typed, and AutoCreate puts a line
// on every invoice, as a person opening a payment and allocating it would see it. Second, five
// thousand unposted payments, each over an invoice with a discount or a write-off, in two
// currencies, posted by the payment posting run, the CPU time of the process beside the wall time
// so that the figure can be read on a loaded machine.

#include "core/Date.h"
#include "core/Money.h"
#include "receivables/payments/forms/TfrmARPayment.h"
#include "receivables/posting/PaymentPostingRun.h"
#include "store/Database.h"
#include "store/Session.h"
#include "store/sql/Connection.h"
#include "store/tables/CompanyDatabase.h"
#include "ui/Application.h"
#include "ui/FormDriver.h"
#include "ui/HeadlessDesktop.h"
#include "ui/HeadlessDialogs.h"
#include "ui/HeadlessHost.h"

#include <benchmark/benchmark.h>

#include <chrono>
#include <ctime>
#include <filesystem>
#include <stdexcept>
#include <string>
#include <vector>

namespace {

using namespace corvane;
namespace fs = std::filesystem;
using Clock = std::chrono::steady_clock;

constexpr int OpenInvoices = 10000;
constexpr int Payments = 5000;

fs::path FreshCompany(const std::string& name) {
    fs::path folder = fs::temp_directory_path() / ("corvane-bench-payments-" + name);
    fs::remove_all(folder);
    fs::create_directories(folder);
    store::tables::CreateCompanyDatabase(folder.string());
    return folder;
}

void Exec(store::Statement& s, const std::vector<store::Value>& values) {
    s.BindAll(values);
    s.Step();
    s.Reset();
}

double CpuSeconds() {
    timespec t{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &t);
    return static_cast<double>(t.tv_sec) + static_cast<double>(t.tv_nsec) / 1e9;
}

// The masters a payment needs: two currencies with their accounts, a bank in each, a customer in
// each, an open fiscal year.
void WriteMasters(store::Connection& conn) {
    conn.Exec("INSERT INTO JVCtl (NextJVID, NextJVNumber) VALUES (1, 1001)");
    conn.Exec("INSERT INTO ARPmtCtl (NextPaymentID) VALUES (1)");
    conn.Exec("INSERT INTO Company (CompanyNo, CompanyName, FiscalYear, DefaultPeriodYYYY, "
              "DefaultPeriodPP) VALUES (1, 'Bench', 2018, 2018, 3)");
    conn.Exec(
        "INSERT INTO GLAccnt (GLAccountID, GLAccount, AccountName, AccountType) VALUES "
        "(1, '1010', 'Bank', 1), (2, '1100', 'Receivables', 1), (3, '1020', 'Euro bank', 1), "
        "(4, '4600', 'Discounts', 4), (5, '4700', 'Bad debts', 5), (6, '8000', 'Exchange', 5)");
    conn.Exec("INSERT INTO Currency (CurrencyID, CurrencyName, ExchangeRate, "
              "GainLossExchangeGLAccntID, APGLAccountID, APDiscGLAccountID, ARGLAccountID, "
              "ARDiscGLAccountID, DfltWriteOffGLAccountID) VALUES "
              "(1, 'Dollars', 1, 6, 2, 4, 2, 4, 5), (2, 'Euros', 1.3333, 6, 2, 4, 2, 4, 5)");
    conn.Exec("INSERT INTO Bank (BankID, BankName, BankGLAccountID, CurrencyID) VALUES "
              "(1, 'Bank', 1, 1), (2, 'Euro bank', 3, 2)");
    conn.Exec("INSERT INTO Customer (CustomerID, CustomerNo, CustomerName, CurrencyID) VALUES "
              "(1, 'C1', 'Home Ltd', 1), (2, 'C2', 'Abroad GmbH', 2)");
}

// Posted invoices owing their whole amount, a third of them with early-payment terms.
void WriteInvoices(store::Connection& conn, int count, bool twoCustomers) {
    store::Statement inv(
        conn, "INSERT INTO ARInv (ARInvoiceID, CustomerID, InvoiceNo, InvoiceDate, InvoiceAmount, "
              "PaidAmount, DiscTakenAmount, WriteOffAmount, Owing, DiscPC, DiscDays, GLPeriod, "
              "GLYear, Printed, Posted, CurrencyID) VALUES (?, ?, ?, ?, ?, 0, 0, 0, ?, ?, ?, 3, "
              "2018, 1, 1, ?)");
    for (int i = 1; i <= count; ++i) {
        const int customer = twoCustomers && i % 3 == 0 ? 2 : 1;
        const Money amount = Money::FromCents(10000 + i);
        const bool terms = i % 3 == 1;
        Exec(inv,
             {store::Value(i), store::Value(customer), store::Value(std::to_string(100000 + i)),
              store::Value(Date::FromYmd(2018, 3, 1)), store::Value(amount), store::Value(amount),
              terms ? store::Value(2.0) : store::Value(),
              terms ? store::Value(30000) : store::Value(), store::Value(customer)});
    }
}

struct OpenTiming {
    double Seconds = 0;
    std::int64_t Lines = 0;
};

// The form made, a payment drawn and its customer typed, AutoCreate run: the time a person waits.
OpenTiming OpenAndAllocate(store::Database& db) {
    ui::HeadlessHost host;
    ui::HeadlessDialogs dialogs;
    ui::HeadlessDesktop desktop;
    ui::Application app{host, dialogs, desktop};
    OpenTiming timing;
    const auto start = Clock::now();
    auto& form = app.SingleForm<receivables::TfrmARPayment>(db);
    form.EntryTable.Insert();
    form.Show();
    ui::FormDriver d(form);
    app.Run([&] {
        d.EnterText("editCustomerNo", "C1");
        d.Focus("editChequeNo");
        d.Click("btnAutoCreate");
    });
    // What the window shows first: the grid's first rows and the total.
    benchmark::DoNotOptimize(form.grdLines.Rows(0, 20));
    benchmark::DoNotOptimize(form.lblTotal.Caption);
    timing.Seconds = std::chrono::duration<double>(Clock::now() - start).count();
    timing.Lines = form.LineCount();
    if (!dialogs.LastText().empty()) throw std::runtime_error(dialogs.LastText());
    form.CancelAndClose();
    return timing;
}

} // namespace

void BM_OpenPaymentAndAutoAllocateTenThousandInvoices(benchmark::State& state) {
    const fs::path folder = FreshCompany("open");
    store::Session session;
    store::Database db(session);
    db.SetDirectory(folder.string());
    db.Open();
    db.Conn().Exec("BEGIN");
    WriteMasters(db.Conn());
    WriteInvoices(db.Conn(), OpenInvoices, false);
    db.Conn().Exec("COMMIT");
    std::int64_t lines = 0;
    for (auto _ : state) {
        const OpenTiming t = OpenAndAllocate(db);
        state.SetIterationTime(t.Seconds);
        lines = t.Lines;
    }
    if (lines != OpenInvoices) state.SkipWithError("not every invoice was allocated");
    state.counters["lines"] = static_cast<double>(lines);
    db.Close();
    fs::remove_all(folder);
}

BENCHMARK(BM_OpenPaymentAndAutoAllocateTenThousandInvoices)
    ->UseManualTime()
    ->Iterations(5)
    ->Unit(benchmark::kMillisecond);

void BM_PostFiveThousandPayments(benchmark::State& state) {
    double cpu = 0;
    for (auto _ : state) {
        const fs::path folder = FreshCompany("post");
        store::Session session;
        store::Database db(session);
        db.SetDirectory(folder.string());
        db.Open();
        auto& conn = db.Conn();
        conn.Exec("BEGIN");
        WriteMasters(conn);
        WriteInvoices(conn, Payments, true);
        store::Statement pmt(conn,
                             "INSERT INTO ARPmt (PaymentID, ChequeNo, CustomerID, BankID, "
                             "GLYear, GLPeriod, PaymentDate, ChequeAmount, Posted, "
                             "Reconciled, PaidBy) VALUES (?, ?, ?, ?, 2018, 3, ?, ?, 0, 0, 2)");
        store::Statement line(conn, "INSERT INTO ARInvPmt (ARInvoiceID, PaymentID, Seq, "
                                    "PaymentAmount, DiscTakenAmount, WriteOffAmount, "
                                    "WriteOffGLAccountID) VALUES (?, ?, 1, ?, ?, ?, ?)");
        for (int i = 1; i <= Payments; ++i) {
            const int customer = i % 3 == 0 ? 2 : 1;
            const Money amount = Money::FromCents(10000 + i);
            // A third take a discount, a third leave a little written off, a third pay in full.
            const Money discount = i % 3 == 1 ? amount.PercentRounded(2.0) : Money();
            const Money writeOff = i % 3 == 2 ? Money::FromCents(37) : Money();
            const Money paid = amount - discount - writeOff;
            Exec(pmt, {store::Value(i), store::Value("R" + std::to_string(i)),
                       store::Value(customer), store::Value(customer),
                       store::Value(Date::FromYmd(2018, 3, 20)), store::Value(paid)});
            Exec(line, {store::Value(i), store::Value(i), store::Value(paid),
                        discount.IsZero() ? store::Value() : store::Value(discount),
                        writeOff.IsZero() ? store::Value() : store::Value(writeOff),
                        writeOff.IsZero() ? store::Value() : store::Value(5)});
        }
        conn.Exec("COMMIT");
        const double cpuStart = CpuSeconds();
        const auto start = Clock::now();
        const std::int64_t posted =
            receivables::PaymentPostingRun(db).Run([](const std::string&) { return false; });
        state.SetIterationTime(std::chrono::duration<double>(Clock::now() - start).count());
        cpu += CpuSeconds() - cpuStart;
        if (posted != Payments) state.SkipWithError("not every payment was posted");
        db.Close();
        fs::remove_all(folder);
    }
    state.counters["payments/s"] =
        benchmark::Counter(Payments, benchmark::Counter::kIsIterationInvariantRate);
    state.counters["cpu_ms"] = 1000 * cpu / static_cast<double>(state.iterations());
    state.counters["payments/cpu_s"] =
        Payments * static_cast<double>(state.iterations()) / (cpu > 0 ? cpu : 1);
}

BENCHMARK(BM_PostFiveThousandPayments)
    ->UseManualTime()
    ->Iterations(3)
    ->Unit(benchmark::kMillisecond);
