// AutoCreate billing 100,000 unbilled time sheets of 500 customers (four jobs of five tasks each,
// ten rows a task), against plain SQLite doing the same writes: 500 invoices, 10,000 invoice
// lines and the 100,000 stamps, and against plain SQLite inserting the invoice lines alone. The
// ratios are what the run costs above the bare statements (the grouped selection, the number
// draws, the taxes, the locks).

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
#include <filesystem>
#include <stdexcept>
#include <string>

namespace {

using namespace corvane;
namespace fs = std::filesystem;
using Clock = std::chrono::steady_clock;
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

double AutoCreateSeconds() {
    fs::path folder = CopyOfTemplate("run");
    store::Session session;
    store::Database db(session);
    db.SetDirectory(folder.string());
    db.Open();
    timebilling::AutoCreateRequest request;
    request.CutOff = request.InvoiceDate = Date::FromYmd(2017, 3, 31);
    request.GLYear = 2017;
    request.GLPeriod = 3;
    auto start = Clock::now();
    auto result = timebilling::AutoCreateRun(db).Run(request, {});
    double seconds = std::chrono::duration<double>(Clock::now() - start).count();
    if (result.InvoicesMade != Customers)
        throw std::runtime_error("made " + std::to_string(result.InvoicesMade));
    db.Close();
    fs::remove_all(folder);
    return seconds;
}

void Check(int rc, sqlite3* db) {
    if (rc != SQLITE_OK && rc != SQLITE_DONE && rc != SQLITE_ROW)
        throw std::runtime_error(sqlite3_errmsg(db));
}

// The run's writes by SQLite alone in one transaction, with the store's journal and sync
// settings: the invoices and their lines, and, unless linesOnly, the stamps of the time.
double PlainSqliteSeconds(bool linesOnly) {
    fs::path folder = CopyOfTemplate(linesOnly ? "lines" : "writes");
    sqlite3* db = nullptr;
    Check(sqlite3_open((folder / "company.DAT").c_str(), &db), db);
    Check(sqlite3_exec(db, "PRAGMA journal_mode = DELETE; PRAGMA synchronous = FULL;", nullptr,
                       nullptr, nullptr),
          db);
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
    auto start = Clock::now();
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
    double seconds = std::chrono::duration<double>(Clock::now() - start).count();
    for (sqlite3_stmt* s : {invoice, line, stamp})
        sqlite3_finalize(s);
    sqlite3_close(db);
    fs::remove_all(folder);
    return seconds;
}

} // namespace

// Each iteration times only the run (or the statements), not the copying of its company.
void BM_AutoCreate(benchmark::State& state) {
    for (auto _ : state)
        state.SetIterationTime(AutoCreateSeconds());
    state.counters["sheets/s"] =
        benchmark::Counter(Tasks * RowsPerTask, benchmark::Counter::kIsIterationInvariantRate);
}

void BM_PlainSqliteSameWrites(benchmark::State& state) {
    for (auto _ : state)
        state.SetIterationTime(PlainSqliteSeconds(false));
}

void BM_PlainSqliteInvoiceLines(benchmark::State& state) {
    for (auto _ : state)
        state.SetIterationTime(PlainSqliteSeconds(true));
}

BENCHMARK(BM_AutoCreate)->UseManualTime()->Iterations(3)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_PlainSqliteSameWrites)->UseManualTime()->Iterations(3)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_PlainSqliteInvoiceLines)
    ->UseManualTime()
    ->Iterations(3)
    ->Unit(benchmark::kMillisecond);
