#include "receivables/reports/TrptCustomers.h"

#include "shell/lookups/LookUpCalcFields.h"

namespace corvane::receivables {

TrptCustomers::TrptCustomers(store::Database& db)
    : MasterListReport(db, "Customer", "Customers", "CustomerName1",
                       {{"CustomerNo", "Customer no.", 60},
                        {"CustomerName", "Name", 150},
                        {"Address", "Address", 190},
                        {"Phone", "Phone", 70},
                        {"Contact", "Contact", 70}}) {
    shell::AddOneLineAddress(Rows);
}

TrptCusTypes::TrptCusTypes(store::Database& db)
    : MasterListReport(db, "CusType", "Customer Types", "TypeName1",
                       {{"TypeName", "Type Name", 250}}) {}

TrptSalesmen::TrptSalesmen(store::Database& db)
    : MasterListReport(db, "Salesman", "Salesmen", "FullName",
                       {{"FullName", "Name", 180},
                        {"JobTitle", "Job Title", 160},
                        {"BusinessPhone", "Phone", 100}}) {
    shell::AddSalesmanFullName(Rows);
}

} // namespace corvane::receivables
