#pragma once

#include <functional>

namespace quillary {

/// What the disk does from the given operation on.
enum class DiskFault {
  WriteOnce,    // one write fails, with half of its bytes written
  SyncOnce,     // one write, cut or sync fails as the sync of a dying disk does
  CannotOpen,   // one opening fails
  FullFromOn,   // nothing more can be written until the disk is mended
  KillProcess,  // the process is killed, with half of a write done
};

/// Stands between SQLite and the file system of this process, counts the operations that change or
/// open a file, and lets one of them fail. Only one may exist; SQLite uses it for whatever is
/// opened while it lives.
class FailingDisk {
 public:
  FailingDisk();
  ~FailingDisk();
  FailingDisk(const FailingDisk&) = delete;
  FailingDisk& operator=(const FailingDisk&) = delete;

  /// The operation with that number, counted from 1 from now on, meets the fault.
  void FailAt(int operation, DiskFault fault);
  void Mend();
  /// Operations since the last FailAt() or Mend().
  int Operations() const;
  bool HasFailed() const;
};

}  // namespace quillary
