// Posting five thousand invoices of five lines through the invoice posting run and then the
// voucher posting run, as the invoice list does it, against plain SQLite inserting the very rows
// the two runs wrote (vouchers, their lines, stock history, ledger history, payments) into a fresh
// company in one transaction. The ratio is what the runs cost above the bare inserts: reading the
// invoices and their look-ups, marking them posted, the balances, the numbers, the locks.

#include "core/Date.h"
#include "core/Money.h"
#include "ledger/posting/PostingRun.h"
#include "receivables/posting/InvoicePostingRun.h"
#include "store/Database.h"
#include "store/Session.h"
#include "store/sql/Connection.h"
#include "store/tables/CompanyDatabase.h"

#include <benchmark/benchmark.h>
#include <sqlite3.h>

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

constexpr int Invoices = 5000;
constexpr int LinesPerInvoice = 5;
constexpr int Items = 50;
constexpr int Customers = 200;

fs::path FreshCompany(const std::string& name) {
    fs::path folder = fs::temp_directory_path() / ("corvane-bench-invoices-" + name);
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

// Masters and printed invoices written straight into the tables: two currencies, two taxes, items
// of which every third is stocked, a point-of-sale payment on every tenth invoice.
void WriteInvoices(store::Database& db) {
    auto& conn = db.Conn();
    conn.Exec("BEGIN");
    conn.Exec("INSERT INTO JVCtl (NextJVID, NextJVNumber) VALUES (1, 1001)");
    conn.Exec("INSERT INTO ARPmtCtl (NextPaymentID) VALUES (1)");
    conn.Exec("INSERT INTO Currency (CurrencyID, CurrencyName, ExchangeRate, "
              "GainLossExchangeGLAccntID, APGLAccountID, APDiscGLAccountID, ARGLAccountID, "
              "ARDiscGLAccountID) VALUES (1, 'Dollars', 1, 9, 2, 2, 2, 2), "
              "(2, 'Euros', 1.3333, 9, 3, 3, 3, 3)");
    conn.Exec("INSERT INTO Tax (TaxID, TaxName, Rate, TaxCode, TaxDescription, TaxGLAccountID) "
              "VALUES (1, 'GST', 5, 'G', 'GST', 5), (2, 'PST', 8, 'P', 'PST', 6)");
    conn.Exec("INSERT INTO ItemType (ItemTypeID, TypeName, Inventory, CostingMethod) VALUES "
              "(1, 'Service', 0, 0), (2, 'Stock', 1, 1)");
    conn.Exec("INSERT INTO Bank (BankID, BankName, BankGLAccountID, CurrencyID) VALUES "
              "(1, 'Bank', 1, 1)");
    conn.Exec("INSERT INTO Warehse (WarehouseID, WarehouseName) VALUES (1, 'Main')");
    store::Statement item(conn,
                          "INSERT INTO Item (ItemID, ItemNo, ItemDescription, "
                          "SalesGLAccountID, COGSGLAccountID, InventoryGLAccountID, TaxCodes, "
                          "WgtAvgCost, ItemTypeID) VALUES (?, ?, ?, ?, 8, 4, 'GP', ?, ?)");
    for (int i = 1; i <= Items; ++i)
        Exec(item,
             {store::Value(i), store::Value("I" + std::to_string(i)),
              store::Value("Item " + std::to_string(i)), store::Value(7),
              store::Value(Money::FromUnits(50000 + i * 37)), store::Value(i % 3 == 0 ? 2 : 1)});
    store::Statement inv(
        conn,
        "INSERT INTO ARInv (ARInvoiceID, CustomerID, InvoiceNo, WarehouseID, InvoiceDate, "
        "InvoiceAmount, PaidAmount, Owing, GLPeriod, GLYear, Printed, Posted, Tax1ID, Tax2ID, "
        "Tax1Code, Tax2Code, Tax1Rate, Tax2Rate, TaxableAmtCode1, TaxableAmount1, "
        "TaxableAmtCode2, TaxableAmount2, CurrencyID, POSPmtAmount, POSPmtPaidBy, "
        "POSPmtBankID) VALUES (?, ?, ?, 1, ?, ?, ?, ?, ?, 2018, 1, 0, 1, 2, 'G', 'P', 5, 8, "
        "'G', ?, 'P', ?, ?, ?, ?, ?)");
    store::Statement det(conn, "INSERT INTO ARInvDet (ARInvoiceID, Seq, Quantity, ItemID, "
                               "UnitPrice, TaxCodes, UnitPriceB4Disc) VALUES (?, ?, ?, ?, ?, "
                               "'GP', ?)");
    for (int v = 1; v <= Invoices; ++v) {
        Money net;
        for (int line = 1; line <= LinesPerInvoice; ++line) {
            const double qty = 1 + (v + line) % 4;
            const Money price = Money::FromCents(1000 + (v * 7 + line * 13) % 5000);
            net += price.TimesRounded(qty);
            Exec(det, {store::Value(v), store::Value(line), store::Value(qty),
                       store::Value(1 + (v * 3 + line) % Items), store::Value(price),
                       store::Value(price)});
        }
        const Money amount = net + net.PercentRounded(5) + net.PercentRounded(8);
        const bool foreign = v % 4 == 0;
        const Money pos = !foreign && v % 10 == 1 ? amount : Money();
        const int period = 1 + v % 12;
        Exec(inv, {store::Value(v), store::Value(1 + v % Customers),
                   store::Value(std::to_string(100000 + v)),
                   store::Value(Date::FromYmd(2018, period, 1 + v % 28)), store::Value(amount),
                   store::Value(pos), store::Value(amount - pos), store::Value(period),
                   store::Value(net), store::Value(net), store::Value(foreign ? 2 : 1),
                   pos.IsZero() ? store::Value() : store::Value(pos),
                   pos.IsZero() ? store::Value() : store::Value(1),
                   pos.IsZero() ? store::Value() : store::Value(1)});
    }
    conn.Exec("COMMIT");
}

// The rows the two runs wrote, table by table, as plain values.
struct WrittenRows {
    std::vector<std::pair<std::string, std::vector<std::vector<store::Value>>>> Tables;
    std::size_t Count = 0;
};

WrittenRows ReadWritten(store::Database& db) {
    WrittenRows rows;
    for (const char* table : {"JV", "JVDet", "IHist", "GLHist", "ARPmt", "ARInvPmt"}) {
        std::vector<std::vector<store::Value>> values;
        store::Statement s(db.Conn(), std::string("SELECT * FROM main.") + table);
        while (s.Step()) {
            std::vector<store::Value> row;
            for (int c = 0; c < s.ColumnCount(); ++c)
                row.push_back(s.ColumnNatural(c));
            values.push_back(std::move(row));
        }
        rows.Count += values.size();
        rows.Tables.emplace_back(table, std::move(values));
    }
    return rows;
}

// The processor time this process has used: what the runs cost whatever else the machine does.
double CpuSeconds() {
    timespec t{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &t);
    return static_cast<double>(t.tv_sec) + static_cast<double>(t.tv_nsec) / 1e9;
}

struct Timing {
    double RunSeconds = 0;
    double RunCpuSeconds = 0;
    double PlainSeconds = 0;
    std::size_t Rows = 0;
};

void Check(int rc, sqlite3* db) {
    if (rc != SQLITE_OK && rc != SQLITE_DONE && rc != SQLITE_ROW)
        throw std::runtime_error(sqlite3_errmsg(db));
}

// The same rows inserted by SQLite alone into a fresh company, with the store's journal and sync
// settings, in one transaction.
double PlainSqliteSeconds(const WrittenRows& rows) {
    fs::path folder = FreshCompany("sqlite");
    sqlite3* db = nullptr;
    Check(sqlite3_open((folder / "company.DAT").c_str(), &db), db);
    Check(sqlite3_exec(db, "PRAGMA journal_mode = DELETE; PRAGMA synchronous = FULL;", nullptr,
                       nullptr, nullptr),
          db);
    std::vector<sqlite3_stmt*> inserts;
    for (const auto& [table, values] : rows.Tables) {
        const std::size_t columns = values.empty() ? 0 : values.front().size();
        std::string marks;
        for (std::size_t c = 0; c < columns; ++c)
            marks += c ? ", ?" : "?";
        sqlite3_stmt* s = nullptr;
        Check(sqlite3_prepare_v2(db, ("INSERT INTO " + table + " VALUES (" + marks + ")").c_str(),
                                 -1, &s, nullptr),
              db);
        inserts.push_back(s);
    }
    auto start = Clock::now();
    Check(sqlite3_exec(db, "BEGIN IMMEDIATE", nullptr, nullptr, nullptr), db);
    for (std::size_t t = 0; t < rows.Tables.size(); ++t) {
        sqlite3_stmt* s = inserts[t];
        for (const auto& row : rows.Tables[t].second) {
            for (std::size_t c = 0; c < row.size(); ++c) {
                const store::Value& v = row[c];
                const int i = static_cast<int>(c + 1);
                switch (v.kind()) {
                case store::Value::Kind::Integer:
                    sqlite3_bind_int64(s, i, v.Int());
                    break;
                case store::Value::Kind::Float:
                    sqlite3_bind_double(s, i, v.Float());
                    break;
                case store::Value::Kind::String:
                    sqlite3_bind_text(s, i, v.Str().c_str(), -1, SQLITE_TRANSIENT);
                    break;
                default:
                    sqlite3_bind_null(s, i);
                }
            }
            Check(sqlite3_step(s), db);
            sqlite3_reset(s);
        }
    }
    Check(sqlite3_exec(db, "COMMIT", nullptr, nullptr, nullptr), db);
    double seconds = std::chrono::duration<double>(Clock::now() - start).count();
    for (auto* s : inserts)
        sqlite3_finalize(s);
    sqlite3_close(db);
    fs::remove_all(folder);
    return seconds;
}

Timing PostBoth() {
    fs::path folder = FreshCompany("run");
    Timing timing;
    {
        store::Session session;
        store::Database db(session);
        db.SetDirectory(folder.string());
        db.Open();
        WriteInvoices(db);
        auto start = Clock::now();
        const double cpuStart = CpuSeconds();
        const auto invoices = receivables::InvoicePostingRun(db).Run({});
        const auto vouchers = ledger::PostingRun(db).Run({});
        timing.RunSeconds = std::chrono::duration<double>(Clock::now() - start).count();
        timing.RunCpuSeconds = CpuSeconds() - cpuStart;
        if (invoices != Invoices) throw std::runtime_error("posted " + std::to_string(invoices));
        if (vouchers < Invoices) throw std::runtime_error("vouchers " + std::to_string(vouchers));
        const WrittenRows rows = ReadWritten(db);
        timing.Rows = rows.Count;
        db.Close();
        timing.PlainSeconds = PlainSqliteSeconds(rows);
    }
    fs::remove_all(folder);
    return timing;
}

} // namespace

// Each iteration times the two runs, then the plain inserts of what they wrote; the ratio of the
// two in the same iteration is the figure that matters, whatever the machine's load.
void BM_InvoiceAndVoucherPosting(benchmark::State& state) {
    double run = 0, plain = 0, cpu = 0;
    std::size_t rows = 0;
    for (auto _ : state) {
        const Timing t = PostBoth();
        state.SetIterationTime(t.RunSeconds);
        run += t.RunSeconds;
        plain += t.PlainSeconds;
        cpu += t.RunCpuSeconds;
        rows = t.Rows;
    }
    state.counters["invoices/s"] =
        benchmark::Counter(Invoices, benchmark::Counter::kIsIterationInvariantRate);
    state.counters["plain_ms"] = 1000 * plain / static_cast<double>(state.iterations());
    state.counters["ratio"] = run / plain;
    // Invoices a second of processor time: the figure an idle core would give.
    state.counters["invoices/cpu_s"] =
        Invoices * static_cast<double>(state.iterations()) / (cpu > 0 ? cpu : 1);
    state.counters["rows"] = static_cast<double>(rows);
}

BENCHMARK(BM_InvoiceAndVoucherPosting)
    ->UseManualTime()
    ->Iterations(3)
    ->Unit(benchmark::kMillisecond);
