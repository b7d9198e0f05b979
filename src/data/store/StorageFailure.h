#pragma once

#include "base/Errors.h"

namespace quillary {

/// What went wrong below a statement. Unlike a refused statement it is never passed over.
enum class StorageFault {
  DiskFull,
  InputOutput,
  Damaged,
  NotADatabase,
  InUse,
  ReadOnly,
  CannotOpen,
  OutOfMemory,
};

/// The number that a damaged file is reported under; the schedule's recovery dialogue waits for it.
inline constexpr int kDamagedDatabaseNumber = static_cast<int>(0x80004005);

class StorageFailure : public ProgramError {
 public:
  StorageFailure(StorageFault fault, const QString& description);
  StorageFault Fault() const { return fault_; }

 private:
  StorageFault fault_;
};

}  // namespace quillary
