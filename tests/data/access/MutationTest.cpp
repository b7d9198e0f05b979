#include "ConvertFixture.h"
#include "support/SpoiltFile.h"

/// Files spoilt in the ways in which disks, cables and programs spoil them. QUILLARY_MUTATIONS asks
/// for more of them than the suite tries.
namespace quillary {
namespace {

TEST_F(ConvertTest, SpoiltFilesConvertWholeOrNotAtAll) {
  const QByteArray sample = Bytes(Sample(12));
  const int rounds = std::max(60, qEnvironmentVariableIntValue("QUILLARY_MUTATIONS"));
  ConversionOptions options;
  options.limits.processorSeconds = 3;
  options.limits.silentSeconds = 5;
  int converted = 0;
  for (int round = 0; round < rounds; ++round) {
    SCOPED_TRACE("mutation " + std::to_string(round));
    QRandomGenerator random(static_cast<quint32>(round));
    const QByteArray spoilt = Spoil(sample, random);
    const QString path = Write("old.mdb", spoilt);
    try {
      const ConversionReceipt receipt = ConvertAccessFile(path, Path("DATA.MDB"), options);
      ++converted;
      const auto file = Open(Path("DATA.MDB"));
      EXPECT_TRUE(receipt.IsClean());
      EXPECT_EQ(First(*file, "SELECT Count(*) FROM Diary").ToLong(), 1119);
      file->Close();
      QFile::remove(Path("DATA.MDB"));
    } catch (const AccessFailure& failure) {
      EXPECT_TRUE(QString::fromUtf8(failure.what()).startsWith(path)) << failure.what();
    }
    EXPECT_EQ(Made(path), QStringList());
    EXPECT_EQ(Bytes(path), spoilt);
  }
  RecordProperty("files", rounds);
  RecordProperty("converted", converted);
}

}  // namespace
}  // namespace quillary
