#include "documents/forms/FileAside.h"

#include "pdf/PDFTypes.h"

#include <QFile>

namespace quillary::documents {

FileAside::FileAside(QString file)
    : file_(std::move(file)), part_(file_ + QLatin1StringView(kEnding)) {}

FileAside::~FileAside() {
  if (!isDone_) QFile::remove(part_);
}

std::filesystem::path FileAside::Path() const {
  return part_.toStdU16String();
}

void FileAside::Commit() {
  std::error_code error;
  std::filesystem::rename(Path(), file_.toStdU16String(), error);
  if (error) throw PDFError(file_.toStdString() + ": " + error.message());
  isDone_ = true;
}

}  // namespace quillary::documents
