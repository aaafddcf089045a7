#include "support/CompanyFixture.h"

#include "store/tables/CompanyDatabase.h"

#include <cstdlib>
#include <unistd.h>

namespace corvane::testing {

namespace fs = std::filesystem;

TempFolder::TempFolder() {
    std::string pattern = (fs::temp_directory_path() / "corvane-test-XXXXXX").string();
    if (!mkdtemp(pattern.data())) throw std::runtime_error("mkdtemp failed");
    path_ = pattern;
}

TempFolder::~TempFolder() {
    std::error_code ec;
    fs::remove_all(path_, ec);
}

void CompanyTest::SetUp() {
    store::tables::CreateCompanyDatabase(folder_.Path());
    session_.LockRetryCount = 3;
    session_.LockWaitTime = 10;
    db_.SetDirectory(folder_.Path());
    db_.Open();
}

void CompanyTest::TearDown() {
    db_.Close();
}

void CompanyTest::CreateTable(const store::TableDef& def) {
    db_.CreateTable(def);
}

void CompanyTest::InsertRow(const std::string& table,
                            const std::vector<std::pair<std::string, store::Value>>& values) {
    store::Table t(db_, table);
    t.Open();
    t.Insert();
    for (const auto& [name, value] : values)
        t.FieldByName(name).SetValue(value);
    t.Post();
}

std::int64_t CompanyTest::CountRows(const std::string& table) {
    store::Table t(db_, table);
    t.Open();
    return t.RecordCount();
}

void CompanyTest::FillGLHistLine(store::Table& t, int jvNumber, corvane::Date date,
                                 corvane::Money amount) {
    t.FieldByName("GLAccountID").SetAsInteger(1);
    t.FieldByName("GLYear").SetAsInteger(2017);
    t.FieldByName("GLPeriod").SetAsInteger(1);
    t.FieldByName("Source").SetAsString("GL");
    t.FieldByName("JVNumber").SetAsInteger(jvNumber);
    t.FieldByName("TransDate").SetAsDate(date);
    t.FieldByName("Amount").SetAsMoney(amount);
}

} // namespace corvane::testing
