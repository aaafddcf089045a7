#include "receivables/domain/CustomerImport.h"

#include "core/Exception.h"
#include "receivables/domain/CustomerRecord.h"
#include "store/DataSet.h"
#include "store/NumberDraw.h"

namespace corvane::receivables {

banking::ImportTarget CustomerImport(store::Database& db) {
    banking::ImportTarget target;
    target.Table = "Customer";
    target.Label = "Customer";
    target.TransactionTables = {"Customer", "CustCtl"};
    target.NewRecord = [&db](store::DataSet& customer) {
        // Nobody is there to be asked: a control table that stays busy refuses the row.
        auto keys = DrawCustomerKeys(db, [](const std::string&) { return false; });
        if (!keys) throw Exception(store::ControlTableBusyMessage("Customer"));
        customer.FieldByName("CustomerNo").SetAsString(keys->CustomerNo);
        customer.FieldByName("CustomerID").SetAsInteger(keys->CustomerID);
        SetNewCustomerDefaults(db, customer);
    };
    target.Check = [&db](store::DataSet& customer) { return CheckCustomer(db, customer); };
    target.KeyViolationMessage = std::string(CustomerNoTakenMessage);
    return target;
}

} // namespace corvane::receivables
