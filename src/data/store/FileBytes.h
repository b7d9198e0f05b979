#pragma once

#include <QString>

#include <sqlite3.h>

#include <functional>
#include <memory>

/// Whole files through SQLite's own file layer, which knows which of them it has locked.
namespace quillary {

/// The file of an open connection, held as it is at one moment: all that was committed is folded
/// into it, and until the end of this object nothing can be written, not even by a command that an
/// owner gives while a copy shows how far it is.
class HeldFile {
 public:
  /// Holds nothing where the file is not all there is, as within a transaction.
  explicit HeldFile(sqlite3* database);
  ~HeldFile();
  HeldFile(const HeldFile&) = delete;
  HeldFile& operator=(const HeldFile&) = delete;

  explicit operator bool() const { return file_ != nullptr; }
  /// The handle that SQLite has of it: closing a second one would give up the lock.
  sqlite3_file* File() const { return file_; }

 private:
  sqlite3* database_;
  sqlite3_file* file_ = nullptr;
};

/// A file that is written from its beginning to its end.
class NewFileBytes {
 public:
  /// The file is there and empty. Throws StorageFailure.
  explicit NewFileBytes(const QString& path);
  ~NewFileBytes();
  NewFileBytes(const NewFileBytes&) = delete;
  NewFileBytes& operator=(const NewFileBytes&) = delete;

  /// Takes over all bytes of `from` and lets the disk begin with each piece while the next one is
  /// read. A business that keeps a log beside it becomes one that is a single file. Throws
  /// StorageFailure.
  void TakeAll(sqlite3_file* from, const std::function<void(qint64 done, qint64 all)>& progress);

 private:
  void StartWriting(qint64 offset, qint64 bytes) const;

  struct FreeName {
    void operator()(char* name) const { sqlite3_free_filename(name); }
  };
  struct Free {
    void operator()(sqlite3_file* file) const { sqlite3_free(file); }
  };
  std::unique_ptr<char, FreeName> name_;
  std::unique_ptr<sqlite3_file, Free> file_;
  int handle_ = -1;  // only to tell the kernel to begin
};

}  // namespace quillary
