#include "kit/Theme.h"
#include "shell/shots/Shots.h"

#include <QApplication>
#include <QDir>
#include <QTemporaryDir>

#include <iostream>

/// quillary_shots DIR [--dark]: pictures of all screens on a demo business, without a display.
int main(int argc, char** argv) {
  using namespace quillary;
  QTemporaryDir home;
  qputenv("QUILLARY_HOME", home.path().toUtf8());
  if (qEnvironmentVariableIsEmpty("QUILLARY_TODAY")) qputenv("QUILLARY_TODAY", "2026-11-02");
  QApplication application(argc, argv);
  const QStringList words = QCoreApplication::arguments().mid(1);
  const bool dark = words.contains(QStringLiteral("--dark"));
  if (words.isEmpty() || words.first().startsWith(u'-')) {
    std::cerr << "Usage: quillary_shots DIR [--dark]\n";
    return 2;
  }
  QDir().mkpath(words.first());
  ApplyTheme(application, dark ? ThemeChoice::Dark : ThemeChoice::Light);
  try {
    Shots(words.first()).Run();
  } catch (const std::exception& error) {
    std::cerr << "quillary_shots: " << error.what() << '\n';
    return 1;
  }
  std::cout << "Pictures are in " << qPrintable(QDir(words.first()).absolutePath()) << '\n';
  return 0;
}
