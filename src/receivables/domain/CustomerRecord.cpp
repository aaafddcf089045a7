#include "receivables/domain/CustomerRecord.h"

#include "banking/domain/RecordChecks.h"
#include "banking/domain/RowUse.h"
#include "store/Database.h"
#include "store/NumberDraw.h"
#include "store/Query.h"
#include "store/Table.h"

#include <array>

namespace corvane::receivables {

using banking::NoId;
using banking::RequiredField;

namespace {

constexpr std::array kCustomerUses{
    banking::RowUse{"Job", "CustomerID", "Job(s) exist"},
    banking::RowUse{"ARInv", "CustomerID", "Invoice(s) exist for this customer"},
};

// A reference that is set must name a row that is still there.
bool Dangling(store::Database& db, store::DataSet& record, std::string_view field,
              std::string_view table) {
    const store::Field& id = record.FieldByName(field);
    return !NoId(id) && !banking::RowExists(db, table, field, id.AsInteger());
}

void Exec(store::Database& db, const char* sql, std::int64_t customerId) {
    store::Query query(db, sql);
    query.ParamByName("ID").SetAsInteger(customerId);
    query.ExecSQL();
}

} // namespace

std::optional<CustomerKeys> DrawCustomerKeys(store::Database& db, const AskRetry& askRetry) {
    CustomerKeys keys;
    const bool drawn = store::DrawFromControl(
        db, "CustCtl", store::ControlRetry{"Customer", 150, 0},
        [&keys](store::ControlRow& row) {
            keys.CustomerNo = std::to_string(
                row.Take("NextCustomerNo", store::RestartOutside(1001, 10000000, 1001)));
            keys.CustomerID = row.Take("NextCustomerID", store::StartWhenZero(10000));
        },
        askRetry);
    if (!drawn) return std::nullopt;
    return keys;
}

void SetNewCustomerDefaults(store::Database& db, store::DataSet& customer) {
    store::Query company(db, "SELECT DefaultCurrencyID, DfltTax1ID, DfltTax2ID FROM Company");
    company.Open();
    if (!company.IsEmpty()) {
        for (auto [from, to] :
             {std::pair{"DefaultCurrencyID", "CurrencyID"}, std::pair{"DfltTax1ID", "Tax1ID"},
              std::pair{"DfltTax2ID", "Tax2ID"}}) {
            const store::Field& id = company.FieldByName(from);
            if (!id.IsNull() && id.AsInteger() > 0)
                customer.FieldByName(to).SetAsInteger(id.AsInteger());
        }
    }
    for (const char* off : {"COD", "Prepayment", "Suspended"})
        customer.FieldByName(off).SetAsBoolean(false);
    for (const char* on : {"PrintStatement", "AllowBackorders"})
        customer.FieldByName(on).SetAsBoolean(true);
}

Verdict CheckCustomer(store::Database& db, store::DataSet& customer) {
    if (Verdict missing =
            banking::FirstMissing(customer, {{"CustomerNo", "Customer no."},
                                             {"CustomerName", "Customer Name"},
                                             {"CurrencyID", "Currency", RequiredField::Id}}))
        return missing;
    if (Dangling(db, customer, "SalesmanID", "Salesman"))
        return Refusal{"SalesmanID", "Salesman no longer exists"};
    if (Dangling(db, customer, "CustomerTypeID", "CusType"))
        return Refusal{"CustomerTypeID", "Customer Type no longer exists"};
    if (Dangling(db, customer, "CurrencyID", "Currency"))
        return Refusal{"CurrencyID", "Currency no longer exists"};
    return std::nullopt;
}

Verdict CheckCurrencyChange(store::Database& db, std::int64_t customerId) {
    if (banking::AnyRowHolds(db, "ARInv", "CustomerID", customerId))
        return Refusal{"CurrencyID", "Currency cannot be changed... \nInvoice(s) already exist"};
    return std::nullopt;
}

std::string CustomerInUse(store::Database& db, std::int64_t customerId) {
    return banking::FirstUse(db, kCustomerUses, customerId);
}

void DeleteCustomer(store::Database& db, std::int64_t customerId) {
    store::Transaction transaction(db, {"CBalance", "CContact", "Customer"});
    Exec(db, "DELETE FROM CBalance WHERE CustomerID = :ID", customerId);
    Exec(db, "DELETE FROM CContact WHERE CustomerID = :ID", customerId);
    Exec(db, "DELETE FROM Customer WHERE CustomerID = :ID", customerId);
    transaction.Commit();
}

std::string CustomerLabel(std::string_view number, std::string_view name) {
    return std::string(number) + ": " + std::string(name);
}

} // namespace corvane::receivables
