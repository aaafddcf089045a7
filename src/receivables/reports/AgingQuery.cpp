#include "receivables/reports/AgingQuery.h"

#include "store/Query.h"

namespace corvane::receivables {

namespace {

// What the invoice had received by the as-of date: posted payments, discounts and write-offs.
constexpr const char* kPaidAsOf =
    "COALESCE(SUM(IF (P.PaymentDate <= :AsOfDate AND (P.Posted = true) THEN IP.PaymentAmount "
    "ELSE 0)),0) + "
    "COALESCE(SUM(IF (P.PaymentDate <= :AsOfDate AND (P.Posted = true) THEN IP.DiscTakenAmount "
    "ELSE 0)),0) + "
    "COALESCE(SUM(IF (P.PaymentDate <= :AsOfDate AND (P.Posted = true) THEN IP.WriteOffAmount "
    "ELSE 0)),0) AS PaidDiscWriteOff ";

constexpr const char* kStatementFields =
    ", I.Description, I.NetDays, C.AddressLine1, C.AddressLine2, C.City, C.StateProv, "
    "C.ZipCode, C.Country, C.CustomerMessage, Cu.CurrencyName";

} // namespace

std::string AgingStatement(AgingShape shape, const ARReportOptions& options, bool oneCustomer) {
    const bool invoices = shape != AgingShape::Customers;
    const bool statement = shape == AgingShape::Statement;
    std::string columns = invoices
                              ? "I.ARInvoiceID, I.InvoiceNo, I.InvoiceDate, I.InvoiceAmount, "
                                "I.CustomerID, I.Posted, "
                              : "I.ARInvoiceID, I.InvoiceDate, I.InvoiceAmount, I.CustomerID, ";
    columns += "C.CustomerNo, C.CustomerName, C.CurrencyID, C.Phone, Cu.ExchangeRate";
    std::string groupBy = columns;
    if (statement) {
        columns += kStatementFields;
        groupBy += kStatementFields;
    }
    std::string sql = "SELECT " + columns + ", " + kPaidAsOf +
                      "FROM ARInv I "
                      "INNER JOIN Customer C ON I.CustomerID = C.CustomerID "
                      "INNER JOIN Currency Cu ON C.CurrencyID = Cu.CurrencyID "
                      "LEFT OUTER JOIN ARInvPmt IP ON IP.ARInvoiceID = I.ARinvoiceID "
                      "LEFT OUTER JOIN ARPmt P ON P.PaymentID = IP.PaymentID "
                      "WHERE (I.InvoiceDate <= :AsOfDate)";
    sql += " AND (I.Posted = true)";
    if (options.CurrencyID) sql += " AND (C.CurrencyID = :CurrencyID)";
    if (!statement && options.SalesmanID) sql += " AND (C.SalesmanID = :SalesmanID)";
    if (options.CustomerID || oneCustomer)
        sql += " AND (I.CustomerID = :CustomerID)";
    else if (statement)
        sql += " AND (C.PrintStatement = True)";
    sql += " GROUP BY " + groupBy.substr(0) +
           " HAVING (I.InvoiceAmount - PaidDiscWriteOff) > 0.0001 OR "
           "(I.InvoiceAmount - PaidDiscWriteOff) < -0.0001"
           " ORDER BY C.CustomerName, C.CustomerNo, I.InvoiceDate, I.InvoiceNo NOCASE";
    return sql;
}

void AddAgingFields(store::Query& query, Date asOf) {
    using store::FieldType;
    query.AddCalculatedField("Owing", FieldType::Currency);
    query.AddCalculatedField("OwingDomestic", FieldType::Currency);
    query.AddCalculatedField("Age", FieldType::Integer);
    for (int n = 1; n <= 4; ++n) {
        query.AddCalculatedField("AgePeriod" + std::to_string(n) + "Amt", FieldType::Currency);
        query.AddCalculatedField("AgePeriod" + std::to_string(n) + "Dom", FieldType::Currency);
    }
    query.AddCalculatedField("CustomerNamePhone", FieldType::String, 80);
    query.OnCalcFields = [asOf](store::DataSet& ds) {
        const Money owing = ds.FieldByName("InvoiceAmount").AsMoney() -
                            ds.FieldByName("PaidDiscWriteOff").AsMoney();
        const double rate = ds.FieldByName("ExchangeRate").AsFloat();
        const Money domestic = DomesticAmount(owing, rate);
        const int age = asOf - ds.FieldByName("InvoiceDate").AsDate();
        ds.FieldByName("Owing").SetAsMoney(owing);
        ds.FieldByName("OwingDomestic").SetAsMoney(domestic);
        ds.FieldByName("Age").SetAsInteger(age);
        const int column = AgeColumn(age);
        for (int n = 1; n <= 4; ++n) {
            const std::string name = "AgePeriod" + std::to_string(n);
            ds.FieldByName(name + "Amt").SetAsMoney(n == column ? owing : Money());
            ds.FieldByName(name + "Dom").SetAsMoney(n == column ? domestic : Money());
        }
        ds.FieldByName("CustomerNamePhone")
            .SetAsString(ds.FieldByName("CustomerName").AsString() + "   " +
                         ds.FieldByName("Phone").AsString());
    };
}

void ApplyThresholds(store::Query& query, store::Database& db, const ARReportOptions& options) {
    const AgingThresholds thresholds = options.Thresholds;
    if (thresholds.MinOwing <= Money() && thresholds.MinDaysOld <= 0) return;
    auto sums = std::make_shared<CustomerOpenSums>(db);
    const Date asOf = options.AsOf;
    query.OnFilterRecord = [sums, thresholds, asOf](store::DataSet& ds) {
        return thresholds.Pass(sums->Find(ds.FieldByName("CustomerID").AsInteger()), asOf);
    };
    query.SetFiltered(true);
}

} // namespace corvane::receivables
