#pragma once

#include "data/jet/Translator.h"

#include <sqlite3.h>

#include <map>

namespace quillary {

/// Which indexed columns of the open file hold nothing but ASCII. What is known holds until it is
/// forgotten: whoever writes has to tell.
class AsciiColumns {
 public:
  /// Looks through the column the first time it is asked about. Throws StorageFailure.
  bool Holds(sqlite3* database, const jet::ColumnName& column);
  /// Whether it was asked about and does.
  bool IsKnown(const jet::ColumnName& column) const;
  /// Nothing is known any more. Returns whether any column was known to be ASCII.
  bool Forget() noexcept;

 private:
  std::map<jet::ColumnName, bool> known_;
};

}  // namespace quillary
