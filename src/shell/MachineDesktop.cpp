#include "shell/MachineDesktop.h"

#include <QApplication>
#include <QClipboard>
#include <QDesktopServices>
#include <QDir>
#include <QFileInfo>
#include <QProcess>
#include <QUrl>

#include <cstdlib>

namespace quillary::shell {

bool MachineDesktop::OpenInBrowser(const QString& address) {
  return QDesktopServices::openUrl(QUrl(address));
}

void MachineDesktop::CopyToClipboard(const QString& text) {
  QApplication::clipboard()->clear();
  QApplication::clipboard()->setText(text);
}

bool MachineDesktop::StartProgram(const QString& name, const QStringList& arguments) {
  const QString path = QDir(QCoreApplication::applicationDirPath()).filePath(name);
  const QFileInfo file(path);
  return file.isFile() && file.isExecutable() && QProcess::startDetached(path, arguments);
}

void MachineDesktop::EndProcess(int exitCode) {
  // No destructors and no event loop: nothing may be asked or written any more. The file is safe,
  // since every statement stands by itself.
  std::_Exit(exitCode);
}

}  // namespace quillary::shell
