#pragma once

#include "data/schema/Schema.h"
#include "data/store/Connection.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace quillary {

/// Runs the real program, on a folder of its own and on Monday 2 November 2026.
class CompanionTest : public ::testing::Test {
 protected:
  struct Result {
    int exitCode = -1;
    QString out;
    QString err;
  };

  void SetUp() override {
    environment.insert("QUILLARY_HOME", folder.path());
    environment.insert("QUILLARY_TODAY", "2026-11-02");
    environment.insert("LC_ALL", "C");
  }

  QString Path(const QString& name) const { return folder.filePath(name); }

  Result Run(const QStringList& arguments) const {
    QProcess process;
    process.setProcessEnvironment(environment);
    process.setWorkingDirectory(folder.path());
    process.start(QUILLARY_BIN "/quillaryctl", arguments);
    EXPECT_TRUE(process.waitForFinished(60'000)) << arguments.join(" ").toStdString();
    EXPECT_EQ(process.exitStatus(), QProcess::NormalExit) << arguments.join(" ").toStdString();
    return {process.exitCode(), QString::fromUtf8(process.readAllStandardOutput()),
            QString::fromUtf8(process.readAllStandardError())};
  }
  /// What it prints; anything but success fails the test.
  QString Done(const QStringList& arguments) const {
    const Result result = Run(arguments);
    EXPECT_EQ(result.exitCode, 0) << arguments.join(" ").toStdString() << "\n"
                                  << result.err.toStdString();
    EXPECT_EQ(result.err, "");
    return result.out;
  }
  QJsonDocument Json(const QStringList& arguments) const {
    const QString out = Done(QStringList{"--json"} + arguments);
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(out.toUtf8(), &error);
    EXPECT_EQ(error.error, QJsonParseError::NoError) << out.toStdString();
    return document;
  }
  /// The one field of the one row.
  QJsonValue Field(const QString& file, const QString& statement) const {
    return Json({"sql", file, statement}).array().first().toObject().begin().value();
  }

  static QByteArray Bytes(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("(none)");
  }
  void Write(const QString& name, const QByteArray& bytes) const {
    QFile file(Path(name));
    EXPECT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(bytes);
  }

  /// A copy of an Access file, since a conversion lays its receipt beside it.
  QString Sample(int version) const {
    const QString name = QStringLiteral("access-v%1.mdb").arg(version);
    Write(name, Bytes(QStringLiteral(QUILLARY_TEST_DATA "/") + name));
    return name;
  }

  /// Every field of every row of every table.
  QStringList Dump(const QString& file) const {
    Connection connection(Path(file));
    connection.Open(OpenMode::Existing);
    QStringList dump;
    for (const QString& table : BusinessTables()) {
      for (const Record row : connection.Run("SELECT * FROM " + table.toStdString())) {
        QString line = table;
        for (size_t i = 0; i < row.Size(); ++i) line += u'|' + row[i].ToText("null");
        dump += line;
      }
    }
    return dump;
  }

  QTemporaryDir folder;
  QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
};

}  // namespace quillary
