#include "support/BenchCompany.h"

#include "store/tables/CompanyDatabase.h"

#include <filesystem>
#include <map>

namespace corvane::bench {

using namespace corvane::store;
namespace fs = std::filesystem;

void FillGLHist(Table& t, int i) {
    t.Insert();
    t.FieldByName("GLAccountID").SetAsInteger(1 + i % 40);
    t.FieldByName("GLYear").SetAsInteger(2010 + i % 8);
    t.FieldByName("GLPeriod").SetAsInteger(1 + i % 12);
    t.FieldByName("Source").SetAsString(i % 2 ? "AR" : "AP");
    t.FieldByName("TransType").SetAsString("Inv");
    t.FieldByName("JVNumber").SetAsInteger(i / 4);
    t.FieldByName("JVID").SetAsInteger(i / 4);
    t.FieldByName("TransDate").SetAsDate(Date::FromYmd(2010 + i % 8, 1 + i % 12, 1 + i % 28));
    t.FieldByName("Amount").SetAsMoney(Money::FromCents(i * 7 - 50000));
    t.FieldByName("TransDescription").SetAsString("Invoice line " + std::to_string(i));
    t.FieldByName("Reconciled").SetAsBoolean(false);
    t.Post();
}

BenchCompany::BenchCompany(int rows) {
    folder =
        (fs::temp_directory_path() / ("corvane-bench-glhist-" + std::to_string(rows))).string();
    if (!Database::IsDatabaseFolder(folder)) {
        fs::remove_all(folder);
        tables::CreateCompanyDatabase(folder);
        Database build(session);
        build.SetDirectory(folder);
        build.Open();
        Table t(build, "GLHist");
        t.Open();
        for (int done = 0; done < rows;) {
            Transaction tx(build, {"GLHist"});
            for (int n = 0; n < 50000 && done < rows; ++n, ++done)
                FillGLHist(t, done);
            tx.Commit();
        }
    }
    db = std::make_unique<Database>(session);
    db->SetDirectory(folder);
    db->Open();
}

BenchCompany& CompanyOf(int rows) {
    static std::map<int, std::unique_ptr<BenchCompany>> companies;
    auto& c = companies[rows];
    if (!c) c = std::make_unique<BenchCompany>(rows);
    return *c;
}

} // namespace corvane::bench
