#pragma once

#include <string>

namespace corvane::store {
class Field;
class Table;
} // namespace corvane::store

namespace corvane::timebilling {

// Makes an id field of a grid line read and write as the name of its row in table: the task
// type or employee column shows "Design" and takes a typed name back as that row's id, whatever
// its case. Empty text clears the field; an unknown name raises notFound. table must outlive the
// field's use.
void ShowIdAsName(store::Field& idField, store::Table& table, std::string idName,
                  std::string nameField, std::string notFound);

} // namespace corvane::timebilling
