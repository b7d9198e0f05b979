#include "data/store/StorageFailure.h"

namespace quillary {
namespace {

// The numbers under which users and old notes know these failures.
int NumberOf(StorageFault fault) {
  switch (fault) {
    case StorageFault::DiskFull:
      return 61;
    case StorageFault::InputOutput:
      return 57;
    case StorageFault::Damaged:
      return kDamagedDatabaseNumber;
    case StorageFault::NotADatabase:
      return 3343;
    case StorageFault::InUse:
      return 3045;
    case StorageFault::ReadOnly:
      return 70;
    case StorageFault::CannotOpen:
      return 53;
    case StorageFault::OutOfMemory:
      return 7;
  }
  return 5;
}

}  // namespace

StorageFailure::StorageFailure(StorageFault fault, const QString& description)
    : ProgramError(NumberOf(fault), description), fault_(fault) {}

}  // namespace quillary
