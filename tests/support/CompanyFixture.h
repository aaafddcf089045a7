#pragma once

#include "store/Database.h"
#include "store/Session.h"
#include "store/Table.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

namespace corvane::testing {

// A folder of its own under the system's temporary folder, removed with everything in it.
class TempFolder {
public:
    TempFolder();
    ~TempFolder();
    const std::string& Path() const { return path_; }

private:
    std::string path_;
};

// Each test gets a fresh, empty company in a temporary folder, opened on a session whose lock
// retries are short so that refused locks fail fast.
class CompanyTest : public ::testing::Test {
protected:
    void SetUp() override;
    void TearDown() override;

    // A table of the test's own, created in the company.
    void CreateTable(const store::TableDef& def);
    // Inserts one row through a fresh cursor: fields and values in pairs.
    void InsertRow(const std::string& table,
                   const std::vector<std::pair<std::string, store::Value>>& values);
    std::int64_t CountRows(const std::string& table);
    // Fills the required fields of a GLHist line in insert: account 1, period 1 of 2017, source
    // "GL", the given voucher number, date and amount.
    // Writes garbage over the first page of a table or index of the company, as a failing disk
    // would; the test's own database is closed and opened again around it.
    void DamageObject(const std::string& objectName);
    static void FillGLHistLine(store::Table& t, int jvNumber, corvane::Date date,
                               corvane::Money amount);

    TempFolder folder_;
    store::Session session_;
    store::Database db_{session_};
};

} // namespace corvane::testing
