#include "timebilling/reports/TrptJobs.h"

namespace corvane::timebilling {

TrptJobs::TrptJobs(store::Database& db)
    : MasterListReport(db, "Job", "Jobs", "PriorityDueDate",
                       {{"Priority", "Priority", 40},
                        {"DueDate", "Due", 56},
                        {"CustomerName", "Customer", 150},
                        {"JobName", "Job", 200},
                        {"Authorized", "OK", 36},
                        {"Completed", "Completed", 50}}),
      tblCustomer(db, "Customer") {
    tblCustomer.Open();
    Rows.AddLookupField("CustomerName", store::FieldType::String, 40, "CustomerID", tblCustomer,
                        "CustomerID", "CustomerName");
}

} // namespace corvane::timebilling
