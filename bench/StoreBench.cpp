// Cursor moves on GLHist tables of 10,000 and 1,000,000 rows, and insert throughput of the store
// beside plain SQLite inserts of the same rows. The companies are built once under the
// temporary folder and kept for later runs.
#include "store/Database.h"
#include "store/Schema.h"
#include "store/Session.h"
#include "store/Table.h"
#include "store/sql/Connection.h"
#include "store/tables/CompanyDatabase.h"
#include "store/tables/CompanyTables.h"
#include "support/BenchCompany.h"

#include <benchmark/benchmark.h>

#include <filesystem>
#include <map>
#include <memory>
#include <random>

using namespace corvane;
using namespace corvane::store;
using corvane::bench::CompanyOf;
using corvane::bench::FillGLHist;
namespace fs = std::filesystem;

namespace {

const char* Index = "GLAccntIDPeriodDateJVDESC";

void BM_First(benchmark::State& state) {
    Table t(*CompanyOf(static_cast<int>(state.range(0))).db, "GLHist");
    t.SetIndexName(Index);
    t.Open();
    for (auto _ : state) {
        t.First();
        benchmark::DoNotOptimize(t.FieldByName("Amount").AsMoney());
    }
}

void BM_Last(benchmark::State& state) {
    Table t(*CompanyOf(static_cast<int>(state.range(0))).db, "GLHist");
    t.SetIndexName(Index);
    t.Open();
    for (auto _ : state) {
        t.Last();
        benchmark::DoNotOptimize(t.FieldByName("Amount").AsMoney());
    }
}

void BM_Next(benchmark::State& state) {
    Table t(*CompanyOf(static_cast<int>(state.range(0))).db, "GLHist");
    t.SetIndexName(Index);
    t.Open();
    t.MoveBy(static_cast<int>(state.range(0) / 2));
    for (auto _ : state) {
        t.Next();
        if (t.Eof()) t.First();
        benchmark::DoNotOptimize(t.FieldByName("Amount").AsMoney());
    }
}

void BM_MoveBy1000(benchmark::State& state) {
    Table t(*CompanyOf(static_cast<int>(state.range(0))).db, "GLHist");
    t.SetIndexName(Index);
    t.Open();
    for (auto _ : state) {
        if (t.MoveBy(1000) < 1000) t.First();
        benchmark::DoNotOptimize(t.FieldByName("Amount").AsMoney());
    }
}

void BM_LocateIndexedKey(benchmark::State& state) {
    int rows = static_cast<int>(state.range(0));
    Table t(*CompanyOf(rows).db, "GLHist");
    t.SetIndexName(Index);
    t.Open();
    std::mt19937 rng(1);
    for (auto _ : state) {
        bool found = t.Locate("GLHistID",
                              {Value(static_cast<int>(1 + rng() % static_cast<unsigned>(rows)))});
        benchmark::DoNotOptimize(found);
    }
}

void BM_Refresh(benchmark::State& state) {
    Table t(*CompanyOf(static_cast<int>(state.range(0))).db, "GLHist");
    t.SetIndexName(Index);
    t.Open();
    t.MoveBy(static_cast<int>(state.range(0) / 3));
    for (auto _ : state) {
        t.Refresh();
        benchmark::DoNotOptimize(t.FieldByName("Amount").AsMoney());
    }
}

// Inserting GLHist rows in one transaction: through table cursors, and by plain SQLite
// statements of the same rows into the same table, in the same run.
constexpr int InsertBatch = 20000;

struct FreshCompany {
    FreshCompany() {
        folder = (fs::temp_directory_path() / "corvane-bench-insert").string();
        fs::remove_all(folder);
        tables::CreateCompanyDatabase(folder);
        db.SetDirectory(folder);
        db.Open();
    }
    ~FreshCompany() {
        db.Close();
        fs::remove_all(folder);
    }
    std::string folder;
    Session session;
    Database db{session};
};

void BM_InsertGLHistStore(benchmark::State& state) {
    for (auto _ : state) {
        state.PauseTiming();
        auto company = std::make_unique<FreshCompany>();
        Table t(company->db, "GLHist");
        t.Open();
        state.ResumeTiming();
        Transaction tx(company->db, {"GLHist"});
        for (int i = 0; i < InsertBatch; ++i)
            FillGLHist(t, i);
        tx.Commit();
        state.PauseTiming();
        t.Close();
        company.reset();
        state.ResumeTiming();
    }
    state.SetItemsProcessed(state.iterations() * InsertBatch);
}

void BM_InsertGLHistPlainSqlite(benchmark::State& state) {
    for (auto _ : state) {
        state.PauseTiming();
        auto company = std::make_unique<FreshCompany>();
        auto& conn = company->db.Conn();
        Statement s(
            conn, "INSERT INTO GLHist (GLHistID, GLAccountID, GLYear, GLPeriod, Source, TransType, "
                  "JVNumber, JVID, TransDate, Amount, TransDescription, Reconciled) "
                  "VALUES (?1, ?2, ?3, ?4, ?5, ?6, ?7, ?8, ?9, ?10, ?11, ?12)");
        state.ResumeTiming();
        conn.Exec("BEGIN IMMEDIATE");
        for (int i = 0; i < InsertBatch; ++i) {
            StatementRun run(s);
            s.Bind(1, Value(i + 1));
            s.Bind(2, Value(1 + i % 40));
            s.Bind(3, Value(2010 + i % 8));
            s.Bind(4, Value(1 + i % 12));
            s.Bind(5, Value(i % 2 ? "AR" : "AP"));
            s.Bind(6, Value("Inv"));
            s.Bind(7, Value(i / 4));
            s.Bind(8, Value(i / 4));
            s.Bind(9, Value(Date::FromYmd(2010 + i % 8, 1 + i % 12, 1 + i % 28)));
            s.Bind(10, Value(Money::FromCents(i * 7 - 50000)));
            s.Bind(11, Value("Invoice line " + std::to_string(i)));
            s.Bind(12, Value(false));
            s.Step();
        }
        conn.Exec("COMMIT");
        state.PauseTiming();
        company.reset();
        state.ResumeTiming();
    }
    state.SetItemsProcessed(state.iterations() * InsertBatch);
}

} // namespace

BENCHMARK(BM_First)->Arg(10000)->Arg(1000000);
BENCHMARK(BM_Last)->Arg(10000)->Arg(1000000);
BENCHMARK(BM_Next)->Arg(10000)->Arg(1000000);
BENCHMARK(BM_MoveBy1000)->Arg(10000)->Arg(1000000);
BENCHMARK(BM_LocateIndexedKey)->Arg(10000)->Arg(1000000);
BENCHMARK(BM_Refresh)->Arg(10000)->Arg(1000000);
BENCHMARK(BM_InsertGLHistStore)->Unit(benchmark::kMillisecond)->Iterations(3);
BENCHMARK(BM_InsertGLHistPlainSqlite)->Unit(benchmark::kMillisecond)->Iterations(3);

BENCHMARK_MAIN();
