// From nothing to a main form that a person can use, on a company with a long history: the
// settings read, the menus and tool bar made, the last company opened and its login checked.

#include "core/IniFile.h"
#include "shell/main/FormRegistry.h"
#include "shell/main/ShellForms.h"
#include "shell/main/TfrmCorvane.h"
#include "store/Table.h"
#include "support/BenchCompany.h"
#include "ui/Application.h"
#include "ui/HeadlessDesktop.h"
#include "ui/HeadlessDialogs.h"
#include "ui/HeadlessHost.h"

#include <benchmark/benchmark.h>

#include <cstdlib>
#include <filesystem>
#include <stdexcept>

namespace {

using namespace corvane;
namespace fs = std::filesystem;

// The company of the bench with its Company row, and a settings folder whose last company it is.
std::string PrepareStart(int rows) {
    bench::BenchCompany& company = bench::CompanyOf(rows);
    store::Table t(*company.db, "Company");
    t.Open();
    if (t.IsEmpty()) {
        t.Append();
        t.FieldByName("CompanyNo").SetAsInteger(1);
        t.FieldByName("CompanyName").SetAsString("Bench History Ltd.");
        t.FieldByName("FiscalYear").SetAsInteger(2017);
        t.FieldByName("ApplicationVersion").SetAsString(shell::TfrmCorvane::VersionMark);
        t.Post();
    }
    fs::path home = fs::temp_directory_path() / ("corvane-bench-start-" + std::to_string(rows));
    setenv("XDG_DATA_HOME", home.c_str(), 1);
    fs::path settings = home / "Halvern Works" / shell::TfrmCorvane::ApplicationTitle /
                        shell::TfrmCorvane::VersionMark;
    fs::create_directories(settings);
    IniFile ini(settings / "Corvane.ini");
    ini.WriteString("Companies", "Bench", company.folder);
    ini.WriteString("General", "Database", company.folder);
    return company.folder;
}

void BM_StartToUsableMainForm(benchmark::State& state) {
    PrepareStart(static_cast<int>(state.range(0)));
    shell::FormRegistry registry;
    shell::RegisterShellForms(registry);
    for (auto _ : state) {
        ui::HeadlessHost host;
        ui::HeadlessDialogs dialogs;
        ui::HeadlessDesktop desktop;
        ui::Application app(host, dialogs, desktop);
        auto& main = app.CreateForm<shell::TfrmCorvane>(registry);
        main.Show();
        if (!main.SessionActive() || !main.mnuGL.Enabled)
            throw std::runtime_error("the company did not open: " + dialogs.LastText());
        benchmark::DoNotOptimize(main.tblCompany.FieldByName("CompanyName").AsString());
        state.PauseTiming(); // closing is not part of the start
        main.CloseAllForms();
        state.ResumeTiming();
    }
}

} // namespace

BENCHMARK(BM_StartToUsableMainForm)->Arg(10000)->Arg(1000000)->Unit(benchmark::kMillisecond);
