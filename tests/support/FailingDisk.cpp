#include "support/FailingDisk.h"

#include <signal.h>
#include <sqlite3.h>

#include <cstdlib>
#include <cstring>
#include <new>

namespace quillary {
namespace {

struct State {
  sqlite3_vfs* real = nullptr;
  int operations = 0;
  int failAt = 0;  // 0: never
  DiskFault fault = DiskFault::WriteOnce;
  bool failed = false;
};
State state;

enum class Operation { Open, Write, Cut, Sync };

/// SQLite allocates a file object of our size; the real one follows ours.
struct WatchedFile {
  sqlite3_file base;
  sqlite3_file* Real() { return reinterpret_cast<sqlite3_file*>(this + 1); }
};
sqlite3_file* RealOf(sqlite3_file* file) {
  return reinterpret_cast<WatchedFile*>(file)->Real();
}

/// The code that the operation fails with; SQLITE_OK when it is to be done.
int Meet(Operation operation) {
  ++state.operations;
  if (state.failAt == 0 || state.operations < state.failAt) return SQLITE_OK;
  const bool isOpen = operation == Operation::Open;
  if (state.fault == DiskFault::FullFromOn) {
    if (isOpen || operation == Operation::Sync) return SQLITE_OK;
    state.failed = true;
    return SQLITE_FULL;
  }
  if (state.failed) return SQLITE_OK;
  if (state.fault == DiskFault::CannotOpen && !isOpen) return SQLITE_OK;
  if (state.fault != DiskFault::CannotOpen && state.fault != DiskFault::KillProcess && isOpen) {
    return SQLITE_OK;
  }
  state.failed = true;
  switch (state.fault) {
    case DiskFault::SyncOnce:
      return SQLITE_IOERR_FSYNC;
    case DiskFault::CannotOpen:
      return SQLITE_CANTOPEN;
    case DiskFault::KillProcess:
      return SQLITE_ABORT;
    default:
      return SQLITE_IOERR_WRITE;
  }
}

void KillIfMeant(int code) {
  if (code == SQLITE_ABORT) raise(SIGKILL);
}

int Write(sqlite3_file* file, const void* bytes, int count, sqlite3_int64 offset) {
  sqlite3_file* real = RealOf(file);
  const int code = Meet(Operation::Write);
  if (code == SQLITE_OK) return real->pMethods->xWrite(real, bytes, count, offset);
  if (code != SQLITE_FULL) real->pMethods->xWrite(real, bytes, count / 2, offset);
  KillIfMeant(code);
  return code;
}

int Truncate(sqlite3_file* file, sqlite3_int64 size) {
  const int code = Meet(Operation::Cut);
  KillIfMeant(code);
  sqlite3_file* real = RealOf(file);
  return code == SQLITE_OK ? real->pMethods->xTruncate(real, size) : code;
}

int Sync(sqlite3_file* file, int flags) {
  const int code = Meet(Operation::Sync);
  KillIfMeant(code);
  sqlite3_file* real = RealOf(file);
  return code == SQLITE_OK ? real->pMethods->xSync(real, flags) : code;
}

int Close(sqlite3_file* file) {
  sqlite3_file* real = RealOf(file);
  return real->pMethods->xClose(real);
}
int Read(sqlite3_file* file, void* bytes, int count, sqlite3_int64 offset) {
  sqlite3_file* real = RealOf(file);
  return real->pMethods->xRead(real, bytes, count, offset);
}
int FileSize(sqlite3_file* file, sqlite3_int64* size) {
  sqlite3_file* real = RealOf(file);
  return real->pMethods->xFileSize(real, size);
}
int Lock(sqlite3_file* file, int level) {
  sqlite3_file* real = RealOf(file);
  return real->pMethods->xLock(real, level);
}
int Unlock(sqlite3_file* file, int level) {
  sqlite3_file* real = RealOf(file);
  return real->pMethods->xUnlock(real, level);
}
int CheckReservedLock(sqlite3_file* file, int* held) {
  sqlite3_file* real = RealOf(file);
  return real->pMethods->xCheckReservedLock(real, held);
}
int FileControl(sqlite3_file* file, int operation, void* argument) {
  sqlite3_file* real = RealOf(file);
  return real->pMethods->xFileControl(real, operation, argument);
}
int SectorSize(sqlite3_file* file) {
  sqlite3_file* real = RealOf(file);
  return real->pMethods->xSectorSize(real);
}
int Characteristics(sqlite3_file* file) {
  sqlite3_file* real = RealOf(file);
  return real->pMethods->xDeviceCharacteristics(real);
}
int ShmMap(sqlite3_file* file, int page, int size, int extend, void volatile** map) {
  sqlite3_file* real = RealOf(file);
  return real->pMethods->xShmMap(real, page, size, extend, map);
}
int ShmLock(sqlite3_file* file, int offset, int count, int flags) {
  sqlite3_file* real = RealOf(file);
  return real->pMethods->xShmLock(real, offset, count, flags);
}
void ShmBarrier(sqlite3_file* file) {
  sqlite3_file* real = RealOf(file);
  real->pMethods->xShmBarrier(real);
}
int ShmUnmap(sqlite3_file* file, int remove) {
  sqlite3_file* real = RealOf(file);
  return real->pMethods->xShmUnmap(real, remove);
}

// Version 2: without memory maps, past which writes would go unseen.
constexpr sqlite3_io_methods kMethods = {2,
                                         Close,
                                         Read,
                                         Write,
                                         Truncate,
                                         Sync,
                                         FileSize,
                                         Lock,
                                         Unlock,
                                         CheckReservedLock,
                                         FileControl,
                                         SectorSize,
                                         Characteristics,
                                         ShmMap,
                                         ShmLock,
                                         ShmBarrier,
                                         ShmUnmap,
                                         nullptr,
                                         nullptr};

int Open(sqlite3_vfs*, const char* name, sqlite3_file* file, int flags, int* outFlags) {
  file->pMethods = nullptr;
  const int code = Meet(Operation::Open);
  KillIfMeant(code);
  if (code != SQLITE_OK) return code;
  const int opened = state.real->xOpen(state.real, name, RealOf(file), flags, outFlags);
  if (opened == SQLITE_OK) file->pMethods = &kMethods;
  return opened;
}

sqlite3_vfs watched;

}  // namespace

FailingDisk::FailingDisk() {
  state = State();
  state.real = sqlite3_vfs_find(nullptr);
  // Everything but the opening of files is done by the real one, which is handed its own object.
  watched = *state.real;
  watched.zName = "failing";
  watched.szOsFile = static_cast<int>(sizeof(WatchedFile)) + state.real->szOsFile;
  watched.xOpen = Open;
  sqlite3_vfs_register(&watched, 1);
}

FailingDisk::~FailingDisk() {
  sqlite3_vfs_unregister(&watched);
  sqlite3_vfs_register(state.real, 1);
}

void FailingDisk::FailAt(int operation, DiskFault fault) {
  state.operations = 0;
  state.failAt = operation;
  state.fault = fault;
  state.failed = false;
}

void FailingDisk::Mend() {
  FailAt(0, DiskFault::WriteOnce);
}

int FailingDisk::Operations() const {
  return state.operations;
}

bool FailingDisk::HasFailed() const {
  return state.failed;
}

}  // namespace quillary
