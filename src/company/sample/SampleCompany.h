#pragma once

#include <cstdint>

namespace corvane::store {
class Database;
}

namespace corvane::company {

// What the sample company holds. The same shape always gives the same company, row for row, so a
// fault seen in it can be seen again.
struct SampleShape {
    // Journal vouchers over the two years; the default is a demo of about twenty a month. A
    // stress company of a million history rows takes about 410,000.
    int Vouchers = 480;
    // The later of the two years; the company's fiscal year.
    int FiscalYear = 2017;
    std::uint32_t Seed = 20178;
};

inline constexpr const char* kSampleCompanyName = "Sample Data Company";

struct SampleSummary {
    int Vouchers = 0;
    int Unposted = 0;
    std::int64_t HistoryRows = 0;
};

// Fills an empty company (all tables made, no rows) as a small trading and consulting firm: the
// wizard's first rows, a second currency with its bank, subaccounts by department, region and
// project, and vouchers over the fiscal year and the one before, posted up to the last quarter
// of the fiscal year and unposted after it.
SampleSummary GenerateSampleCompany(store::Database& db, const SampleShape& shape = {});

} // namespace corvane::company
