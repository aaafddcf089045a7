#pragma once

#include "store/Value.h"

#include <string>
#include <vector>

namespace corvane::store {
class Database;
}

namespace corvane::receivables {

// The detail lines of an open document as they were before its first change. Entry writes each
// line to its table as it is saved, so Cancel puts these back: the lines written since go, the
// kept ones return as they were, all in one transaction.
class LinesSnapshot {
public:
    // Keeps the rows of table whose field holds id; a second call before Restore or Forget keeps
    // the first rows.
    void Take(store::Database& db, const std::string& table, const std::string& field,
              const store::Value& id);
    bool Taken() const { return taken_; }
    void Restore(store::Database& db);
    void Forget();

private:
    bool taken_ = false;
    std::string table_, field_;
    store::Value id_;
    std::vector<std::string> fields_;
    std::vector<std::vector<store::Value>> rows_;
};

} // namespace corvane::receivables
