#pragma once

#include <QLocalServer>
#include <QWidget>

/// Starting the program for a business whose window is there already brings that window to the
/// front. It is the only thing of the program that listens, on a socket in a folder of the user's
/// own, and all it takes is one fixed word.
namespace quillary::shell {

/// Listens for as long as it lives.
class FrontDoor : public QObject {
 public:
  /// For the business in `file`. Without a socket, on a file system that has none, the program
  /// works as well; only the second start is refused then by the lock of the file.
  FrontDoor(const QString& file, const QString& programFolder, QWidget& window);

  static inline const QByteArray kWord = "front\n";

 private:
  void Answer(QLocalSocket& caller);

  QWidget& window_;
  QLocalServer server_;
};

/// Where the door of a business is.
QString SocketOf(const QString& file, const QString& programFolder);

/// Asks the program that has the business open to show its window. False when there is none.
bool AskToTheFront(const QString& file, const QString& programFolder);

}  // namespace quillary::shell
