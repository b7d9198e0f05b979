#pragma once

#include <QString>

#include <functional>

class QFileDevice;

namespace quillary {

/// A file is made beside its place and given its name when it is whole, so that nobody ever finds
/// half of one and a failure keeps the older one. Until then whatever was written goes with this
/// object. Only its owner may read it, also where it replaces a file that others could.
class FileInTheMaking {
 public:
  enum class Place {
    Free,       // a file that bears the name already is not overwritten
    Replacing,  // takes the place of whatever bears the name, in one step
  };
  enum class Content {
    Business,  // SQLite makes it, lays logs around it, and it has to outlast a loss of power
    Document,  // anybody writes it, and it can be made again
  };
  /// By how many bytes its name is longer than that of the file to be.
  static constexpr int kLongerBy = 13;

  /// Throws StorageFailure when the place is not free, or has no folder. A document can be opened
  /// at once; a business is not there yet.
  explicit FileInTheMaking(const QString& target, Place place = Place::Free,
                           Content content = Content::Business);
  ~FileInTheMaking();
  FileInTheMaking(const FileInTheMaking&) = delete;
  FileInTheMaking& operator=(const FileInTheMaking&) = delete;

  /// Where to write.
  const QString& Path() const { return path_; }
  const QString& Target() const { return target_; }

  /// Gives the file its name for good. Throws StorageFailure, also when another file has come to
  /// bear that name meanwhile.
  void TakeItsPlace();

 private:
  void TakeFreePlace() const;
  void RemoveForgotten() const;

  QString target_;
  Place place_;
  Content content_;
  QString path_;
};

/// Puts a document of these bytes in the place of whatever bears its name. Throws StorageFailure
/// and then leaves what was there.
void WriteWhole(const QString& path, const QByteArray& content);
/// The same with a file that `write` fills; it tells whether the file took all.
void WriteWhole(const QString& path, const std::function<bool(QFileDevice&)>& write);

}  // namespace quillary
