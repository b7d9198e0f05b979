#pragma once

#include <QString>

namespace quillary {

/// A new file is made beside its place and given its name when it is whole, so that nobody ever
/// finds half of one. Until then whatever was written goes with this object, together with what
/// SQLite lays around it.
class FileInTheMaking {
 public:
  enum class Place { Free, OfTheOld };

  /// For a free place, throws StorageFailure when there is a file at `target` already. Otherwise
  /// the file there is replaced in one step.
  explicit FileInTheMaking(const QString& target, Place place = Place::Free);
  ~FileInTheMaking();
  FileInTheMaking(const FileInTheMaking&) = delete;
  FileInTheMaking& operator=(const FileInTheMaking&) = delete;

  /// Where to write; there is no file yet.
  const QString& Path() const { return path_; }

  /// Gives the file its name for good. Throws StorageFailure, also when another file has come to
  /// bear that name meanwhile.
  void TakeItsPlace();

 private:
  QString target_;
  Place place_;
  QString path_;
};

}  // namespace quillary
