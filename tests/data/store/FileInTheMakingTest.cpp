#include "base/OwnFiles.h"
#include "data/store/Connection.h"
#include "data/store/FileInTheMaking.h"
#include "data/store/StorageFailure.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>
#include <sys/stat.h>

namespace quillary {
namespace {

using Place = FileInTheMaking::Place;
using Content = FileInTheMaking::Content;

unsigned ModeOf(const QString& path) {
  struct stat now {};
  EXPECT_EQ(stat(QFile::encodeName(path).constData(), &now), 0) << path.toStdString();
  return now.st_mode & 0777;
}

class OwnFilesTest : public ::testing::Test {
 protected:
  ~OwnFilesTest() override { umask(0022); }
  void Lay(const QString& path, const QByteArray& bytes) const {
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(bytes);
    file.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ReadGroup | QFile::ReadOther);
  }
  QByteArray Bytes(const QString& path) const {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("(none)");
  }
  QStringList Files() const {
    return QDir(folder_.path()).entryList(QDir::Files | QDir::Hidden | QDir::System);
  }

  QTemporaryDir folder_;
  const QString file_ = folder_.filePath("a file");
};

TEST_F(OwnFilesTest, AreTheirOwnersWhateverTheUmask) {
  for (const mode_t mask : {0000U, 0022U, 0377U}) {
    SCOPED_TRACE(mask);
    const QString folder = folder_.filePath(QStringLiteral("umask %1/below/it").arg(mask));
    umask(mask);
    ASSERT_TRUE(MakeOwnFolder(folder));
    const QString document = folder + "/document.pdf";
    WriteWhole(document, "words");
    const QString business = folder + "/DATA.MDB";
    Connection store(business);
    store.Open(OpenMode::Create);
    store.Run("CREATE TABLE Jobs (Job_ID COUNTER)");
    store.CopyTo(folder + "/copy.MDB");
    for (const char* name : {"/document.pdf", "/DATA.MDB", "/DATA.MDB-wal", "/copy.MDB"})
      EXPECT_EQ(ModeOf(folder + name), 0600U) << name;
    for (const char* above : {"", "/..", "/../.."}) EXPECT_EQ(ModeOf(folder + above), 0700U);
  }
}

TEST_F(OwnFilesTest, AreTheirOwnersWhereOthersCouldReadWhatWasThere) {
  Lay(file_, "older");
  WriteWhole(file_, "newer");
  EXPECT_EQ(Bytes(file_), "newer");
  EXPECT_EQ(ModeOf(file_), 0600U);
  const QString business = folder_.filePath("DATA.MDB");
  {
    Connection made(business);
    made.Open(OpenMode::Create);
  }
  QFile(business).setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ReadOther);
  Connection opened(business);
  opened.Open(OpenMode::Existing);
  EXPECT_EQ(ModeOf(business), 0600U);
}

TEST_F(OwnFilesTest, ALinkStaysOneAndItsFileIsReplaced) {
  Lay(file_, "older");
  const QString link = folder_.filePath("link");
  ASSERT_TRUE(QFile::link(file_, link));
  WriteWhole(link, "newer");
  EXPECT_EQ(QFile::symLinkTarget(link), file_);
  EXPECT_EQ(Bytes(file_), "newer");
}

TEST_F(OwnFilesTest, WhatIsNotFinishedLeavesNothingBehind) {
  Lay(file_, "older");
  for (const Content content : {Content::Business, Content::Document}) {
    const FileInTheMaking made(file_, Place::Replacing, content);
    Lay(made.Path(), "half");
    if (content == Content::Business) Lay(made.Path() + "-wal", "log");
  }
  EXPECT_EQ(Bytes(file_), "older");
  EXPECT_EQ(Files(), QStringList{"a file"});
  EXPECT_THROW(WriteWhole(folder_.filePath("no folder/file"), "x"), StorageFailure);
}

TEST_F(OwnFilesTest, AFreePlaceIsNotTakenFromOneWhoWasFaster) {
  for (const Content content : {Content::Business, Content::Document}) {
    QFile::remove(file_);
    FileInTheMaking made(file_, Place::Free, content);
    Lay(made.Path(), "mine");
    Lay(file_, "theirs");
    EXPECT_THROW(made.TakeItsPlace(), StorageFailure);
    EXPECT_EQ(Bytes(file_), "theirs");
  }
  EXPECT_THROW(FileInTheMaking{file_}, StorageFailure);
}

TEST_F(OwnFilesTest, WhatAKilledProgramLeftGoesAfterADay) {
  const QString forgotten = file_ + ".0123abcd.tmp";
  const QString ofToday = file_ + ".00000001.tmp";
  const QString ofAnother = folder_.filePath("another file.0123abcd.tmp");
  for (const QString& left : {forgotten, ofToday, ofAnother}) {
    Lay(left, "half a business");
    QFile file(left);
    ASSERT_TRUE(file.open(QIODevice::ReadWrite));
    const int hours = left == ofToday ? 1 : 25;
    file.setFileTime(QDateTime::currentDateTime().addSecs(-3600 * hours),
                     QFileDevice::FileModificationTime);
  }
  const FileInTheMaking made(file_);
  EXPECT_FALSE(QFile::exists(forgotten));
  EXPECT_TRUE(QFile::exists(ofToday));
  EXPECT_TRUE(QFile::exists(ofAnother)) << "another file may be in the making for long";
}

}  // namespace
}  // namespace quillary
