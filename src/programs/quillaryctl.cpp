#include "cli/CommandLine.h"

#include <QCoreApplication>
#include <QTextStream>

#include <langinfo.h>
#include <locale.h>
#include <stdlib.h>

#include <cstdio>
#include <cstring>

namespace {

/// Scripts often run in the C locale. Qt complains of it on stderr, where our callers expect one
/// clear line or nothing.
void SettleOnUtf8() {
  setlocale(LC_ALL, "");
  if (std::strcmp(nl_langinfo(CODESET), "UTF-8") != 0) setenv("LC_ALL", "C.UTF-8", 1);
}

}  // namespace

int main(int count, char** arguments) {
  SettleOnUtf8();
  QCoreApplication application(count, arguments);
  QCoreApplication::setApplicationName(QStringLiteral("quillaryctl"));
  QTextStream out(stdout);
  QTextStream err(stderr);
  return quillary::cli::RunCommandLine(QCoreApplication::arguments().mid(1), out, err);
}
