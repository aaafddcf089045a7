#pragma once

#include <cstdint>

namespace corvane::testing {

// A layer over the default SQLite VFS that counts the writes and syncs made to database files
// and their rollback journals, and can fail the Nth of them with an I/O error, the way SQLite
// tests its own recovery. Connections reach it through Connection::SetVfsForNewConnections(Name).
// One layer for the whole process, registered on first use; not for use from several threads.
class FaultyVfs {
public:
    static constexpr const char* Name = "corvane-faulty";

    // Recover: only the Nth call fails and the disk works again after it, so the engine gets
    // to roll back. StayFailed: that call and every write, sync, truncate and delete after it
    // fail, as when the disk is lost; what is left on disk is what a reopen has to recover.
    enum class After { Recover, StayFailed };

    static FaultyVfs& Instance();

    // Counts from zero again and fails the nth write or sync from now on (n counts from 1).
    void Arm(std::int64_t n, After after);
    // Counts from zero again and fails nothing.
    void Disarm();
    // Writes and syncs seen since the last Arm or Disarm.
    std::int64_t Calls() const;
    // Whether a failure was handed out since the last Arm.
    bool Fired() const;

private:
    FaultyVfs();
};

} // namespace corvane::testing
