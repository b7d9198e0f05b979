#pragma once

#include "data/Business.h"
#include "data/schema/Schema.h"
#include "support/BusinessTest.h"

#include <QFile>

namespace quillary {

/// What the fault tests ask of files.
class FaultTest : public BusinessTest {
 protected:
  static QByteArray Bytes(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
  }
  QString Write(const QString& name, const QByteArray& bytes) const {
    QFile file(folder.filePath(name));
    EXPECT_TRUE(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
    file.write(bytes);
    return file.fileName();
  }
  /// Takes a file away, with what SQLite lays beside it.
  static void Remove(const QString& path) {
    for (const char* suffix : {"", "-wal", "-shm", "-journal"}) {
      QFile::remove(path + QLatin1String(suffix));
    }
  }
  /// Every field of every row of every table.
  static QStringList Dump(Business& file) {
    QStringList dump;
    for (const QString& table : BusinessTables()) {
      for (const Record row : file.RunSQL("SELECT * FROM " + table)) {
        QString line = table;
        for (size_t i = 0; i < row.Size(); ++i) line += u'|' + row[i].ToText("null");
        dump += line;
      }
    }
    return dump;
  }
};

}  // namespace quillary
