#include "receivables/domain/MasterRecords.h"

#include "banking/domain/RecordChecks.h"
#include "banking/domain/RowUse.h"
#include "store/DataSet.h"

namespace corvane::receivables {

Verdict CheckCustomerType(store::DataSet& type) {
    return banking::FirstMissing(type, {{"TypeName", "Type Name"}});
}

std::string CustomerTypeInUse(store::Database& db, std::int64_t customerTypeId) {
    const banking::RowUse use{"Customer", "CustomerTypeID",
                              "Customer(s) exist for this customer type"};
    return banking::FirstUse(db, {&use, 1}, customerTypeId);
}

Verdict CheckSalesman(store::DataSet& salesman) {
    if (banking::IsBlank(salesman.FieldByName("FirstName")) &&
        banking::IsBlank(salesman.FieldByName("LastName")))
        return MissingValue("LastName", "Salesman Name");
    return std::nullopt;
}

std::string SalesmanInUse(store::Database& db, std::int64_t salesmanId) {
    const banking::RowUse use{"Customer", "SalesmanID", "Customer(s) exist for this salesman"};
    return banking::FirstUse(db, {&use, 1}, salesmanId);
}

} // namespace corvane::receivables
