#include "cli/CompanionFixture.h"

#include <QDirIterator>

#include <sys/stat.h>

namespace quillary {
namespace {

/// Everything that commands leave on the disk of a user whose umask hides nothing.
TEST_F(CompanionTest, NobodyElseCanReadWhatCommandsWrite) {
  umask(0);
  const QString file = Path("DATA.MDB");
  const QString access = Path(Sample(57));
  Done({"demo", file, "--clients", "12"});
  Done({"backup", file, "--description", "by hand"});
  Done({"--yes", "restore", file,
        Path("Archive/") + QDir(Path("Archive")).entryList(QDir::Files)[0]});
  Done({"compact", file});
  Done({"settings", file, "DO_DAILY_BACKUP", "1"});
  Done({"transferred", file, Path("theirs.mdb")});
  Run({"convert", access, Path("converted.mdb")});
  const QString invoice =
      QString::number(Field(file, "SELECT MAX(Invoice_ID) AS I FROM Invoices").toInt());
  for (const char* kind : {"invoice", "statement"}) {
    for (const char* form : {"pdf", "word"})
      Run({"document", file, kind, "--invoices", invoice, "--out", Path("out/of the way"),
           "--format", form});
  }
  umask(0022);
  int files = 0;
  QDirIterator all(folder.path(), QDir::AllEntries | QDir::NoDotAndDotDot | QDir::Hidden,
                   QDirIterator::Subdirectories);
  while (all.hasNext()) {
    const QString path = all.next();
    if (path == access) continue;  // which the user laid there
    struct stat now {};
    ASSERT_EQ(stat(QFile::encodeName(path).constData(), &now), 0);
    EXPECT_EQ(now.st_mode & 0077U, 0U) << path.toStdString();
    files += QFileInfo(path).isFile() ? 1 : 0;
  }
  EXPECT_GE(files, 11) << "a command that was to leave something left nothing";
}

}  // namespace
}  // namespace quillary
