#pragma once

#include "banking/reports/MasterListReport.h"

namespace corvane::receivables {

// "AR Payments": the payments as their list shows them, in its order and under its filter: date,
// period, reference, customer, how paid and the amount, with the count and the total at the end.
class TrptARPayments : public banking::MasterListReport {
public:
    // checkWording: "Check" for "Cheque", where the regional country writes it so.
    TrptARPayments(store::Database& db, bool checkWording);

    store::Table tblCustomer;
};

} // namespace corvane::receivables
