#include "data/store/OtherFile.h"

#include "data/store/Statement.h"

#include <QFileInfo>

namespace quillary {

OtherFile::OtherFile(const QString& path) {
  if (!QFileInfo(path).isFile()) {
    throw StatementRefused("The file " + path.toStdString() + " was not found");
  }
  const int code = sqlite3_open_v2(path.toUtf8().constData(), &database_,
                                   SQLITE_OPEN_READWRITE | SQLITE_OPEN_EXRESCODE, nullptr);
  if (code == SQLITE_OK) return;
  sqlite3_close_v2(database_);
  ThrowFailure(nullptr, code);
}

}  // namespace quillary
