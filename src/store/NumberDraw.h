#pragma once

#include "store/TableHold.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <string>

namespace corvane::store {

class Database;
class Table;

// Every id and document number of the program is drawn here, in one of two ways:
//
// - From a control table (JVCtl, CustCtl, ItemCtl, ...): the one row is opened exclusively, which
//   keeps every other cursor of every process off it, and its counters are read and raised in one
//   write transaction, so that no other workstation reads a counter before the raised one is
//   committed. Inside a caller's transaction (a posting run) the draw joins it.
// - As the highest key + 1: read inside the write transaction that saves the row, so that no
//   other workstation can insert between the read and the save.

// What a stored counter becomes before it is handed out: repairs a value that strayed out of its
// series. Gets the stored value (nothing when null).
using CounterRepair = std::function<std::int64_t(std::optional<std::int64_t> stored)>;

// A counter below low or above high (or null) starts again at start.
CounterRepair RestartOutside(std::int64_t low, std::int64_t high, std::int64_t start);
// A counter of 0 (or null) starts at start; anything else is used as it stands.
CounterRepair StartWhenZero(std::int64_t start);

// The control row while a draw holds it: exclusively open and in edit.
class ControlRow {
public:
    explicit ControlRow(Table& table) : table_(table) {}

    // Hands out the counter (after the repair; a null counter without a repair is 0) and leaves
    // it raised by count in the row: a run that needs a block of numbers takes them at once, and
    // a count of 0 only reads (and repairs) it.
    std::int64_t Take(const std::string& field, const CounterRepair& repair = {},
                      std::int64_t count = 1);
    // The counter as stored, without taking it; nothing when null.
    std::optional<std::int64_t> Peek(const std::string& field) const;
    // Writes a counter as it is (a repair that needs other tables, or a setting).
    void Put(const std::string& field, std::int64_t value);

    Database& Db() const;

private:
    Table& table_;
};

using ControlTake = std::function<void(ControlRow&)>;

// How often a draw tries to have the control row before it gives up, and the pause between
// attempts. Label names the table in the message to the user ("Customer", "Item"); a document
// whose question is worded otherwise asks its own in askRetry.
struct ControlRetry {
    std::string Label;
    int Attempts = 150;
    int PauseMs = 0;
};

// "Unable to open <label> Control table exclusively...\nPlease try again later."
std::string ControlTableBusyMessage(const std::string& label);

// One round of attempts: opens the control table exclusively, edits its row (adding it when the
// table is empty), runs take, posts and closes. An attempt that fails (the table is open
// elsewhere, the row is locked, the database is busy) changes nothing and is tried again. True
// when take ran and its counters are saved; false when every attempt failed. An exception thrown
// by take itself is not retried: it goes to the caller, and nothing is saved.
bool TryDrawFromControl(Database& db, const std::string& controlTable, const ControlRetry& retry,
                        const ControlTake& take);

// The whole draw a form makes: rounds of attempts until one succeeds; after a failed round
// askRetry gets ControlTableBusyMessage(retry.Label): true starts a new round, false gives up.
// False when the user gave up (the caller then abandons its new record).
bool DrawFromControl(Database& db, const std::string& controlTable, const ControlRetry& retry,
                     const ControlTake& take, const RetryQuestion& askRetry);

// Starts the write transaction of a draw. Another workstation that writes row after row can hold
// the write lock again and again while this one sleeps between its looks; the start is tried
// for several of the session's busy waits before it fails with errTableLocked.
void BeginDrawTransaction(Database& db);

// The highest value of an integer key field + 1 (1 for an empty table), for a row about to be
// saved. Must run inside the write transaction that saves the row (errTransaction otherwise):
// the write lock keeps every other process from inserting before the save. Table and field are
// checked against the table's definition.
std::int64_t DrawMaxPlusOne(Database& db, const std::string& table, const std::string& field);

} // namespace corvane::store
