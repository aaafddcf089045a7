#include "ledger/FaultyVfs.h"

#include <sqlite3.h>
#include <stdexcept>

namespace corvane::testing {
namespace {

struct FaultState {
    sqlite3_vfs* real = nullptr;
    std::int64_t calls = 0;
    std::int64_t failAt = 0; // 0: fail nothing
    FaultyVfs::After after = FaultyVfs::After::Recover;
    bool fired = false;

    // Counts one write or sync and says whether it must fail.
    bool CountAndFail() {
        ++calls;
        if (fired && after == FaultyVfs::After::StayFailed) return true;
        if (failAt != 0 && calls == failAt) {
            fired = true;
            return true;
        }
        return false;
    }
    bool DiskLost() const { return fired && after == FaultyVfs::After::StayFailed; }
};

FaultState& State() {
    static FaultState state;
    return state;
}

// The real file lives in the bytes right after this header: szOsFile leaves room for both.
struct ShimFile {
    sqlite3_file base;
    sqlite3_file* real;
    bool watched; // a database file or its rollback journal
};

sqlite3_file* Real(sqlite3_file* f) {
    return reinterpret_cast<ShimFile*>(f)->real;
}
bool Watched(sqlite3_file* f) {
    return reinterpret_cast<ShimFile*>(f)->watched;
}

int ShimClose(sqlite3_file* f) {
    return Real(f)->pMethods->xClose(Real(f));
}
int ShimRead(sqlite3_file* f, void* buf, int amount, sqlite3_int64 offset) {
    return Real(f)->pMethods->xRead(Real(f), buf, amount, offset);
}
int ShimWrite(sqlite3_file* f, const void* buf, int amount, sqlite3_int64 offset) {
    if (Watched(f) && State().CountAndFail()) return SQLITE_IOERR_WRITE;
    return Real(f)->pMethods->xWrite(Real(f), buf, amount, offset);
}
int ShimTruncate(sqlite3_file* f, sqlite3_int64 size) {
    if (Watched(f) && State().DiskLost()) return SQLITE_IOERR_TRUNCATE;
    return Real(f)->pMethods->xTruncate(Real(f), size);
}
int ShimSync(sqlite3_file* f, int flags) {
    if (Watched(f) && State().CountAndFail()) return SQLITE_IOERR_FSYNC;
    return Real(f)->pMethods->xSync(Real(f), flags);
}
int ShimFileSize(sqlite3_file* f, sqlite3_int64* size) {
    return Real(f)->pMethods->xFileSize(Real(f), size);
}
int ShimLock(sqlite3_file* f, int level) {
    return Real(f)->pMethods->xLock(Real(f), level);
}
int ShimUnlock(sqlite3_file* f, int level) {
    return Real(f)->pMethods->xUnlock(Real(f), level);
}
int ShimCheckReservedLock(sqlite3_file* f, int* out) {
    return Real(f)->pMethods->xCheckReservedLock(Real(f), out);
}
int ShimFileControl(sqlite3_file* f, int op, void* arg) {
    return Real(f)->pMethods->xFileControl(Real(f), op, arg);
}
int ShimSectorSize(sqlite3_file* f) {
    return Real(f)->pMethods->xSectorSize(Real(f));
}
int ShimDeviceCharacteristics(sqlite3_file* f) {
    return Real(f)->pMethods->xDeviceCharacteristics(Real(f));
}

// Version 1 only: companies use the rollback journal and no memory mapping, so the shared
// memory and fetch methods are never needed, and leaving them out keeps SQLite from trying.
const sqlite3_io_methods ShimMethods = {1,
                                        ShimClose,
                                        ShimRead,
                                        ShimWrite,
                                        ShimTruncate,
                                        ShimSync,
                                        ShimFileSize,
                                        ShimLock,
                                        ShimUnlock,
                                        ShimCheckReservedLock,
                                        ShimFileControl,
                                        ShimSectorSize,
                                        ShimDeviceCharacteristics,
                                        nullptr,
                                        nullptr,
                                        nullptr,
                                        nullptr,
                                        nullptr,
                                        nullptr};

int ShimOpen(sqlite3_vfs*, sqlite3_filename name, sqlite3_file* file, int flags, int* outFlags) {
    auto* shim = reinterpret_cast<ShimFile*>(file);
    shim->real = reinterpret_cast<sqlite3_file*>(shim + 1);
    shim->watched = (flags & (SQLITE_OPEN_MAIN_DB | SQLITE_OPEN_MAIN_JOURNAL)) != 0;
    sqlite3_vfs* real = State().real;
    int rc = real->xOpen(real, name, shim->real, flags, outFlags);
    // SQLite closes a file whose methods are set even when the open failed.
    shim->base.pMethods = shim->real->pMethods ? &ShimMethods : nullptr;
    return rc;
}
int ShimDelete(sqlite3_vfs*, const char* name, int syncDir) {
    if (State().DiskLost()) return SQLITE_IOERR_DELETE;
    return State().real->xDelete(State().real, name, syncDir);
}
int ShimAccess(sqlite3_vfs*, const char* name, int flags, int* out) {
    return State().real->xAccess(State().real, name, flags, out);
}
int ShimFullPathname(sqlite3_vfs*, const char* name, int size, char* out) {
    return State().real->xFullPathname(State().real, name, size, out);
}
void* ShimDlOpen(sqlite3_vfs*, const char* name) {
    return State().real->xDlOpen(State().real, name);
}
void ShimDlError(sqlite3_vfs*, int size, char* out) {
    State().real->xDlError(State().real, size, out);
}
void (*ShimDlSym(sqlite3_vfs*, void* handle, const char* symbol))(void) {
    return State().real->xDlSym(State().real, handle, symbol);
}
void ShimDlClose(sqlite3_vfs*, void* handle) {
    State().real->xDlClose(State().real, handle);
}
int ShimRandomness(sqlite3_vfs*, int size, char* out) {
    return State().real->xRandomness(State().real, size, out);
}
int ShimSleep(sqlite3_vfs*, int micros) {
    return State().real->xSleep(State().real, micros);
}
int ShimCurrentTime(sqlite3_vfs*, double* out) {
    return State().real->xCurrentTime(State().real, out);
}
int ShimGetLastError(sqlite3_vfs*, int size, char* out) {
    return State().real->xGetLastError(State().real, size, out);
}
int ShimCurrentTimeInt64(sqlite3_vfs*, sqlite3_int64* out) {
    return State().real->xCurrentTimeInt64(State().real, out);
}

} // namespace

FaultyVfs::FaultyVfs() {
    sqlite3_vfs* real = sqlite3_vfs_find(nullptr);
    if (!real || real->iVersion < 2) throw std::runtime_error("no default SQLite VFS to wrap");
    State().real = real;
    static sqlite3_vfs vfs{};
    vfs.iVersion = 2;
    vfs.szOsFile = static_cast<int>(sizeof(ShimFile)) + real->szOsFile;
    vfs.mxPathname = real->mxPathname;
    vfs.zName = Name;
    vfs.xOpen = ShimOpen;
    vfs.xDelete = ShimDelete;
    vfs.xAccess = ShimAccess;
    vfs.xFullPathname = ShimFullPathname;
    vfs.xDlOpen = ShimDlOpen;
    vfs.xDlError = ShimDlError;
    vfs.xDlSym = ShimDlSym;
    vfs.xDlClose = ShimDlClose;
    vfs.xRandomness = ShimRandomness;
    vfs.xSleep = ShimSleep;
    vfs.xCurrentTime = ShimCurrentTime;
    vfs.xGetLastError = ShimGetLastError;
    vfs.xCurrentTimeInt64 = ShimCurrentTimeInt64;
    if (sqlite3_vfs_register(&vfs, 0) != SQLITE_OK)
        throw std::runtime_error("cannot register the faulty SQLite VFS");
}

FaultyVfs& FaultyVfs::Instance() {
    static FaultyVfs instance;
    return instance;
}

void FaultyVfs::Arm(std::int64_t n, After after) {
    FaultState& s = State();
    s.calls = 0;
    s.failAt = n;
    s.after = after;
    s.fired = false;
}

void FaultyVfs::Disarm() {
    Arm(0, After::Recover);
}

std::int64_t FaultyVfs::Calls() const {
    return State().calls;
}

bool FaultyVfs::Fired() const {
    return State().fired;
}

} // namespace corvane::testing
