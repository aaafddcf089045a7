// Posting ten thousand vouchers of four lines through the posting run, against plain SQLite
// writing the same forty thousand history rows into the same schema in one transaction: the
// ratio is what the run costs above the bare inserts (reading the vouchers, marking them posted,
// the totals, the locks).

#include "core/Date.h"
#include "core/Money.h"
#include "ledger/posting/PostingRun.h"
#include "store/Database.h"
#include "store/Session.h"
#include "store/sql/Connection.h"
#include "store/tables/CompanyDatabase.h"

#include <benchmark/benchmark.h>
#include <sqlite3.h>

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <stdexcept>
#include <string>

namespace {

using namespace corvane;
namespace fs = std::filesystem;
using Clock = std::chrono::steady_clock;

constexpr int Vouchers = 10000;
constexpr int LinesPerVoucher = 4;
constexpr int Accounts = 40;

fs::path FreshCompany(const std::string& name) {
    fs::path folder = fs::temp_directory_path() / ("corvane-bench-posting-" + name);
    fs::remove_all(folder);
    fs::create_directories(folder);
    store::tables::CreateCompanyDatabase(folder.string());
    return folder;
}

// The i-th line of voucher v: two debits and two credits that cancel, spread over the accounts.
int AccountOf(int v, int line) {
    return 1 + (v * 7 + line * 13) % Accounts;
}
std::int64_t UnitsOf(int v, int line) {
    std::int64_t amount = 10000 + (v % 997) * 25;
    return line % 2 == 0 ? amount : -amount;
}

void WriteVouchers(store::Database& db) {
    auto& conn = db.Conn();
    conn.Exec("BEGIN");
    store::Statement jv(conn, "INSERT INTO JV (JVID, GLYear, GLPeriod, JVNumber, Source, "
                              "TransType, TransDate, TransDescription, JVAmount, Posted, "
                              "AutoReverse) VALUES (?, ?, ?, ?, 'GL', 'JV', ?, ?, ?, ?, ?)");
    store::Statement det(conn, "INSERT INTO JVDet (JVID, Seq, GLAccountID, GLAmount) "
                               "VALUES (?, ?, ?, ?)");
    for (int v = 1; v <= Vouchers; ++v) {
        const int period = 1 + v % 12;
        jv.BindAll({store::Value(v), store::Value(2018), store::Value(period),
                    store::Value(1000 + v), store::Value(Date::FromYmd(2018, period, 1)),
                    store::Value("Bench voucher " + std::to_string(v)),
                    store::Value(Money::FromUnits(2 * UnitsOf(v, 0))), store::Value(false),
                    store::Value(v % 10 == 0)});
        jv.Step();
        jv.Reset();
        for (int line = 0; line < LinesPerVoucher; ++line) {
            det.BindAll({store::Value(v), store::Value(line + 1), store::Value(AccountOf(v, line)),
                         store::Value(Money::FromUnits(UnitsOf(v, line)))});
            det.Step();
            det.Reset();
        }
    }
    conn.Exec("COMMIT");
}

double PostingRunSeconds() {
    fs::path folder = FreshCompany("run");
    store::Session session;
    store::Database db(session);
    db.SetDirectory(folder.string());
    db.Open();
    WriteVouchers(db);
    auto start = Clock::now();
    auto posted = ledger::PostingRun(db).Run({});
    double seconds = std::chrono::duration<double>(Clock::now() - start).count();
    if (posted != Vouchers) throw std::runtime_error("posted " + std::to_string(posted));
    db.Close();
    fs::remove_all(folder);
    return seconds;
}

void Check(int rc, sqlite3* db) {
    if (rc != SQLITE_OK && rc != SQLITE_DONE && rc != SQLITE_ROW)
        throw std::runtime_error(sqlite3_errmsg(db));
}

// The same history rows (auto-reversing vouchers included) written straight into the company's
// file by SQLite alone, with the store's own journal and sync settings.
double PlainSqliteSeconds() {
    fs::path folder = FreshCompany("sqlite");
    sqlite3* db = nullptr;
    Check(sqlite3_open((folder / "company.DAT").c_str(), &db), db);
    Check(sqlite3_exec(db, "PRAGMA journal_mode = DELETE; PRAGMA synchronous = FULL;", nullptr,
                       nullptr, nullptr),
          db);
    sqlite3_stmt* insert = nullptr;
    Check(sqlite3_prepare_v2(db,
                             "INSERT INTO GLHist (GLHistID, GLAccountID, GLYear, GLPeriod, "
                             "Source, TransType, JVNumber, TransDate, Amount, TransDescription, "
                             "JVID, Reconciled, Reconciling) VALUES (?, ?, 2018, ?, 'GL', ?, ?, "
                             "?, ?, ?, ?, 0, 0)",
                             -1, &insert, nullptr),
          db);
    auto start = Clock::now();
    Check(sqlite3_exec(db, "BEGIN IMMEDIATE", nullptr, nullptr, nullptr), db);
    std::int64_t id = 0;
    for (int v = 1; v <= Vouchers; ++v) {
        const int period = 1 + v % 12;
        const std::string date = Date::FromYmd(2018, period, 1).ToIso();
        const std::string text = "Bench voucher " + std::to_string(v);
        for (int line = 0; line < LinesPerVoucher; ++line) {
            for (int reverse = 0; reverse <= (v % 10 == 0 ? 1 : 0); ++reverse) {
                sqlite3_bind_int64(insert, 1, ++id);
                sqlite3_bind_int(insert, 2, AccountOf(v, line));
                sqlite3_bind_int(insert, 3, reverse ? std::min(period + 1, 12) : period);
                sqlite3_bind_text(insert, 4, reverse ? "JVR" : "JV", -1, SQLITE_STATIC);
                sqlite3_bind_int(insert, 5, 1000 + v);
                sqlite3_bind_text(insert, 6, date.c_str(), -1, SQLITE_TRANSIENT);
                sqlite3_bind_int64(insert, 7, reverse ? -UnitsOf(v, line) : UnitsOf(v, line));
                sqlite3_bind_text(insert, 8, text.c_str(), -1, SQLITE_TRANSIENT);
                sqlite3_bind_int(insert, 9, v);
                Check(sqlite3_step(insert), db);
                sqlite3_reset(insert);
            }
        }
    }
    Check(sqlite3_exec(db, "COMMIT", nullptr, nullptr, nullptr), db);
    double seconds = std::chrono::duration<double>(Clock::now() - start).count();
    sqlite3_finalize(insert);
    sqlite3_close(db);
    fs::remove_all(folder);
    return seconds;
}

} // namespace

// Each iteration times only the run (or the inserts), not the making of its company.
void BM_PostingRun(benchmark::State& state) {
    for (auto _ : state)
        state.SetIterationTime(PostingRunSeconds());
    state.counters["vouchers/s"] =
        benchmark::Counter(Vouchers, benchmark::Counter::kIsIterationInvariantRate);
}

void BM_PlainSqliteHistoryRows(benchmark::State& state) {
    for (auto _ : state)
        state.SetIterationTime(PlainSqliteSeconds());
    state.counters["vouchers/s"] =
        benchmark::Counter(Vouchers, benchmark::Counter::kIsIterationInvariantRate);
}

BENCHMARK(BM_PostingRun)->UseManualTime()->Iterations(3)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_PlainSqliteHistoryRows)->UseManualTime()->Iterations(3)->Unit(benchmark::kMillisecond);
