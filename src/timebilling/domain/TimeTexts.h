#pragma once

#include <string>

// The sentences of time billing, in one place: forms, tests and scenarios use the same words.
namespace corvane::timebilling::time_text {

inline std::string MustHaveValue(const std::string& label) {
    return "Field '" + label + "' must have a value";
}

inline constexpr const char* EmployeeNameUnique = "Employee Name must be unique";
inline constexpr const char* TypeNameUnique = "Type Name must be unique";
inline constexpr const char* AccountGone = "GL Account no longer exists";
inline constexpr const char* AccountNotFound = "GL Account not found";
inline constexpr const char* TaxCodesHint = "Applicable taxes.  example: PG  (PST and GST)";
inline std::string TaxCodeMissing(char code) {
    return std::string("Tax Code '") + code + "' does not exist on any taxes";
}
inline std::string TaxCodeTwice(char code) {
    return std::string("Tax Code '") + code + "' occurs more than once";
}
inline constexpr const char* TasksExistForType = "Task(s) exist for this task type";

inline std::string DeleteQuestion(const std::string& name) {
    return "Delete '" + name + "'?";
}
inline std::string UnableToDelete(const std::string& name, const std::string& reason) {
    return "Unable to delete '" + name + "'...\n" + reason;
}

// Jobs and their tasks.
inline constexpr const char* CustomerLocked =
    "Customer cannot be changed... \nTime Sheet(s) already exist";
inline constexpr const char* CustomerNotFound = "Customer not found";
inline std::string CustomerSuspended(const std::string& number, const std::string& name) {
    return "Customer '" + number + ": " + name + "' has been suspended";
}
inline constexpr const char* CustomerGone = "Customer no longer exists";
inline constexpr const char* TaskNameRequired =
    "Field 'Task Name' must have a value...\nMake changes or press Esc to undo";
inline constexpr const char* TaskTypeRequiredByTime =
    "Field 'Task Type' must have a value...\nTime Sheet(s) exist.\nMake changes or press Esc to "
    "undo";
inline constexpr const char* TaskTypeGone = "Task Type no longer exists";
inline std::string TaskKeyExists(const std::string& name) {
    return "Error posting task '" + name + "'...\nKey already existed.";
}
inline std::string TaskPostError(const std::string& name, int code, const std::string& text) {
    return "Error posting task '" + name + "'...\n" + std::to_string(code) + ": " + text + ".";
}
inline std::string DeleteTaskQuestion(const std::string& name) {
    return "Delete task '" + name + "'?";
}
inline std::string TaskHasTime(const std::string& name) {
    return "Unable to delete task '" + name + "'...\nTime Sheet(s) exist";
}
inline std::string DeleteJobQuestion(const std::string& name) {
    return "Delete job '" + name + "'?";
}
inline std::string JobHasTime(const std::string& name) {
    return "Unable to delete job '" + name + "'...\nTime Sheet(s) exist";
}

// Time sheets.
inline constexpr const char* JobNotForCustomer =
    "Job no longer exists or is not for selected customer";
inline constexpr const char* TaskNotForJob = "Task no longer exists or is not for selected job";
inline constexpr const char* TaskWithoutType =
    "Task Type has not been entered on this job task...\nTask Type is required for invoicing info";
inline constexpr const char* BilledCannotChange = "Billed time sheets cannot be changed.";
inline std::string DeleteTimeSheetQuestion(const std::string& label) {
    return "Delete time sheet '" + label + "'?";
}
inline std::string TimeSheetAlreadyDeleted(const std::string& label) {
    return "Unable to delete time sheet '" + label + "'...\nIt has already been deleted";
}
inline std::string TimeSheetMayBeBilled(const std::string& label) {
    return "Unable to delete time sheet '" + label +
           "'...\nIt may have been billed by another user";
}
inline std::string TimeSheetGoneOnEdit(const std::string& label) {
    return "Unable to edit time sheet '" + label + "'...\nIt has been deleted by another user.";
}

// Billing.
inline constexpr const char* InvoiceControlLocked =
    "Unable to open AR Invoice Control table exclusively.";
inline constexpr const char* TimeSheetsLocked =
    "Unable to lock Time Sheets table... this table is being updated by another job.";
inline constexpr const char* TimeSheetFormOpen =
    "A conflicting program is running...\nPlease close 'Time Sheet' form";
inline std::string AutoCreateQuestion(int period, int year) {
    return "AutoCreate invoices for period " + std::to_string(period) + "/" + std::to_string(year) +
           "?";
}
inline constexpr const char* PeriodOutOfRange = "Period must be between 1 and 12";
inline constexpr const char* YearInvalid =
    "Period invalid...\nEnter year as 2 digits.\nExample: for 2017 enter 17";
inline constexpr const char* ManualInvoice = "Manual Invoice";
inline constexpr const char* AutoCreateFromTime = "AutoCreate from time sheets";
inline std::string InvoicesCreated(int count) {
    return std::to_string(count) + " invoice(s) were created.";
}

} // namespace corvane::timebilling::time_text
