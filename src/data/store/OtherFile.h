#pragma once

#include <QString>

#include <sqlite3.h>

namespace quillary {

/// A second business file beside the open one, open for as long as this lives.
class OtherFile {
 public:
  enum class Access {
    ReadWrite,
    LookOnly,  // changes and makes nothing, not even the logs that reading can take
  };
  /// Throws StatementRefused when there is no such file, and StorageFailure.
  explicit OtherFile(const QString& path, Access access = Access::ReadWrite);
  ~OtherFile() { sqlite3_close_v2(database_); }
  OtherFile(const OtherFile&) = delete;
  OtherFile& operator=(const OtherFile&) = delete;

  sqlite3* Handle() const { return database_; }

 private:
  sqlite3* database_ = nullptr;
};

}  // namespace quillary
