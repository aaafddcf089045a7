#pragma once

namespace corvane::store {

class Database;

// Reads every page of the open company's file for damage. Fails with a FileError of code
// errTableCorrupt and the message that leads to the repair when any is found.
void CheckIntegrity(Database& db);

// Everything read while it lives comes from one moment of the company: a check or a report
// that reads several tables never sees one of them before another process's commit and the
// next after it. Other processes' commits wait until it ends (up to their busy wait), so it
// is held for one reading pass, never across a user's pause. Inside a transaction of this
// process it does nothing: the transaction already reads one state.
class ReadSnapshot {
public:
    explicit ReadSnapshot(Database& db);
    ~ReadSnapshot();
    ReadSnapshot(const ReadSnapshot&) = delete;
    ReadSnapshot& operator=(const ReadSnapshot&) = delete;

private:
    Database& db_;
    bool open_ = false;
};

} // namespace corvane::store
