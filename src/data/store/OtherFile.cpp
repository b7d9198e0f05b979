#include "data/store/OtherFile.h"

#include "data/store/Statement.h"

#include <QFileInfo>
#include <QUrl>

namespace quillary {

OtherFile::OtherFile(const QString& path, Access access) {
  if (!QFileInfo(path).isFile()) {
    throw StatementRefused("The file " + path.toStdString() + " was not found");
  }
  const bool look = access == Access::LookOnly;
  const QByteArray name =
      look ? QUrl::fromLocalFile(path).toEncoded() + "?immutable=1" : path.toUtf8();
  const int flags = look ? SQLITE_OPEN_READONLY | SQLITE_OPEN_URI : SQLITE_OPEN_READWRITE;
  const int code =
      sqlite3_open_v2(name.constData(), &database_, flags | SQLITE_OPEN_EXRESCODE, nullptr);
  if (code == SQLITE_OK) return;
  sqlite3_close_v2(database_);
  ThrowFailure(nullptr, code);
}

}  // namespace quillary
