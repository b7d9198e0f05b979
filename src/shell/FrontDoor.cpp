#include "shell/FrontDoor.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFileInfo>
#include <QLocalSocket>
#include <QTimer>

namespace quillary::shell {

namespace {

constexpr int kPatienceMilliseconds = 2000;
const QByteArray kHeard = "here\n";

}  // namespace

QString SocketOf(const QString& file, const QString& programFolder) {
  const QString whole = QFileInfo(file).canonicalFilePath();
  const QByteArray mark =
      QCryptographicHash::hash(whole.toUtf8(), QCryptographicHash::Sha256).toHex().left(16);
  const QString runtime = qEnvironmentVariable("XDG_RUNTIME_DIR");
  const QDir folder(QFileInfo(runtime).isWritable() ? runtime : programFolder);
  return folder.absoluteFilePath(QStringLiteral("quillary-%1.socket").arg(QLatin1String(mark)));
}

FrontDoor::FrontDoor(const QString& file, const QString& programFolder, QWidget& window)
    : window_(window) {
  const QString socket = SocketOf(file, programFolder);
  // We hold the file's lock, so whoever left a socket there is gone.
  QLocalServer::removeServer(socket);
  server_.setSocketOptions(QLocalServer::UserAccessOption);
  connect(&server_, &QLocalServer::newConnection, this, [this] {
    while (QLocalSocket* caller = server_.nextPendingConnection()) {
      connect(caller, &QLocalSocket::disconnected, caller, &QObject::deleteLater);
      connect(caller, &QLocalSocket::readyRead, this, [this, caller] { Answer(*caller); });
      QTimer::singleShot(kPatienceMilliseconds, caller, [caller] { caller->abort(); });
      if (caller->bytesAvailable() > 0) Answer(*caller);
    }
  });
  server_.listen(socket);
}

void FrontDoor::Answer(QLocalSocket& caller) {
  const QByteArray word = caller.peek(kWord.size() + 1);
  if (word != kWord && kWord.startsWith(word)) return;
  if (word != kWord) return caller.abort();
  caller.readAll();
  window_.setWindowState(window_.windowState() & ~Qt::WindowMinimized);
  window_.show();
  window_.raise();
  window_.activateWindow();
  caller.write(kHeard);
  caller.disconnectFromServer();
}

bool AskToTheFront(const QString& file, const QString& programFolder) {
  if (!QFileInfo::exists(file)) return false;
  QLocalSocket caller;
  caller.connectToServer(SocketOf(file, programFolder));
  if (!caller.waitForConnected(kPatienceMilliseconds)) return false;
  caller.write(FrontDoor::kWord);
  caller.flush();
  return caller.waitForReadyRead(kPatienceMilliseconds) && caller.readAll() == kHeard;
}

}  // namespace quillary::shell
