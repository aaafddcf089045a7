#pragma once

#include "store/Value.h"
#include "timebilling/domain/Verdict.h"

#include <cstdint>
#include <string>
#include <vector>

namespace corvane::store {
class Database;
class DataSet;
} // namespace corvane::store

namespace corvane::timebilling {

// Which jobs a time sheet may name. Time goes only on authorized, unfinished jobs of its
// customer; a row being edited keeps the job it has until its customer is chosen again.
enum class JobChoice {
    OpenJobsOfCustomer, // (CustomerID = c) AND (NOT Completed) AND (Authorized)
    AnyJobOfCustomer,   // CustomerID = c
};

// The filters of the job and task lists of the time sheet form.
std::string JobListFilter(const store::Value& customerId, JobChoice choice);
std::string TaskListFilter(const store::Value& jobId);

// The nine checks of a time sheet, in order. A billed row is refused before any of them.
Verdict CheckTimeSheet(store::Database& db, store::DataSet& timeSheet, JobChoice choice);

// How a time sheet is named in the questions and refusals: "<date> <employee>".
std::string TimeSheetLabel(store::Database& db, store::DataSet& timeSheet);

enum class DeleteResult { Deleted, AlreadyDeleted, ChangedOrBilled };

// Deletes the time sheet the list showed as shown (its stored values in field order): the row is
// locked first, then compared with what was shown; one that went meanwhile, changed meanwhile or
// has been billed stays as it is.
DeleteResult DeleteTimeSheet(store::Database& db, const std::vector<store::Value>& shown);

} // namespace corvane::timebilling
