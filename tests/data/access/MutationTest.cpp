#include "ConvertFixture.h"

#include <QRandomGenerator>

/// Files spoilt in the ways in which disks, cables and programs spoil them. QUILLARY_MUTATIONS asks
/// for more of them than the suite tries.
namespace quillary {
namespace {

constexpr int kMutatedPage = 4096;

QByteArray Spoil(QByteArray bytes, QRandomGenerator& random) {
  const int pages = static_cast<int>(bytes.size()) / kMutatedPage;
  const auto page = [&] { return random.bounded(pages) * kMutatedPage; };
  const auto anywhere = [&] { return random.bounded(static_cast<int>(bytes.size())); };
  switch (random.bounded(6)) {
    case 0:  // single bits
      for (int i = random.bounded(1, 40); i > 0; --i) {
        const int at = anywhere();
        bytes[at] = static_cast<char>(bytes[at] ^ (1 << random.bounded(8)));
      }
      break;
    case 1:  // pages that were never written
      for (int i = random.bounded(1, 4); i > 0; --i) {
        bytes.replace(page(), kMutatedPage, QByteArray(kMutatedPage, '\0'));
      }
      break;
    case 2:  // a stretch of noise
      for (int at = anywhere(), end = at + random.bounded(1, 600); at < end; ++at) {
        bytes[at % bytes.size()] = static_cast<char>(random.bounded(256));
      }
      break;
    case 3:  // the end is missing
      bytes.truncate(random.bounded(1, pages) * kMutatedPage);
      break;
    case 4:  // a page in the place of another
      bytes.replace(page(), kMutatedPage, bytes.mid(page(), kMutatedPage));
      break;
    default:  // the head of a page, where its kind, owner and row count stand
      for (int start = page(), i = random.bounded(1, 8); i > 0; --i) {
        bytes[start + random.bounded(64)] = static_cast<char>(random.bounded(256));
      }
  }
  return bytes;
}

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
