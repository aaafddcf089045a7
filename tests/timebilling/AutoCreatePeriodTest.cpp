#include "timebilling/domain/AutoCreatePeriod.h"

#include <gtest/gtest.h>

using namespace corvane;
using corvane::ledger::CompanyPeriods;
using Kind = corvane::ledger::PeriodVerdict::Kind;

namespace {

CompanyPeriods Company2017() {
    CompanyPeriods c;
    c.FiscalYear = 2017;
    c.WarnFrom = {2017, 1};
    c.WarnTo = {2017, 12};
    c.ErrorFrom = {2016, 1};
    c.ErrorTo = {2018, 12};
    return c;
}

std::string Said(const CompanyPeriods& c, std::optional<int> year, std::optional<int> period) {
    return timebilling::JudgeAutoCreatePeriod(c, year, period).Message;
}

} // namespace

// Each refusal stands in front of the later ones: with everything wrong at once the user hears
// the first, and each one put right brings the next.
TEST(AutoCreatePeriod, RefusalsComeInTheirOrder) {
    CompanyPeriods none;
    EXPECT_EQ(Said(none, {}, {}),
              "Current fiscal year is not yet defined...\nSee \"Your Company\"");
    const CompanyPeriods c = Company2017();
    EXPECT_EQ(Said(c, {}, {}), "Field 'Year of Period' must have a value");
    EXPECT_EQ(Said(c, 2015, {}),
              "GL Period is prior to current fiscal year \nas defined by \"Your Company\"");
    EXPECT_EQ(Said(c, 2017, {}), "Field 'Period' must have a value");
    EXPECT_EQ(Said(c, 2019, 1),
              "GL Period is not within allowed range \nas defined by \"Your Company\"");
    const auto warning = timebilling::JudgeAutoCreatePeriod(c, 2018, 1);
    EXPECT_EQ(warning.Verdict, Kind::Warning);
    EXPECT_TRUE(timebilling::JudgeAutoCreatePeriod(c, 2017, 11).Accepted());
}
