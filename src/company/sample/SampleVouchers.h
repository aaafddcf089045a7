#pragma once

#include "company/sample/SampleCompany.h"
#include "core/Money.h"
#include "store/BulkWriter.h"

#include <cstdint>
#include <optional>
#include <random>
#include <string>
#include <vector>

namespace corvane::store {
class Database;
}

namespace corvane::company {

// The sample's subaccounts: departments, regions and projects.
struct SampleDepartment {
    enum : int { Consulting = 1, Retail = 2, Administration = 3 };
};
struct SampleRegion {
    enum : int { East = 1, West = 2 };
};
struct SampleProject {
    enum : int { Website = 1, Warehouse = 2 };
};

// From this period of the fiscal year on, the sample's vouchers are still waiting to be posted.
inline constexpr int kFirstUnpostedPeriod = 10;

struct SampleLine {
    int Account = 0;
    std::optional<int> Sub[3];
    Money Amount;
};

struct SampleVoucher {
    std::string Description;
    std::vector<SampleLine> Lines;
    bool AutoReverse = false;
};

// Writes the sample's journal vouchers period by period: each month the fixed entries (rent,
// payroll, depreciation, the month-end currency entry) and then the day-to-day ones (sales,
// collections, purchases, payments, expenses) drawn in turn until the month has its share.
class SampleVoucherWriter {
public:
    enum class Phase { ToBePosted, LeftUnposted };

    SampleVoucherWriter(store::Database& db, const SampleShape& shape);

    // The periods of the phase: the year before and the fiscal year up to the last quarter, or
    // the last quarter. One transaction per phase; JVCtl learns the next id and number.
    void WritePeriods(Phase phase);

private:
    std::vector<SampleVoucher> MonthVouchers(int month, int count);
    SampleVoucher DayToDay(int month);
    Money Cents(int low, int high); // a whole-cent amount between the two whole dollar figures
    void Write(const SampleVoucher& voucher, int year, int period);

    store::Database& db_;
    store::BulkInsert jv_;
    store::BulkInsert lines_;
    SampleShape shape_;
    std::mt19937 engine_;
    int nextId_ = 0;
    int nextNumber_ = 0;
    int turn_ = 0;
};

} // namespace corvane::company
