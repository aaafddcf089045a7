#include "timebilling/domain/AutoCreate.h"

#include "store/BulkWriter.h"
#include "store/Database.h"
#include "store/EngineError.h"
#include "store/LockManager.h"
#include "store/Query.h"
#include "store/Schema.h"
#include "store/Table.h"
#include "store/TableHold.h"
#include "timebilling/domain/NumberDraws.h"
#include "timebilling/domain/TimeTexts.h"

namespace corvane::timebilling {

namespace text = time_text;
using store::Value;

namespace {

// The hours are summed per task first, over the unbilled rows alone, and only then joined to
// the customer, the job, the task and its type: a join before the sum would carry every master
// field through the grouping of each of the rows. Grouping by the three ids loses nothing, since
// each joined field depends on one of them. Time on a task without a type drops out in the join.
constexpr const char* kUnbilledHours =
    "SELECT CustomerID, JobID, TaskID, SUM(Hours) TotalHours FROM TimeSht "
    "WHERE (InvoiceNo Is Null) and (WorkDate <= :CutOffDate) ";

constexpr const char* kSelection =
    "SELECT T.CustomerID, T.JobID, T.TaskID, C.CustomerName, C.CustomerNo, C.DiscPC, "
    "C.DiscDays, C.NetDays, C.COD, C.Prepayment, C.TermsText, C.Tax1ID, C.Tax2ID, "
    "C.Tax1ExemptionNo, C.Tax2ExemptionNo, C.CurrencyID, J.JobName, K.LineNo, K.RateOverride, "
    "TT.Rate, TT.TaxCodes, T.TotalHours FROM (";

constexpr const char* kJoins = ") T INNER JOIN Customer C ON T.CustomerID = C.CustomerID "
                               "INNER JOIN Job J ON T.JobID = J.JobID "
                               "INNER JOIN Task K ON T.TaskID = K.TaskID "
                               "INNER JOIN TaskType TT on K.TaskTypeID = TT.TaskTypeID ";

// The order of the groups is the order of the run: customers by name and number, jobs by name,
// tasks by their place on the job. The task's id makes each group's place unique.
constexpr const char* kOrder =
    "ORDER BY C.CustomerName, C.CustomerNo, T.CustomerID, J.JobName, T.JobID, K.LineNo, "
    "T.TaskID";

std::optional<std::int64_t> OptionalInt(const store::Field& f) {
    if (f.IsNull()) return std::nullopt;
    return f.AsInteger();
}

} // namespace

std::vector<BillingRow> SelectUnbilledTime(store::Database& db, const AutoCreateRequest& request) {
    std::string sql = std::string(kSelection) + kUnbilledHours;
    if (request.CustomerID) sql += "and (CustomerID=:CustomerID) ";
    if (request.JobID) sql += "and (JobID=:JobID) ";
    sql += std::string("GROUP BY CustomerID, JobID, TaskID") + kJoins + kOrder;
    store::Query q(db, sql);
    q.ParamByName("CutOffDate").SetAsDate(request.CutOff);
    if (request.CustomerID) q.ParamByName("CustomerID").SetAsInteger(*request.CustomerID);
    if (request.JobID) q.ParamByName("JobID").SetAsInteger(*request.JobID);
    q.Open();
    std::vector<BillingRow> rows;
    for (; !q.Eof(); q.Next()) {
        BillingRow r;
        r.CustomerID = q.FieldByName("CustomerID").AsInteger();
        r.JobID = q.FieldByName("JobID").AsInteger();
        r.TaskID = q.FieldByName("TaskID").AsInteger();
        r.CustomerName = q.FieldByName("CustomerName").AsString();
        r.CustomerNo = q.FieldByName("CustomerNo").AsString();
        if (!q.FieldByName("DiscPC").IsNull()) r.DiscPC = q.FieldByName("DiscPC").AsFloat();
        r.DiscDays = OptionalInt(q.FieldByName("DiscDays"));
        r.NetDays = OptionalInt(q.FieldByName("NetDays"));
        r.COD = q.FieldByName("COD").AsBoolean();
        r.Prepayment = q.FieldByName("Prepayment").AsBoolean();
        r.TermsText = q.FieldByName("TermsText").AsString();
        r.Tax1ID = OptionalInt(q.FieldByName("Tax1ID"));
        r.Tax2ID = OptionalInt(q.FieldByName("Tax2ID"));
        r.Tax1ExemptionNo = q.FieldByName("Tax1ExemptionNo").AsString();
        r.Tax2ExemptionNo = q.FieldByName("Tax2ExemptionNo").AsString();
        r.CurrencyID = OptionalInt(q.FieldByName("CurrencyID"));
        r.JobName = q.FieldByName("JobName").AsString();
        r.LineNo = q.FieldByName("LineNo").AsInteger();
        if (!q.FieldByName("RateOverride").IsNull())
            r.RateOverride = q.FieldByName("RateOverride").AsMoney();
        r.Rate = q.FieldByName("Rate").AsMoney();
        r.TaxCodes = q.FieldByName("TaxCodes").AsString();
        r.TotalHours = q.FieldByName("TotalHours").AsFloat();
        rows.push_back(std::move(r));
    }
    return rows;
}

TaxRates ReadTaxRates(store::Database& db) {
    TaxRates taxes;
    store::Query q(db, "SELECT TaxID, TaxCode, Rate FROM Tax");
    q.Open();
    for (; !q.Eof(); q.Next())
        taxes[q.FieldByName("TaxID").AsInteger()] =
            InvoiceTax{q.FieldByName("TaxCode").AsString(), q.FieldByName("Rate").AsFloat()};
    return taxes;
}

namespace {

// What the run writes: the invoices and their lines through the store's bulk writer, the stamp
// of the time through one statement prepared for all lines.
class InvoiceWriter {
public:
    explicit InvoiceWriter(store::Database& db)
        : invoices_(db, "ARInv", InvoiceFields()), lines_(db, "ARInvDet", LineFields()),
          // The task's own index finds its few rows. Left to itself the engine would walk every
          // unbilled row through InvoiceNoWorkDate for each task: the plus keeps that index out
          // of the choice. The customer and the job are those of the group billed, so a row is
          // stamped only if its hours were counted on the line.
          stamp_(db, "UPDATE TimeSht SET InvoiceNo = :InvoiceNo WHERE TaskID = :TaskID AND "
                     "CustomerID = :CustomerID AND JobID = :JobID AND +InvoiceNo IS NULL "
                     "AND WorkDate <= :CutOff") {
        stamp_.Prepare();
    }

    void Write(const BilledInvoice& inv, const InvoiceKeys& keys, const AutoCreateRequest& req) {
        const BillingRow& c = inv.Customer;
        auto opt = [](const auto& v) { return v ? Value(*v) : Value(); };
        auto code = [](const std::string& s) { return s.empty() ? Value() : Value(s); };
        auto rate = [](const std::optional<std::int64_t>& id, double r) {
            return id ? Value(r) : Value();
        };
        const std::string number = std::to_string(keys.InvoiceNo);
        invoices_.Add({Value(keys.ARInvoiceID),
                       Value(c.CustomerID),
                       Value(number),
                       opt(c.DiscPC),
                       opt(c.DiscDays),
                       opt(c.NetDays),
                       Value(c.COD),
                       Value(c.Prepayment),
                       Value(c.TermsText),
                       Value(req.GLYear),
                       Value(req.GLPeriod),
                       Value(req.InvoiceDate),
                       Value(inv.InvoiceAmount),
                       Value(inv.InvoiceAmount),
                       Value(false),
                       Value(false),
                       Value(true),
                       opt(c.CurrencyID),
                       opt(inv.Tax1ID),
                       opt(inv.Tax2ID),
                       code(inv.Tax1.Code),
                       rate(inv.Tax1ID, inv.Tax1.Rate),
                       code(inv.Tax2.Code),
                       rate(inv.Tax2ID, inv.Tax2.Rate),
                       Bucket(inv, 0, true),
                       Bucket(inv, 1, true),
                       Bucket(inv, 2, true),
                       Bucket(inv, 0, false),
                       Bucket(inv, 1, false),
                       Bucket(inv, 2, false)});
        stamp_.ParamByName("InvoiceNo").SetAsString(number);
        stamp_.ParamByName("CutOff").SetAsDate(req.CutOff);
        stamp_.ParamByName("CustomerID").SetAsInteger(c.CustomerID);
        for (const BilledLine& line : inv.Lines) {
            lines_.Add({Value(keys.ARInvoiceID), Value(line.Seq), Value(line.Quantity),
                        Value(line.UnitPrice), Value(line.UnitPrice), Value(line.TaxCodes),
                        Value(line.JobID), Value(line.TaskID)});
            stamp_.ParamByName("TaskID").SetAsInteger(line.TaskID);
            stamp_.ParamByName("JobID").SetAsInteger(line.JobID);
            stamp_.ExecSQL();
        }
    }

private:
    static std::vector<std::string> InvoiceFields() {
        return {"ARInvoiceID",
                "CustomerID",
                "InvoiceNo",
                "DiscPC",
                "DiscDays",
                "NetDays",
                "COD",
                "Prepayment",
                "TermsText",
                "GLYear",
                "GLPeriod",
                "InvoiceDate",
                "InvoiceAmount",
                "Owing",
                "Printed",
                "Posted",
                "TimeInvoice",
                "CurrencyID",
                "Tax1ID",
                "Tax2ID",
                "Tax1Code",
                "Tax1Rate",
                "Tax2Code",
                "Tax2Rate",
                "TaxableAmtCode1",
                "TaxableAmtCode2",
                "TaxableAmtCode3",
                "TaxableAmount1",
                "TaxableAmount2",
                "TaxableAmount3"};
    }
    static std::vector<std::string> LineFields() {
        return {"ARInvoiceID", "Seq",      "Quantity", "UnitPriceB4Disc",
                "UnitPrice",   "TaxCodes", "JobID",    "TaskID"};
    }
    static Value Bucket(const BilledInvoice& inv, int k, bool wantCode) {
        const receivables::TaxBucket& bucket = inv.Buckets[k];
        if (bucket.Code.empty()) return Value();
        return wantCode ? Value(bucket.Code) : Value(bucket.Amount);
    }

    store::BulkInsert invoices_, lines_;
    store::Query stamp_;
};

} // namespace

AutoCreateResult AutoCreateRun::Run(const AutoCreateRequest& request,
                                    const RetryQuestion& askRetry) {
    AutoCreateResult result;
    store::Table ctl(db_, "ARInvCtl");
    store::ExclusiveOpen ctlHeld(ctl, text::InvoiceControlLocked, askRetry);
    store::Table timeSheets(db_, "TimeSht");
    store::TableLock timeSheetsLocked(timeSheets, text::TimeSheetsLocked, askRetry);
    // Nobody may hold the invoice tables locked while rows go in.
    auto invoices =
        db_.Locks().GuardWrite(db_.LockSlot(store::Database::MainSchema, "ARInv"), "ARInv");
    auto lines =
        db_.Locks().GuardWrite(db_.LockSlot(store::Database::MainSchema, "ARInvDet"), "ARInvDet");

    store::Transaction transaction(db_, {"ARInvCtl", "ARInv", "ARInvDet", "TimeSht"});
    // Read under the locks: nothing can be billed twice.
    const std::vector<BillingRow> rows = SelectUnbilledTime(db_, request);
    if (rows.empty()) {
        result.NoTime = true;
        return result;
    }
    const std::vector<BilledInvoice> planned = BillTime(rows, ReadTaxRates(db_));
    InvoiceWriter writer(db_);
    for (const BilledInvoice& invoice : planned) {
        const InvoiceKeys keys = DrawTimeInvoiceKeys(db_, ctl);
        // An invoice of nothing is not made; its time stays unbilled.
        if (invoice.Vanishes()) continue;
        writer.Write(invoice, keys, request);
        ++result.InvoicesMade;
        if (OnInvoiceWritten) OnInvoiceWritten(result.InvoicesMade);
    }
    transaction.Commit();
    return result;
}

} // namespace corvane::timebilling
