#pragma once

#include <QString>

#include <filesystem>

namespace quillary::documents {

/// A file that is written beside its place and moved there when it is whole, so that nobody meets
/// half of one and a failure keeps the older one.
class FileAside {
 public:
  static constexpr const char* kEnding = ".part";

  explicit FileAside(QString file);
  ~FileAside();
  FileAside(const FileAside&) = delete;
  FileAside& operator=(const FileAside&) = delete;

  const QString& File() const { return file_; }
  /// Where to write.
  std::filesystem::path Path() const;
  /// Moves what was written, and closed, to its place. Throws PDFError.
  void Commit();

 private:
  QString file_;
  QString part_;
  bool isDone_ = false;
};

}  // namespace quillary::documents
