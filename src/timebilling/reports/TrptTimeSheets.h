#pragma once

#include "banking/reports/MasterListReport.h"

namespace corvane::timebilling {

// The time sheets as their list shows them, in its order and under its filter: date, hours,
// employee, customer, job, task and invoice number. Captioned "Time Sheets (Outstanding)" when
// printed from the outstanding view.
class TrptTimeSheets : public banking::MasterListReport {
public:
    explicit TrptTimeSheets(store::Database& db);

    store::Table tblEmployee, tblCustomer, tblJob, tblTask;
};

} // namespace corvane::timebilling
