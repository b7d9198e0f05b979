#pragma once

#include "data/access/ConvertAccessFile.h"
#include "data/store/Connection.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <memory>

namespace quillary {

/// A folder of its own for each test, with copies of the sample files to spoil.
class ConvertTest : public ::testing::Test {
 protected:
  static QString Sample(int version) {
    return QStringLiteral(QUILLARY_TEST_DATA "/access-v%1.mdb").arg(version);
  }
  QString Path(const QString& name) const { return folder.filePath(name); }

  static QByteArray Bytes(const QString& path) {
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << path.toStdString();
    return file.readAll();
  }
  QString Write(const QString& name, const QByteArray& bytes) const {
    QFile file(Path(name));
    EXPECT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(bytes);
    return file.fileName();
  }

  /// The words of the failure; "" when the conversion went through.
  QString FailureOf(const QString& accessFile, const ConversionOptions& options = {}) const {
    try {
      ConvertAccessFile(accessFile, Path("DATA.MDB"), options);
      return {};
    } catch (const ProgramError& failure) {
      return QString::fromUtf8(failure.what());
    }
  }
  /// What lies in the folder beside the Access file.
  QStringList Made(const QString& accessFile) const {
    QStringList names = QDir(folder.path()).entryList(QDir::Files);
    names.removeAll(QFileInfo(accessFile).fileName());
    return names;
  }

  std::unique_ptr<Connection> Open(const QString& path) const {
    auto file = std::make_unique<Connection>(path);
    file->Open(OpenMode::Existing);
    return file;
  }
  static Value First(Connection& file, const char* statement) {
    const Recordset rows = file.Run(statement);
    return rows.EndOfFile() ? Value() : rows.Field(size_t{0});
  }

  QTemporaryDir folder;
};

}  // namespace quillary
