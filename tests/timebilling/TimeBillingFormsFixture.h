#pragma once

#include "timebilling/TimeBillingFixture.h"
#include "ui/HeadlessApp.h"

namespace corvane::testing {

// Time billing's forms on a company with its masters, driven headless.
class TimeBillingFormsTest : public TimeBillingTest, protected HeadlessApp {
protected:
    void SetUp() override {
        TimeBillingTest::SetUp();
        AddMasters();
        AddCustomer(1, "C1", "Acme", 1, 2);
        AddCustomer(2, "C2", "Bolt", 1);
        AddTaskType(1, "Design", Money::FromWhole(90), "GP");
        AddTaskType(2, "Travel", Money::FromWhole(40), "G");
    }
};

} // namespace corvane::testing
