#include "company/sample/SampleTimeBilling.h"

#include "core/Date.h"
#include "store/BulkWriter.h"
#include "store/Database.h"
#include "store/Query.h"
#include "timebilling/domain/AutoCreate.h"
#include "timebilling/domain/NumberDraws.h"

#include <string>
#include <vector>

namespace corvane::company {

namespace {

using store::Value;

struct SampleCustomer {
    const char* No;
    const char* Name;
};
constexpr SampleCustomer kCustomers[] = {
    {"1001", "Brightwater Dental"},     {"1002", "Corbel Architects"},
    {"1003", "Halvern Public Library"}, {"1004", "Northgate Logistics"},
    {"1005", "Pinecrest Veterinary"},
};

constexpr const char* kEmployees[] = {"Alice Moreau", "Daniel Okafor", "Priya Raman",
                                      "Tom Lindqvist"};

struct SampleTaskType {
    const char* Name;
    int RateCents;
};
constexpr SampleTaskType kTaskTypes[] = {
    {"Consulting", 12500}, {"Design", 9500}, {"Programming", 11000}, {"Travel", 4500}};

struct SampleJob {
    int Customer; // index into the customers used
    const char* Name;
    int Priority;
    const char* Tasks[4];
    int Types[4];
};
constexpr SampleJob kJobs[] = {
    {0,
     "Patient booking website",
     2,
     {"Requirements", "Page design", "Booking module", "Site visits"},
     {0, 1, 2, 3}},
    {1,
     "Project archive system",
     1,
     {"Analysis", "Database", "Search screens", "Training"},
     {0, 2, 2, 0}},
    {2, "Catalogue kiosk", 5, {"Kiosk layout", "Catalogue link", "Installation", ""}, {1, 2, 3, 0}},
    {3,
     "Fleet tracking reports",
     3,
     {"Report design", "Data import", "Review meetings", ""},
     {1, 2, 0, 0}},
    {4,
     "Clinic network upgrade",
     4,
     {"Survey", "Cabling plan", "On-site work", "Travel"},
     {0, 1, 0, 3}},
    {0, "Staff scheduling add-on", 8, {"Scoping", "Prototype", "", ""}, {0, 2, 0, 0}},
};

std::vector<std::int64_t> CustomerIds(store::Database& db) {
    store::Query q(db, "SELECT CustomerID FROM Customer WHERE (Suspended IS NULL OR Suspended = "
                       "false) AND CustomerNo <> '0' ORDER BY CustomerID");
    q.Open();
    std::vector<std::int64_t> ids;
    for (; !q.Eof(); q.Next())
        ids.push_back(q.FieldByName("CustomerID").AsInteger());
    return ids;
}

std::string FirstTaxCode(store::Database& db, std::optional<std::int64_t>& taxId) {
    store::Query q(db, "SELECT TaxID, TaxCode FROM Tax ORDER BY TaxID");
    q.Open();
    if (q.IsEmpty()) return {};
    taxId = q.FieldByName("TaxID").AsInteger();
    return q.FieldByName("TaxCode").AsString();
}

void WriteCustomers(store::Database& db, const std::optional<std::int64_t>& taxId) {
    store::BulkInsert customers(db, "Customer",
                                {"CustomerID", "CustomerNo", "CustomerName", "City", "Tax1ID",
                                 "CurrencyID", "NetDays", "TermsText", "Suspended",
                                 "PrintStatement"});
    int id = 1;
    for (const SampleCustomer& c : kCustomers)
        customers.Add({Value(id++), Value(std::string(c.No)), Value(std::string(c.Name)),
                       Value(std::string("Halvern")), taxId ? Value(*taxId) : Value(), Value(1),
                       Value(30), Value(std::string("Net 30 days")), Value(false), Value(true)});
}

} // namespace

void WriteSampleTimeBilling(store::Database& db, int fiscalYear) {
    std::optional<std::int64_t> taxId;
    const std::string taxCode = FirstTaxCode(db, taxId);
    std::vector<std::int64_t> customers;
    {
        store::Transaction masters(db,
                                   {"Customer", "Employee", "TaskType", "Job", "Task", "JobCtl"});
        if (CustomerIds(db).empty()) WriteCustomers(db, taxId);
        customers = CustomerIds(db);
        store::BulkInsert employees(db, "Employee", {"EmployeeID", "EmployeeName", "JobTitle"});
        int id = 1;
        for (const char* name : kEmployees)
            employees.Add(
                {Value(id++), Value(std::string(name)), Value(std::string("Consultant"))});
        store::BulkInsert types(db, "TaskType",
                                {"TaskTypeID", "TypeName", "Rate", "SalesGLAccountID", "TaxCodes"});
        id = 1;
        for (const SampleTaskType& t : kTaskTypes)
            types.Add({Value(id++), Value(std::string(t.Name)),
                       Value(Money::FromCents(t.RateCents)), Value(4), Value(taxCode)});
        store::BulkInsert jobs(db, "Job",
                               {"JobID", "JobName", "CustomerID", "RequestedOn", "Priority",
                                "Authorized", "Completed", "DueDateEntered", "DueDate",
                                "ProjectLeaderID", "EstimatedPrice"});
        store::BulkInsert tasks(db, "Task",
                                {"TaskID", "JobID", "LineNo", "TaskName", "TaskTypeID",
                                 "EmployeeID", "Completed", "EstimatedHours"});
        int leader = 0;
        for (const SampleJob& j : kJobs) {
            const std::int64_t jobId = timebilling::DrawJobId(db);
            const bool dated = j.Priority < 5;
            jobs.Add({Value(jobId), Value(std::string(j.Name)),
                      Value(customers[j.Customer % customers.size()]),
                      Value(Date::FromYmd(fiscalYear, 8, 15)), Value(j.Priority), Value(true),
                      Value(false), Value(std::string(dated ? "A" : "B")),
                      dated ? Value(Date::FromYmd(fiscalYear + 1, 1, 1).AddDays(10 * j.Priority))
                            : Value(),
                      Value(1 + leader++ % 4), Value(Money::FromWhole(5000 + 2500 * j.Priority))});
            for (int line = 0; line < 4 && j.Tasks[line][0]; ++line)
                tasks.Add({Value(timebilling::DrawTaskId(db)), Value(jobId), Value(line + 1),
                           Value(std::string(j.Tasks[line])), Value(j.Types[line] + 1),
                           Value(1 + (line + leader) % 4), Value(false), Value(8.0 * (line + 1))});
        }
        masters.Commit();
    }

    // Four months of time, a few rows each working day; the same every time.
    store::Query taskRows(db, "SELECT TaskID, JobID FROM Task ORDER BY TaskID");
    taskRows.Open();
    struct TaskRef {
        std::int64_t Task, Job, Customer;
    };
    std::vector<TaskRef> refs;
    for (; !taskRows.Eof(); taskRows.Next()) {
        const std::int64_t job = taskRows.FieldByName("JobID").AsInteger();
        refs.push_back({taskRows.FieldByName("TaskID").AsInteger(), job,
                        customers[kJobs[job - 1].Customer % customers.size()]});
    }
    {
        store::Transaction time(db, {"TimeSht"});
        store::BulkInsert sheets(db, "TimeSht",
                                 {"TimeSheetID", "CustomerID", "JobID", "TaskID", "EmployeeID",
                                  "WorkDate", "Hours", "Notes"});
        std::int64_t sheetId = 0;
        std::uint32_t seed = 17;
        auto next = [&seed] { return seed = seed * 1103515245u + 12345u, (seed >> 16) & 0x7fff; };
        for (Date d = Date::FromYmd(fiscalYear, 9, 1); d <= Date::FromYmd(fiscalYear, 12, 31);
             d = d.AddDays(1)) {
            if (d.DayOfWeek() == 1 || d.DayOfWeek() == 7) continue; // Sunday, Saturday
            for (int employee = 1; employee <= 4; ++employee) {
                const TaskRef& t = refs[next() % refs.size()];
                const double hours = 0.25 * (4 + next() % 25);
                sheets.Add({Value(++sheetId), Value(t.Customer), Value(t.Job), Value(t.Task),
                            Value(employee), Value(d), Value(hours), Value()});
            }
        }
        // The next time sheet typed follows on.
        db.NoteAutoIncValue(store::Database::MainSchema, "TimeSht", "TimeSheetID", sheetId);
        time.Commit();
    }

    // September and October are billed, as the firm bills at each month's end.
    timebilling::AutoCreateRequest request;
    request.CutOff = Date::FromYmd(fiscalYear, 10, 31);
    request.InvoiceDate = request.CutOff;
    request.GLYear = fiscalYear;
    request.GLPeriod = 10;
    timebilling::AutoCreateRun(db).Run(request, nullptr);
}

} // namespace corvane::company
