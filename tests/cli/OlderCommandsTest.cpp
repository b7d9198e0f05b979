#include "CompanionFixture.h"

namespace quillary::cli {
namespace {

class OlderCommandsTest : public CompanionTest {};

TEST_F(OlderCommandsTest, TheBusinessStartsRollsAndIsInOrderAfterwards) {
  environment.insert("QUILLARY_TODAY", "2026-11-16");
  Done({"new", "d.mdb"});
  ASSERT_TRUE(QFile::copy(QUILLARY_TEST_DATA "/older-product.mdb", Path("old.mdb")));
  QFile older(Path("old.mdb"));
  ASSERT_TRUE(older.open(QIODevice::ReadOnly));
  const QByteArray source = older.readAll();
  const Result refused = Run({"import-older", "d.mdb", "old.mdb"});
  EXPECT_EQ(refused.exitCode, 1);
  EXPECT_TRUE(refused.err.contains("--yes"));
  Done({"import-older", "d.mdb", "old.mdb", "--yes"});
  EXPECT_EQ(Field("d.mdb", "SELECT Database_Version FROM infSystem").toInt(), 0);
  older.seek(0);
  EXPECT_EQ(older.readAll(), source) << "it is only read";
  EXPECT_TRUE(QFile::exists(Path("old.mdb.receipt.txt")));
  EXPECT_EQ(QDir(Path("Archive")).entryList({"*.MDB"}, QDir::Files).size(), 1);

  Done({"start", "d.mdb"});
  EXPECT_GT(Field("d.mdb", "SELECT Database_Version FROM infSystem").toInt(), 50);
  EXPECT_GT(Field("d.mdb",
                  "SELECT Count(*) AS N FROM Diary WHERE Status = 'J' AND Schedule_Date > "
                  "#2026/12/31#")
                .toInt(),
            0)
      << "the roll goes on from there";
  const Result check = Run({"check", "d.mdb"});
  EXPECT_EQ(check.exitCode, 0) << check.out.toStdString() << check.err.toStdString();
}

}  // namespace
}  // namespace quillary::cli
