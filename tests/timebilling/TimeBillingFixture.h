#pragma once

#include "core/Date.h"
#include "core/Money.h"
#include "store/Query.h"
#include "support/CompanyFixture.h"

#include <optional>
#include <string>

namespace corvane::testing {

// A company with what time billing stands on: accounts, taxes, customers, employees, task types,
// jobs with tasks, time sheets. Ids are given by the tests so that they can name them.
class TimeBillingTest : public CompanyTest {
protected:
    void AddAccount(int id, const std::string& no, const std::string& name, int type = 3) {
        InsertRow(
            "GLAccnt",
            {{"GLAccountID", id}, {"GLAccount", no}, {"AccountName", name}, {"AccountType", type}});
    }
    void AddTax(int id, const std::string& name, const std::string& code, double rate) {
        InsertRow("Tax", {{"TaxID", id},
                          {"TaxName", name},
                          {"Rate", rate},
                          {"TaxCode", code},
                          {"TaxDescription", name},
                          {"TaxGLAccountID", 1}});
    }
    void AddCustomer(int id, const std::string& no, const std::string& name,
                     std::optional<int> tax1 = {}, std::optional<int> tax2 = {},
                     const std::string& exemption1 = {}) {
        InsertRow("Customer", {{"CustomerID", id},
                               {"CustomerNo", no},
                               {"CustomerName", name},
                               {"Tax1ID", tax1 ? store::Value(*tax1) : store::Value()},
                               {"Tax2ID", tax2 ? store::Value(*tax2) : store::Value()},
                               {"Tax1ExemptionNo",
                                exemption1.empty() ? store::Value() : store::Value(exemption1)},
                               {"NetDays", 30},
                               {"TermsText", "Net 30"},
                               {"Suspended", false}});
    }
    void AddEmployee(int id, const std::string& name) {
        InsertRow("Employee", {{"EmployeeID", id}, {"EmployeeName", name}});
    }
    void AddTaskType(int id, const std::string& name, Money rate, const std::string& codes,
                     int account = 40) {
        InsertRow("TaskType", {{"TaskTypeID", id},
                               {"TypeName", name},
                               {"Rate", rate},
                               {"SalesGLAccountID", account},
                               {"TaxCodes", codes}});
    }
    void AddJob(int id, int customer, const std::string& name, bool authorized = true,
                bool completed = false) {
        InsertRow("Job", {{"JobID", id},
                          {"JobName", name},
                          {"CustomerID", customer},
                          {"Priority", 10},
                          {"DueDateEntered", "B"},
                          {"Authorized", authorized},
                          {"Completed", completed}});
    }
    void AddTask(int id, int job, int line, const std::string& name, std::optional<int> type,
                 std::optional<Money> rateOverride = {}) {
        InsertRow("Task",
                  {{"TaskID", id},
                   {"JobID", job},
                   {"LineNo", line},
                   {"TaskName", name},
                   {"TaskTypeID", type ? store::Value(*type) : store::Value()},
                   {"RateOverride", rateOverride ? store::Value(*rateOverride) : store::Value()},
                   {"Completed", false}});
    }
    void AddTime(int customer, int job, int task, int employee, Date date, double hours,
                 const std::string& invoiceNo = {}) {
        InsertRow("TimeSht",
                  {{"CustomerID", customer},
                   {"JobID", job},
                   {"TaskID", task},
                   {"EmployeeID", employee},
                   {"WorkDate", date},
                   {"Hours", hours},
                   {"InvoiceNo", invoiceNo.empty() ? store::Value() : store::Value(invoiceNo)}});
    }
    // The first column of the first row of a query, as text ("" for null).
    std::string Scalar(const std::string& sql) {
        store::Query q(db_, sql);
        q.Open();
        return q.IsEmpty() ? "" : q.Fields().front()->AsString();
    }
    // The usual masters: accounts, GST 5% (G) and PST 8% (P), two employees.
    void AddMasters() {
        AddAccount(1, "2100", "Taxes payable", 2);
        AddAccount(40, "4000", "Consulting revenue", 3);
        AddTax(1, "GST", "G", 5.0);
        AddTax(2, "PST", "P", 8.0);
        AddEmployee(1, "Ann Lee");
        AddEmployee(2, "Bob Roy");
    }
};

} // namespace corvane::testing
