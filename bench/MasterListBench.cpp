// The customers and items lists on 1,000 and on 100,000 rows: opening the list and drawing its
// first page, finding a row by typing three letters into the search form (each key moves the
// grid), and a filter by type and suspension with the first page drawn. Each step is one
// benchmark iteration; the two sizes show whether a step grows with the table.
#include "inventory/items/TfrmItemSearch.h"
#include "inventory/items/TfrmItems.h"
#include "receivables/customers/TfrmCustomerSearch.h"
#include "receivables/customers/TfrmCustomers.h"
#include "shell/lookups/TdmLookUps.h"
#include "store/Database.h"
#include "store/Session.h"
#include "store/Table.h"
#include "store/tables/CompanyDatabase.h"
#include "ui/Application.h"
#include "ui/FormDriver.h"
#include "ui/HeadlessDesktop.h"
#include "ui/HeadlessDialogs.h"
#include "ui/HeadlessHost.h"

#include <benchmark/benchmark.h>

#include <array>
#include <cstdint>
#include <filesystem>
#include <map>
#include <memory>

using namespace corvane;
namespace fs = std::filesystem;

namespace {

constexpr std::array kWords{"Birch", "Aspen",  "Maple",  "Cedar", "Spruce", "Willow", "Oak",
                            "Pine",  "Alder",  "Hazel",  "Rowan", "Laurel", "Holly",  "Elm",
                            "Ash",   "Poplar", "Walnut", "Larch", "Cherry", "Linden"};
constexpr std::array kTrades{"Lumber", "Homes", "Supply", "Traders", "Marine", "Tools", "Foods"};

std::string NameOf(int i) {
    return std::string(kWords[(i * 7) % kWords.size()]) + " " + kTrades[(i / 3) % kTrades.size()] +
           " " + std::to_string(i);
}

// A type spread over the names as a real company's types are: not a function of the name.
int TypeOf(int i, int types) {
    return static_cast<int>(((static_cast<std::uint32_t>(i) * 2654435761u) >> 11) %
                            static_cast<std::uint32_t>(types));
}

// A company of |rows| customers and |rows| items, made once and kept in the temporary folder.
struct MastersCompany {
    explicit MastersCompany(int rows) {
        folder = (fs::temp_directory_path() / ("corvane-bench-masters-v2-" + std::to_string(rows)))
                     .string();
        if (!store::Database::IsDatabaseFolder(folder)) Build(rows);
        db = std::make_unique<store::Database>(session);
        db->SetDirectory(folder);
        db->Open();
    }
    void Build(int rows) {
        fs::remove_all(folder);
        store::tables::CreateCompanyDatabase(folder);
        store::Database build(session);
        build.SetDirectory(folder);
        build.Open();
        store::Transaction tx(build, {"Customer", "Item"});
        store::Table customer(build, "Customer");
        customer.Open();
        store::Table item(build, "Item");
        item.Open();
        for (int i = 0; i < rows; ++i) {
            customer.Append();
            customer.FieldByName("CustomerID").SetAsInteger(10000 + i);
            customer.FieldByName("CustomerNo").SetAsString(std::to_string(1001 + i));
            customer.FieldByName("CustomerName").SetAsString(NameOf(i));
            customer.FieldByName("City").SetAsString(kWords[i % kWords.size()]);
            customer.FieldByName("CurrencyID").SetAsInteger(1 + i % 2);
            customer.FieldByName("CustomerTypeID").SetAsInteger(1 + TypeOf(i, 5));
            customer.FieldByName("Suspended").SetAsBoolean(i % 10 == 0);
            customer.Post();
            item.Append();
            item.FieldByName("ItemID").SetAsInteger(10000 + i);
            item.FieldByName("ItemNo").SetAsString(std::to_string(1001 + i));
            item.FieldByName("ItemDescription").SetAsString(NameOf(i * 13));
            item.FieldByName("ItemTypeID").SetAsInteger(1 + TypeOf(i, 4));
            item.FieldByName("SalesGLAccountID").SetAsInteger(1);
            item.FieldByName("UnitPrice").SetAsMoney(Money::FromCents(100 + i % 5000));
            item.FieldByName("Suspended").SetAsBoolean(i % 10 == 0);
            item.Post();
        }
        tx.Commit();
    }
    std::string folder;
    store::Session session;
    std::unique_ptr<store::Database> db;
};

MastersCompany& CompanyOf(int rows) {
    static std::map<int, std::unique_ptr<MastersCompany>> companies;
    auto& c = companies[rows];
    if (!c) c = std::make_unique<MastersCompany>(rows);
    return *c;
}

// The program around a list: host, dialogs, desktop, application and look-up cursors.
struct Program {
    ui::HeadlessHost host;
    ui::HeadlessDialogs dialogs;
    ui::HeadlessDesktop desktop;
    ui::Application app{host, dialogs, desktop};
    shell::TdmLookUps lookUps;
};

template <class List> void OpenList(benchmark::State& state) {
    auto& company = CompanyOf(static_cast<int>(state.range(0)));
    for (auto _ : state) {
        Program program;
        auto& list = program.app.CreateForm<List>(*company.db, program.lookUps);
        list.Show();
        benchmark::DoNotOptimize(list.grdList.Rows(0, list.grdList.VisibleRows));
    }
}

template <class Search>
void SearchByTyping(benchmark::State& state, const char* edit, const char* index) {
    auto& company = CompanyOf(static_cast<int>(state.range(0)));
    Program program;
    auto& search = program.app.CreateForm<Search>(*company.db);
    shell::SearchStart start;
    start.IndexName = index;
    search.Start(search.grdSearch, start);
    search.Show();
    ui::FormDriver driver(search);
    int round = 0;
    for (auto _ : state) {
        // Three keys, each a nearest match and a grid that follows it.
        const std::string typed = std::string(kWords[round++ % kWords.size()]).substr(0, 3);
        driver.EnterText(edit, typed);
        benchmark::DoNotOptimize(search.grdSearch.Rows(0, search.grdSearch.VisibleRows));
    }
    state.counters["keys"] = benchmark::Counter(3.0 * static_cast<double>(state.iterations()));
}

template <class List> void Filter(benchmark::State& state, const char* byType) {
    auto& company = CompanyOf(static_cast<int>(state.range(0)));
    Program program;
    auto& list = program.app.CreateForm<List>(*company.db, program.lookUps);
    list.Show();
    int round = 0;
    for (auto _ : state) {
        // What the filter form's OK does: the expression, filtering on, the list shown again.
        list.MainTable.SetFilter(std::string("(") + byType + " = " +
                                 std::to_string(1 + round++ % 4) + ") AND (Suspended <> true)");
        list.MainTable.SetFiltered(true);
        list.ShowList();
        benchmark::DoNotOptimize(list.grdList.Rows(0, list.grdList.VisibleRows));
    }
}

void BM_CustomersOpen(benchmark::State& s) {
    OpenList<receivables::TfrmCustomers>(s);
}
void BM_CustomersSearchByTyping(benchmark::State& s) {
    SearchByTyping<receivables::TfrmCustomerSearch>(s, "editFindCustomerName", "CustomerName1");
}
void BM_CustomersFilter(benchmark::State& s) {
    Filter<receivables::TfrmCustomers>(s, "CustomerTypeID");
}
// The worst case of a filter many rows pass: every passing row sits together at one place in
// the list's order (the city follows the name's first word here), so the first page is read only
// after the order index has been walked past all the rows before them.
void BM_CustomersFilterClustered(benchmark::State& state) {
    auto& company = CompanyOf(static_cast<int>(state.range(0)));
    Program program;
    auto& list = program.app.CreateForm<receivables::TfrmCustomers>(*company.db, program.lookUps);
    list.Show();
    int round = 0;
    for (auto _ : state) {
        list.MainTable.SetFilter(std::string("(City = '") + kWords[round++ % kWords.size()] + "')");
        list.MainTable.SetFiltered(true);
        list.ShowList();
        benchmark::DoNotOptimize(list.grdList.Rows(0, list.grdList.VisibleRows));
    }
}
void BM_ItemsOpen(benchmark::State& s) {
    OpenList<inventory::TfrmItems>(s);
}
void BM_ItemsSearchByTyping(benchmark::State& s) {
    SearchByTyping<inventory::TfrmItemSearch>(s, "editFindItemDescription", "ItemDescription1");
}
void BM_ItemsFilter(benchmark::State& s) {
    Filter<inventory::TfrmItems>(s, "ItemTypeID");
}

} // namespace

BENCHMARK(BM_CustomersOpen)->Arg(1000)->Arg(100000)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_CustomersSearchByTyping)->Arg(1000)->Arg(100000)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_CustomersFilter)->Arg(1000)->Arg(100000)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_CustomersFilterClustered)->Arg(1000)->Arg(100000)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_ItemsOpen)->Arg(1000)->Arg(100000)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_ItemsSearchByTyping)->Arg(1000)->Arg(100000)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_ItemsFilter)->Arg(1000)->Arg(100000)->Unit(benchmark::kMillisecond);
