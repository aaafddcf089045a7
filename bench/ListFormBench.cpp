// Opening the users list form on a table of 10,000 and of 1,000,000 users, drawing a page of its
// grid and moving to the last row, as a user pressing Ctrl+End would.
#include "shell/users/TfrmUsers.h"
#include "store/Database.h"
#include "store/Session.h"
#include "store/Table.h"
#include "store/tables/CompanyDatabase.h"
#include "ui/Application.h"
#include "ui/HeadlessDesktop.h"
#include "ui/HeadlessDialogs.h"
#include "ui/HeadlessHost.h"

#include <benchmark/benchmark.h>

#include <filesystem>
#include <map>
#include <memory>

using namespace corvane;
namespace fs = std::filesystem;

namespace {

struct UsersCompany {
    explicit UsersCompany(int rows) {
        folder =
            (fs::temp_directory_path() / ("corvane-bench-users-" + std::to_string(rows))).string();
        if (!store::Database::IsDatabaseFolder(folder)) {
            fs::remove_all(folder);
            store::tables::CreateCompanyDatabase(folder);
            store::Database build(session);
            build.SetDirectory(folder);
            build.Open();
            store::Table t(build, "Users");
            t.Open();
            store::Transaction tx(build, {"Users"});
            for (int i = 0; i < rows; ++i) {
                t.Append();
                t.FieldByName("UserName").SetAsString("user" + std::to_string(1000000 + i));
                t.FieldByName("Security").SetAsBoolean(i % 7 == 0);
                t.Post();
            }
            tx.Commit();
        }
        db = std::make_unique<store::Database>(session);
        db->SetDirectory(folder);
        db->Open();
    }
    std::string folder;
    store::Session session;
    std::unique_ptr<store::Database> db;
};

UsersCompany& CompanyOf(int rows) {
    static std::map<int, std::unique_ptr<UsersCompany>> companies;
    auto& c = companies[rows];
    if (!c) c = std::make_unique<UsersCompany>(rows);
    return *c;
}

void BM_OpenListAndGoToLast(benchmark::State& state) {
    auto& company = CompanyOf(static_cast<int>(state.range(0)));
    for (auto _ : state) {
        ui::HeadlessHost host;
        ui::HeadlessDialogs dialogs;
        ui::HeadlessDesktop desktop;
        ui::Application app(host, dialogs, desktop);
        auto& form = app.CreateForm<shell::TfrmUsers>(*company.db);
        form.Show();
        benchmark::DoNotOptimize(form.grdList.Rows(0, form.grdList.VisibleRows));
        form.tblUsers.Last();
        benchmark::DoNotOptimize(form.grdList.Rows(form.grdList.VisibleRows, 0));
    }
}

} // namespace

BENCHMARK(BM_OpenListAndGoToLast)->Arg(10000)->Arg(1000000)->Unit(benchmark::kMicrosecond);
