#pragma once

#include "store/Database.h"
#include "store/Session.h"
#include "store/Table.h"

#include <memory>
#include <string>

namespace corvane::bench {

// Inserts the i-th made-up GLHist row through the cursor: forty accounts, eight years, four
// lines a voucher.
void FillGLHist(store::Table& t, int i);

// A company with `rows` GLHist rows in a folder under the temporary folder, kept between runs
// because a million rows take a while to make; open while it lives.
struct BenchCompany {
    explicit BenchCompany(int rows);
    std::string folder;
    store::Session session;
    std::unique_ptr<store::Database> db;
};

// The company of that many rows, made on first use in this process.
BenchCompany& CompanyOf(int rows);

} // namespace corvane::bench
