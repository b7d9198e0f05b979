#include "base/OwnFiles.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <errno.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace quillary {
namespace {

constexpr mode_t kOwnFile = S_IRUSR | S_IWUSR;
constexpr mode_t kOwnFolder = S_IRWXU;

}  // namespace

bool MakeOwnFile(const QString& path) {
  const QByteArray name = QFile::encodeName(path);
  unlink(name.constData());
  const int handle = open(name.constData(), O_CREAT | O_EXCL | O_WRONLY | O_CLOEXEC, kOwnFile);
  if (handle < 0) return false;
  // A umask may have taken even the owner's bits.
  const bool isOwn = fchmod(handle, kOwnFile) == 0 || errno == EPERM || errno == ENOTSUP;
  return close(handle) == 0 && isOwn;
}

bool KeepToOwner(const QString& path) {
  const QByteArray name = QFile::encodeName(path);
  struct stat now {};
  if (stat(name.constData(), &now) != 0) return false;
  if ((now.st_mode & (S_IRWXG | S_IRWXO)) == 0) return true;
  return chmod(name.constData(), now.st_mode & S_IRWXU) == 0;
}

bool MakeOwnFolder(const QString& path) {
  const QString folder = QDir::cleanPath(QDir(path).absolutePath());
  if (QFileInfo(folder).isDir()) return true;
  const QString above = QFileInfo(folder).absolutePath();
  if (above != folder && !MakeOwnFolder(above)) return false;
  const QByteArray name = QFile::encodeName(folder);
  if (mkdir(name.constData(), kOwnFolder) != 0) return QFileInfo(folder).isDir();
  return chmod(name.constData(), kOwnFolder) == 0 || errno == EPERM;
}

}  // namespace quillary
