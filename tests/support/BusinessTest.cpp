#include "support/BusinessTest.h"

#include "data/schema/Schema.h"

namespace quillary {
namespace {

/// An empty business, made once per test program; each test opens a copy.
const QByteArray& EmptyBusiness() {
  static const QByteArray bytes = [] {
    QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("EMPTY.MDB"));
    CreateEmptyBusiness(path);
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    return file.readAll();
  }();
  return bytes;
}

}  // namespace

void BusinessTest::SetUp() {
  const QString path = folder.filePath(QStringLiteral("DATA.MDB"));
  QFile file(path);
  ASSERT_TRUE(file.open(QIODevice::WriteOnly));
  file.write(EmptyBusiness());
  file.close();
  business_ = std::make_unique<Business>(outside.Ports(), path);
  business_->OnRefusedStatement([this](const RefusedStatement& refused) {
    for (const QString& part : announcedRefusals_) {
      if (refused.statement.contains(part)) return;
    }
    ADD_FAILURE() << "Refused: " << refused.statement.toStdString()
                  << "\nbecause: " << refused.reason.toStdString();
  });
  business_->ConnectToDatabase();
}

void BusinessTest::TearDown() {
  business_.reset();
  outside.prompter.CheckAllAsked();
  for (const QString& report : outside.errors.TakeReports()) {
    ADD_FAILURE() << "Reported: " << report.toStdString();
  }
}

void BusinessTest::ExpectRefused(const QString& part) {
  announcedRefusals_ += part;
}

Recordset BusinessTest::Run(const Sql& statement) {
  return business_->RunSQL(statement);
}

qint64 BusinessTest::Count(const char* table) {
  return business_->RunSQL(QStringLiteral("SELECT COUNT(*) FROM %1").arg(QString(table)))
      .Field(size_t{0})
      .ToLong();
}

}  // namespace quillary
