// Making the sample company, from the demo to the stress company of about a million history rows
// that other benchmarks and a person trying the program at scale use.

#include "company/sample/SampleCompany.h"
#include "store/Database.h"
#include "store/Session.h"
#include "store/tables/CompanyDatabase.h"

#include <benchmark/benchmark.h>

#include <chrono>
#include <filesystem>

namespace {

using namespace corvane;
namespace fs = std::filesystem;

void BM_GenerateSampleCompany(benchmark::State& state) {
    company::SampleShape shape;
    shape.Vouchers = static_cast<int>(state.range(0));
    company::SampleSummary summary;
    for (auto _ : state) {
        const fs::path folder = fs::temp_directory_path() / "corvane-bench-sample";
        fs::remove_all(folder);
        fs::create_directories(folder);
        store::tables::CreateCompanyDatabase(folder.string());
        store::Session session;
        store::Database db(session);
        db.SetDirectory(folder.string());
        db.Open();
        const auto start = std::chrono::steady_clock::now();
        summary = company::GenerateSampleCompany(db, shape);
        const std::chrono::duration<double> took = std::chrono::steady_clock::now() - start;
        state.SetIterationTime(took.count());
        db.Close();
        fs::remove_all(folder);
    }
    state.counters["vouchers"] = summary.Vouchers;
    state.counters["history_rows"] = static_cast<double>(summary.HistoryRows);
}
BENCHMARK(BM_GenerateSampleCompany)
    ->Arg(480)
    ->Arg(410000)
    ->UseManualTime()
    ->Iterations(1)
    ->Unit(benchmark::kMillisecond);

} // namespace
