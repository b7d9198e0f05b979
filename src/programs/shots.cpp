#include "shell/shots/Shots.h"

#include "kit/Theme.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QLoggingCategory>
#include <QTemporaryDir>

#include <iostream>

namespace {

/// The platform without a display offers a small one; menus and calendars need the room of a real
/// one to open where they belong.
void UseRoomyDisplay(const QDir& folder) {
  QFile file(folder.filePath(QStringLiteral("display.json")));
  if (qgetenv("QT_QPA_PLATFORM") != "offscreen" || !file.open(QIODevice::WriteOnly)) return;
  file.write(R"({"screens":[{"name":"shots","x":0,"y":0,"width":1280,"height":800,)"
             R"("logicalDpi":96,"logicalBaseDpi":96,"dpr":1}]})");
  qputenv("QT_QPA_PLATFORM", "offscreen:configfile=" + file.fileName().toUtf8());
}

}  // namespace

/// quillary_shots DIR [--dark] [--only GROUP] [--pictures NAME,NAME…]: pictures of all screens, of
/// one group of them, or of those named, on a demo business, without a display.
int main(int argc, char** argv) {
  using namespace quillary;
  QTemporaryDir home;
  qputenv("QUILLARY_HOME", home.path().toUtf8());
  if (qEnvironmentVariableIsEmpty("QUILLARY_TODAY")) qputenv("QUILLARY_TODAY", "2026-11-02");
  UseRoomyDisplay(QDir(home.path()));
  QApplication application(argc, argv);
  const QStringList words = QCoreApplication::arguments().mid(1);
  const bool dark = words.contains(QStringLiteral("--dark"));
  const qsizetype only = words.indexOf(QStringLiteral("--only"));
  const qsizetype named = words.indexOf(QStringLiteral("--pictures"));
  if (words.isEmpty() || words.first().startsWith(u'-')) {
    std::cerr << "Usage: quillary_shots DIR [--dark] [--only GROUP] [--pictures NAME,NAME...]\n";
    return 2;
  }
  QDir().mkpath(words.first());
  QLoggingCategory::setFilterRules(QStringLiteral("default.warning=false"));
  ApplyTheme(application, dark ? ThemeChoice::Dark : ThemeChoice::Light);
  try {
    shell::Shots shots(words.first());
    if (named >= 0) shots.SaveOnly(words.value(named + 1).split(u','));
    shots.Run(only < 0 ? QString() : words.value(only + 1));
  } catch (const std::exception& error) {
    std::cerr << "quillary_shots: " << error.what() << '\n';
    return 1;
  }
  std::cout << "Pictures are in " << qPrintable(QDir(words.first()).absolutePath()) << '\n';
  return 0;
}
