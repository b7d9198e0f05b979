#include "FaultFiles.h"
#include "session/StartUp.h"
#include "setup/demo/DemoBusiness.h"

namespace quillary {
namespace {

/// Files that are no business, or one no more, at the door of the program.
class BadFileTest : public FaultTest {};

struct BadFile {
  const char* fault;
  QByteArray bytes;
  const char* message;
};

TEST_F(BadFileTest, IsToldForWhatItIsAndKeepsEveryByte) {
  setup::WriteDemoBusiness(business(), {.clients = 20, .months = 2, .seed = 2});
  business().CloseConnection();
  const QByteArray whole = Bytes(business().DatabaseFile());
  constexpr qsizetype kPage = 4096;
  QByteArray spoiltSchema = whole;
  spoiltSchema.replace(100, 40, QByteArray(40, '\xff'));
  QByteArray noHead = whole;
  noHead[3] = static_cast<char>(noHead[3] ^ 4);
  const BadFile cases[] = {
      {"cut short", whole.left(whole.size() / 2), "is damaged"},
      {"cut within its first page", whole.left(2000), "Archive"},
      {"a bit of its mark flipped", noHead, "is no business file"},
      {"its list of tables overwritten", spoiltSchema, "is damaged"},
      {"zeroed", QByteArray(whole.size(), '\0'), "is no business file"},
      {"zeroed behind its first page", whole.left(kPage) + QByteArray(whole.size() - kPage, '\0'),
       "is damaged"},
      {"a text", "Dear Sir or Madam", "is no business file"},
      {"empty", "", "is no business file"},
  };
  for (const BadFile& bad : cases) {
    SCOPED_TRACE(bad.fault);
    const QString path = Write("BAD.MDB", bad.bytes);
    try {
      Business file(outside.Ports(), path);
      file.ConnectToDatabase();
      ADD_FAILURE() << "it opened";
    } catch (const StorageFailure& failure) {
      const QString words = failure.what();
      EXPECT_TRUE(words.contains(bad.message)) << failure.what();
      EXPECT_TRUE(words.startsWith(path)) << failure.what();
      EXPECT_TRUE(words.contains("Archive")) << "points to the backups: " << failure.what();
      const QString box = session::CannotConnectMessage(folder.path(), failure);
      EXPECT_TRUE(box.contains("please use CompactDB.exe to repair your database"));
      EXPECT_TRUE(box.contains(words));
    }
    EXPECT_EQ(Bytes(path), bad.bytes);
    EXPECT_FALSE(QFile::exists(path + "-wal"));
  }
}

TEST_F(BadFileTest, AFlippedBitEitherOpensOrIsToldAndNeverCrashes) {
  setup::WriteDemoBusiness(business(), {.clients = 12, .months = 1, .seed = 4});
  business().CloseConnection();
  const QByteArray whole = Bytes(business().DatabaseFile());
  for (int at = 0; at < 4096; at += 23) {
    QByteArray bytes = whole;
    bytes[at] = static_cast<char>(bytes[at] ^ 0x10);
    const QString path = Write("BAD.MDB", bytes);
    Business file(outside.Ports(), path);
    try {
      file.ConnectToDatabase();
      file.CloseConnection();
    } catch (const StorageFailure& failure) {
      EXPECT_TRUE(QString(failure.what()).contains("BAD.MDB")) << at << ": " << failure.what();
      EXPECT_EQ(Bytes(path), bytes) << at;
    }
    Remove(path);
  }
}

}  // namespace
}  // namespace quillary
