#include "CompanionFixture.h"

#include <QDir>

namespace quillary::cli {
namespace {

constexpr int kPage = 4096;

TEST_F(CompanionTest, CheckTellsWhatIsWrongAndFails) {
  Done({"demo", "good.mdb", "--clients", "20", "--months", "2"});
  EXPECT_EQ(Done({"check", "good.mdb"}), "good.mdb: in order\n");
  Done({"sql", "good.mdb", "UPDATE Diary SET Invoice_ID = 4711 WHERE Diary_ID = 1"});
  EXPECT_TRUE(Done({"check", "good.mdb"}).startsWith("note:  Diary: Invoice_ID"));
  Done(
      {"sql", "good.mdb", "INSERT INTO Client_Services (Client_ID, Service_ID) VALUES (99999, 1)"});
  const Result result = Run({"check", "good.mdb"});
  EXPECT_EQ(result.exitCode, 1);
  EXPECT_TRUE(
      result.out.contains("wrong: Client_Services: Client_ID points to nothing in Clients"));
  EXPECT_EQ(result.err, "quillaryctl: good.mdb: 1 findings\n");
}

TEST_F(CompanionTest, RepairSavesADamagedFile) {
  Done({"demo", "good.mdb", "--clients", "40", "--months", "6"});
  QByteArray bytes = Bytes(Path("good.mdb"));
  bytes.replace(bytes.size() / 2 / kPage * kPage, kPage, QByteArray(kPage, '\0'));
  Write("bad.mdb", bytes);
  const Result check = Run({"check", "bad.mdb"});
  EXPECT_EQ(check.exitCode, 1);
  EXPECT_TRUE(check.out.startsWith("wrong: file: "));
  const QString told = Done({"repair", "bad.mdb", "saved.mdb"});
  EXPECT_TRUE(told.contains("Clients: 40 saved, 0 lost\n")) << told.toStdString();
  EXPECT_EQ(Bytes(Path("bad.mdb")), bytes);
  EXPECT_FALSE(Run({"check", "saved.mdb"}).out.contains("wrong: file"));
  EXPECT_EQ(Run({"repair", "bad.mdb", "saved.mdb"}).exitCode, 1) << "nothing is overwritten";

  QProcess program;
  program.setWorkingDirectory(folder.path());
  environment.remove("DISPLAY");
  environment.remove("WAYLAND_DISPLAY");
  program.setProcessEnvironment(environment);
  program.start(QUILLARY_BIN "/CompactDB", {"bad.mdb"});
  ASSERT_TRUE(program.waitForFinished(60'000));
  EXPECT_EQ(program.exitCode(), 0) << program.readAllStandardError().toStdString();
  const QStringList kept = QDir(Path("Archive")).entryList({"bad damaged *.mdb"}, QDir::Files);
  ASSERT_EQ(kept.size(), 1);
  EXPECT_EQ(Bytes(Path("Archive/" + kept.front())), bytes);
  EXPECT_FALSE(Run({"check", "bad.mdb"}).out.contains("wrong: file"));
  EXPECT_TRUE(QFile::exists(Path("bad.mdb.repair.txt")));
}

TEST_F(CompanionTest, UpgradeClimbsTheLadderOnceAndConversionsKeepAReceipt) {
  const QString access = Sample(44);
  EXPECT_TRUE(Done({"convert", access, "old.mdb"}).contains("receipt: " + access + ".receipt.txt"));
  EXPECT_TRUE(Bytes(Path(access + ".receipt.txt")).contains("Everything was taken over."));
  EXPECT_EQ(Run({"convert", access, "x.mdb", "--code-page", "CP1250"}).exitCode, 2)
      << "its texts are Unicode";
  EXPECT_TRUE(Done({"upgrade", "old.mdb"}).endsWith("old.mdb: from version 44 to 57\n"));
  EXPECT_EQ(QDir(Path("Archive")).entryList({"old version 44 *.mdb"}, QDir::Files).size(), 1);
  EXPECT_EQ(Done({"upgrade", "old.mdb"}), "old.mdb: at version 57 already\n");
  Done({"check", "old.mdb"});
}

}  // namespace
}  // namespace quillary::cli
