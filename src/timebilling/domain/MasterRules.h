#pragma once

#include "timebilling/domain/Verdict.h"

#include <cstdint>
#include <string>

namespace corvane::store {
class Database;
class DataSet;
} // namespace corvane::store

namespace corvane::timebilling {

// The rules of the two small masters, employees and task types. Each check is given the record
// about to be saved. A new row's key is the highest + 1, drawn by the store as the row is saved
// (the table names its key with SetDrawnKey).

Verdict CheckEmployee(store::Database& db, store::DataSet& employee);

// Name, sales account, the account's existence, each tax code known, no code twice; in that
// order. A duplicate name is left to the unique index.
Verdict CheckTaskType(store::Database& db, store::DataSet& taskType);

// Task type codes as typed: upper case, at most three letters.
std::string NormalTaxCodes(std::string typed);

// Why a task type may not go, or empty when it may.
std::string TaskTypeDeleteRefusal(store::Database& db, std::int64_t taskTypeId,
                                  const std::string& name);

} // namespace corvane::timebilling
