#include "support/CompanyFixture.h"

#include "store/sql/Connection.h"
#include "store/tables/CompanyDatabase.h"

#include <cstdlib>
#include <fstream>
#include <stdexcept>
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

void CompanyTest::DamageObject(const std::string& objectName) {
    std::int64_t page = 0, pageSize = 0;
    {
        store::Statement s(db_.Conn(), "SELECT rootpage FROM sqlite_schema WHERE name = ?1");
        s.Bind(1, store::Value(objectName));
        if (!s.Step()) throw std::runtime_error("no object " + objectName);
        page = s.ColumnInt(0);
        store::Statement p(db_.Conn(), "PRAGMA page_size");
        p.Step();
        pageSize = p.ColumnInt(0);
    }
    db_.Close();
    {
        std::fstream f(folder_.Path() + "/company.DAT",
                       std::ios::in | std::ios::out | std::ios::binary);
        f.seekp((page - 1) * pageSize);
        std::string garbage(static_cast<std::size_t>(pageSize), '\xA5');
        f.write(garbage.data(), static_cast<std::streamsize>(garbage.size()));
    }
    db_.Open();
}

} // namespace corvane::testing
