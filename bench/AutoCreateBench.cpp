// AutoCreate billing 100,000 unbilled time sheets of 500 customers (four jobs of five tasks each,
// ten rows a task), against plain SQLite doing the same writes: 500 invoices, 10,000 invoice
// lines and the 100,000 stamps; against plain SQLite inserting the invoice lines alone; and
// against plain SQLite stamping the 100,000 rows alone in one statement, the least any run that
// stamps its time can cost. The ratios are what the run costs above the bare statements (the
// grouped selection, the number draws, the taxes, the locks).

#include "core/Date.h"
#include "core/Money.h"
#include "store/Database.h"
#include "store/Session.h"
#include "store/sql/Connection.h"
#include "store/tables/CompanyDatabase.h"
#include "timebilling/domain/AutoCreate.h"

#include <benchmark/benchmark.h>
#include <sqlite3.h>

#include <chrono>
#include <ctime>
#include <filesystem>
#include <stdexcept>
#include <string>

namespace {

using namespace corvane;
namespace fs = std::filesystem;
using Clock = std::chrono::steady_clock;

// Wall and processor time of the timed section only. The processor time is what other work on
// the machine does not change, so the ratios are read from it when the machine is busy.
struct Timing {
    double Wall = 0, Cpu = 0;
};

class Stopwatch {
public:
    Timing Stop() const {
        return {std::chrono::duration<double>(Clock::now() - wall_).count(),
                double(std::clock() - cpu_) / CLOCKS_PER_SEC};
    }

private:
    Clock::time_point wall_ = Clock::now();
    std::clock_t cpu_ = std::clock();
};
using store::Value;

constexpr int Customers = 500;
constexpr int JobsPerCustomer = 4;
constexpr int TasksPerJob = 5;
constexpr int RowsPerTask = 10;
constexpr int Tasks = Customers * JobsPerCustomer * TasksPerJob;

// A company of the masters and unbilled time; made once and copied for each run.
fs::path Template() {
    static fs::path folder = [] {
        fs::path f = fs::temp_directory_path() / "corvane-bench-autocreate-template";
        fs::remove_all(f);
        fs::create_directories(f);
        store::tables::CreateCompanyDatabase(f.string());
        store::Session session;
        store::Database db(session);
        db.SetDirectory(f.string());
        db.Open();
        auto& conn = db.Conn();
        conn.Exec("BEGIN");
        conn.Exec("INSERT INTO Tax (TaxID, TaxName, Rate, TaxCode, TaxDescription, "
                  "TaxGLAccountID) VALUES (1, 'GST', 5, 'G', 'GST', 1), "
                  "(2, 'PST', 8, 'P', 'PST', 1)");
        conn.Exec("INSERT INTO TaskType (TaskTypeID, TypeName, Rate, SalesGLAccountID, TaxCodes) "
                  "VALUES (1, 'Design', 950000, 4, 'GP'), (2, 'Travel', 450000, 4, 'G')");
        store::Statement customer(conn, "INSERT INTO Customer (CustomerID, CustomerNo, "
                                        "CustomerName, Tax1ID, Tax2ID, NetDays) VALUES (?, ?, ?, "
                                        "1, 2, 30)");
        store::Statement job(conn, "INSERT INTO Job (JobID, JobName, CustomerID, Priority, "
                                   "Authorized, Completed) VALUES (?, ?, ?, 5, 1, 0)");
        store::Statement task(conn, "INSERT INTO Task (TaskID, JobID, LineNo, TaskName, "
                                    "TaskTypeID, RateOverride) VALUES (?, ?, ?, ?, ?, ?)");
        store::Statement sheet(conn, "INSERT INTO TimeSht (CustomerID, JobID, TaskID, "
                                     "EmployeeID, WorkDate, Hours) VALUES (?, ?, ?, 1, ?, ?)");
        int jobId = 0, taskId = 0;
        for (int c = 1; c <= Customers; ++c) {
            customer.BindAll({Value(c), Value(std::to_string(10000 + c)),
                              Value("Customer " + std::to_string(c))});
            customer.Step();
            customer.Reset();
            for (int j = 0; j < JobsPerCustomer; ++j) {
                job.BindAll({Value(++jobId), Value("Job " + std::to_string(jobId)), Value(c)});
                job.Step();
                job.Reset();
                for (int t = 1; t <= TasksPerJob; ++t) {
                    ++taskId;
                    task.BindAll({Value(taskId), Value(jobId), Value(t),
                                  Value("Task " + std::to_string(t)), Value(1 + t % 2),
                                  t == 5 ? Value(Money::FromWhole(120)) : Value()});
                    task.Step();
                    task.Reset();
                    for (int r = 0; r < RowsPerTask; ++r) {
                        sheet.BindAll({Value(c), Value(jobId), Value(taskId),
                                       Value(Date::FromYmd(2017, 3, 1 + r)),
                                       Value(0.25 * (1 + (taskId + r) % 16))});
                        sheet.Step();
                        sheet.Reset();
                    }
                }
            }
        }
        conn.Exec("COMMIT");
        db.Close();
        return f;
    }();
    return folder;
}

fs::path CopyOfTemplate(const std::string& name) {
    fs::path folder = fs::temp_directory_path() / ("corvane-bench-autocreate-" + name);
    fs::remove_all(folder);
    fs::create_directories(folder);
    for (const auto& entry : fs::directory_iterator(Template()))
        fs::copy(entry.path(), folder / entry.path().filename());
    return folder;
}

Timing AutoCreateRunTime() {
    fs::path folder = CopyOfTemplate("run");
    store::Session session;
    store::Database db(session);
    db.SetDirectory(folder.string());
    db.Open();
    timebilling::AutoCreateRequest request;
    request.CutOff = request.InvoiceDate = Date::FromYmd(2017, 3, 31);
    request.GLYear = 2017;
    request.GLPeriod = 3;
    Stopwatch watch;
    auto result = timebilling::AutoCreateRun(db).Run(request, {});
    const Timing timing = watch.Stop();
    if (result.InvoicesMade != Customers)
        throw std::runtime_error("made " + std::to_string(result.InvoicesMade));
    db.Close();
    fs::remove_all(folder);
    return timing;
}

void Check(int rc, sqlite3* db) {
    if (rc != SQLITE_OK && rc != SQLITE_DONE && rc != SQLITE_ROW)
        throw std::runtime_error(sqlite3_errmsg(db));
}

sqlite3* OpenPlain(const fs::path& folder) {
    sqlite3* db = nullptr;
    Check(sqlite3_open((folder / "company.DAT").c_str(), &db), db);
    Check(sqlite3_exec(db, "PRAGMA journal_mode = DELETE; PRAGMA synchronous = FULL;", nullptr,
                       nullptr, nullptr),
          db);
    return db;
}

// The run's writes by SQLite alone in one transaction, with the store's journal and sync
// settings: the invoices and their lines, and, unless linesOnly, the stamps of the time.
Timing PlainSqliteTime(bool linesOnly) {
    fs::path folder = CopyOfTemplate(linesOnly ? "lines" : "writes");
    sqlite3* db = OpenPlain(folder);
    sqlite3_stmt *invoice = nullptr, *line = nullptr, *stamp = nullptr;
    Check(sqlite3_prepare_v2(db,
                             "INSERT INTO ARInv (ARInvoiceID, CustomerID, InvoiceNo, InvoiceDate, "
                             "InvoiceAmount, Owing, GLPeriod, GLYear, Printed, Posted, "
                             "TimeInvoice) VALUES (?, ?, ?, '2017-03-31', ?, ?, 3, 2017, 0, 0, 1)",
                             -1, &invoice, nullptr),
          db);
    Check(sqlite3_prepare_v2(db,
                             "INSERT INTO ARInvDet (ARInvoiceID, Seq, Quantity, UnitPriceB4Disc, "
                             "UnitPrice, TaxCodes, JobID, TaskID) VALUES (?, ?, ?, ?, ?, 'GP', "
                             "?, ?)",
                             -1, &line, nullptr),
          db);
    Check(sqlite3_prepare_v2(db,
                             "UPDATE TimeSht SET InvoiceNo = ? WHERE TaskID = ? AND +InvoiceNo IS "
                             "NULL AND +WorkDate <= '2017-03-31'",
                             -1, &stamp, nullptr),
          db);
    Stopwatch watch;
    Check(sqlite3_exec(db, "BEGIN IMMEDIATE", nullptr, nullptr, nullptr), db);
    int task = 0;
    for (int c = 1; c <= Customers; ++c) {
        const std::string number = std::to_string(10000 + c);
        if (!linesOnly) {
            sqlite3_bind_int(invoice, 1, c);
            sqlite3_bind_int(invoice, 2, c);
            sqlite3_bind_text(invoice, 3, number.c_str(), -1, SQLITE_TRANSIENT);
            sqlite3_bind_int64(invoice, 4, 1000000);
            sqlite3_bind_int64(invoice, 5, 1000000);
            Check(sqlite3_step(invoice), db);
            sqlite3_reset(invoice);
        }
        for (int seq = 1; seq <= JobsPerCustomer * TasksPerJob; ++seq) {
            ++task;
            sqlite3_bind_int(line, 1, c);
            sqlite3_bind_int(line, 2, seq);
            sqlite3_bind_double(line, 3, 2.5);
            sqlite3_bind_int64(line, 4, 950000);
            sqlite3_bind_int64(line, 5, 950000);
            sqlite3_bind_int(line, 6, 1 + (task - 1) / TasksPerJob);
            sqlite3_bind_int(line, 7, task);
            Check(sqlite3_step(line), db);
            sqlite3_reset(line);
            if (linesOnly) continue;
            sqlite3_bind_text(stamp, 1, number.c_str(), -1, SQLITE_TRANSIENT);
            sqlite3_bind_int(stamp, 2, task);
            Check(sqlite3_step(stamp), db);
            sqlite3_reset(stamp);
        }
    }
    Check(sqlite3_exec(db, "COMMIT", nullptr, nullptr, nullptr), db);
    const Timing timing = watch.Stop();
    for (sqlite3_stmt* s : {invoice, line, stamp})
        sqlite3_finalize(s);
    sqlite3_close(db);
    fs::remove_all(folder);
    return timing;
}

// Every unbilled row stamped with its customer's invoice number by one statement in one
// transaction: no selection, no invoice, one pass over the rows.
Timing PlainSqliteStampsTime() {
    fs::path folder = CopyOfTemplate("stamps");
    sqlite3* db = OpenPlain(folder);
    Stopwatch watch;
    Check(sqlite3_exec(db,
                       "BEGIN IMMEDIATE; UPDATE TimeSht SET InvoiceNo = CAST(CustomerID + 10000 AS "
                       "TEXT) WHERE InvoiceNo IS NULL AND WorkDate <= '2017-03-31'; COMMIT",
                       nullptr, nullptr, nullptr),
          db);
    const Timing timing = watch.Stop();
    if (sqlite3_changes(db) != Tasks * RowsPerTask)
        throw std::runtime_error("stamped " + std::to_string(sqlite3_changes(db)));
    sqlite3_close(db);
    fs::remove_all(folder);
    return timing;
}

} // namespace

// Each iteration times only the run (or the statements), not the copying of its company; the
// counter cpu_ms is the processor time of the same section.
template <typename Run> void Measure(benchmark::State& state, Run run) {
    double cpu = 0;
    for (auto _ : state) {
        const Timing timing = run();
        state.SetIterationTime(timing.Wall);
        cpu += timing.Cpu;
    }
    state.counters["cpu_ms"] = 1000 * cpu / double(state.iterations());
}

void BM_AutoCreate(benchmark::State& state) {
    Measure(state, AutoCreateRunTime);
    state.counters["sheets/s"] =
        benchmark::Counter(Tasks * RowsPerTask, benchmark::Counter::kIsIterationInvariantRate);
}

void BM_PlainSqliteSameWrites(benchmark::State& state) {
    Measure(state, [] { return PlainSqliteTime(false); });
}

void BM_PlainSqliteInvoiceLines(benchmark::State& state) {
    Measure(state, [] { return PlainSqliteTime(true); });
}

void BM_PlainSqliteStampsOnly(benchmark::State& state) {
    Measure(state, PlainSqliteStampsTime);
}

BENCHMARK(BM_AutoCreate)->UseManualTime()->Iterations(3)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_PlainSqliteSameWrites)->UseManualTime()->Iterations(3)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_PlainSqliteInvoiceLines)
    ->UseManualTime()
    ->Iterations(3)
    ->Unit(benchmark::kMillisecond);
BENCHMARK(BM_PlainSqliteStampsOnly)->UseManualTime()->Iterations(3)->Unit(benchmark::kMillisecond);
