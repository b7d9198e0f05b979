#include "ConvertFixture.h"
#include "data/access/ReceiptFile.h"

#include <QRegularExpression>

#include <sys/stat.h>

#include <cmath>
#include <limits>

namespace quillary {
namespace {

constexpr qsizetype kPage = 4096;
constexpr qsizetype kClientsPage = 24;  // of the sample of version 12
constexpr qsizetype kRowCountAt = 16;

/// Replaces bytes of the same length wherever they stand.
QByteArray Renamed(QByteArray bytes, const QByteArray& name, const QByteArray& other) {
  bytes.replace(name, other);
  QByteArray wide;
  QByteArray wideOther;
  for (qsizetype i = 0; i < name.size(); ++i) {
    wide += name.mid(i, 1) + '\0';
    wideOther += other.mid(i, 1) + '\0';
  }
  return bytes.replace(wide, wideOther);
}

QByteArray Raw(const auto& value) {
  return QByteArray(reinterpret_cast<const char*>(&value), sizeof value);
}

/// Puts other bytes in place of the last occurrence, which lies in a row rather than in an index.
QByteArray WithLast(QByteArray bytes, const QByteArray& what, const QByteArray& other) {
  const qsizetype at = bytes.lastIndexOf(what);
  EXPECT_GE(at, 0);
  return bytes.replace(at, what.size(), other);
}

class BadFilesTest : public ConvertTest {};

TEST_F(BadFilesTest, EachIsToldForWhatItIs) {
  const QByteArray sample = Bytes(Sample(12));
  QByteArray moreRows = sample;
  moreRows[kClientsPage * kPage + kRowCountAt] = 61;
  const double day = 46266;  // 1 September 2026
  const qint64 price = 85 * Money::kUnitsPerOne;
  const struct {
    const char* fault;
    QByteArray bytes;
    const char* message;
  } cases[] = {
      {"empty", "", "is no Access file"},
      {"a text", "Dear Sir or Madam", "is no Access file"},
      {"a business already", QByteArray("SQLite format 3").leftJustified(8192, '\0'),
       "is no Access file"},
      {"cut within a page", sample.left(sample.size() - 100), "cut short"},
      {"cut after a page", sample.left(20 * kPage), "damaged"},
      {"only the first page", sample.left(kPage), "damaged"},
      {"all but the first page zeroed", sample.left(kPage) + QByteArray(40 * kPage, '\0'),
       "damaged"},
      {"no business", Renamed(sample, "Diary_Services", "Parts_Services"),
       "no business of Quillary: it lacks the tables Diary_Services"},
      {"without a version", Renamed(sample, "Database_Version", "Dat_base_Version"),
       "tells no version"},
      {"fewer rows than declared", moreRows, "Clients: 61 rows declared, 60 read"},
      {"a date that is none", WithLast(sample, Raw(day), Raw(std::nan(""))),
       "rows rejected, the first: row"},
      {"an amount beyond all measure",
       WithLast(sample, Raw(price), Raw(std::numeric_limits<qint64>::max())),
       "rows rejected, the first: row"},
  };
  for (const auto& entry : cases) {
    const QString path = Write("old.mdb", entry.bytes);
    const QString failure = FailureOf(path);
    EXPECT_TRUE(failure.contains(entry.message)) << entry.fault << ": " << failure.toStdString();
    EXPECT_TRUE(failure.startsWith(path)) << "names the file: " << failure.toStdString();
    EXPECT_EQ(Made(path), QStringList()) << entry.fault;
    EXPECT_EQ(Bytes(path), entry.bytes) << entry.fault;
  }
}

TEST_F(BadFilesTest, MissingAndForeignPlaces) {
  EXPECT_TRUE(FailureOf(Path("none.mdb")).contains("was not found"));
  EXPECT_TRUE(FailureOf(folder.path()).contains("is no file"));
  ASSERT_EQ(mkfifo(Path("pipe").toLocal8Bit().constData(), 0600), 0);
  EXPECT_TRUE(FailureOf(Path("pipe")).contains("is no file")) << "a pipe would be waited for";
  EXPECT_THROW(ConvertAccessFile(Sample(12), Path("nowhere/DATA.MDB")), StorageFailure);
}

TEST_F(BadFilesTest, AFileThatIsThereIsNeverOverwritten) {
  const QString target = Write("DATA.MDB", "precious");
  EXPECT_TRUE(FailureOf(Sample(12)).contains("exists already"));
  EXPECT_EQ(Bytes(target), "precious");
}

TEST_F(BadFilesTest, WhatIsAcceptedIsKeptAndTold) {
  QByteArray bytes = Bytes(Sample(12));
  bytes[kClientsPage * kPage + kRowCountAt] = 61;
  const QString path = Write("old.mdb", bytes);
  QStringList shown;
  ConversionOptions options;
  options.accept = [&](const ConversionReceipt& receipt) {
    shown = receipt.Findings();
    return true;
  };
  const ConversionReceipt receipt = ConvertAccessFile(path, Path("DATA.MDB"), options);
  EXPECT_EQ(shown, QStringList{"Clients: 61 rows declared, 60 read"});
  EXPECT_EQ(receipt.Findings(), shown);
  EXPECT_EQ(Made(path), QStringList{"DATA.MDB"});
  const QString kept =
      KeepReceipt(receipt, path, Path("DATA.MDB"), {QDate(2026, 11, 2), QTime(9, 0)},
                  "The differences were accepted.");
  EXPECT_EQ(kept, path + ".receipt.txt");
  const QString text = QString::fromUtf8(Bytes(kept));
  for (const char* line : {"on 2026-11-02 09:00:00, version 12\nThe differences were accepted.\n",
                           "\nClients: 61 rows declared, 60 read, 60 written, 0 rejected\n"}) {
    EXPECT_TRUE(text.contains(line)) << text.toStdString();
  }
  EXPECT_TRUE(
      text.contains(QRegularExpression("\n    Amount: \\$[0-9,.]+ read, \\$[0-9,.]+ written\n")))
      << text.toStdString();
}

/// A reader that does what a real one might do on a damaged file.
struct BadReader {
  const char* fault;
  const char* script;
  const char* message;
};

void PrintTo(const BadReader& reader, std::ostream* out) {
  *out << reader.script;
}

class BadReaderTest : public ConvertTest, public ::testing::WithParamInterface<BadReader> {
 protected:
  void TearDown() override { qunsetenv("QUILLARY_ACCESS_READER"); }
};

TEST_P(BadReaderTest, BecomesAMessage) {
  const QString reader = Write("reader", QByteArray("#!/bin/sh\n") + GetParam().script);
  QFile::setPermissions(reader, QFile::ReadOwner | QFile::ExeOwner);
  qputenv("QUILLARY_ACCESS_READER", reader.toLocal8Bit());
  ConversionOptions options;
  options.limits.silentSeconds = 1;
  const QString failure = FailureOf(Sample(12), options);
  EXPECT_TRUE(failure.contains(GetParam().message)) << failure.toStdString();
  EXPECT_EQ(Made(reader), QStringList());
}

INSTANTIATE_TEST_SUITE_P(
    Ways, BadReaderTest,
    ::testing::Values(
        BadReader{"Crashes", "kill -SEGV $$", "broke off in its list of tables"},
        BadReader{"EndsEarly", "exit 0", "broke off in its list of tables"},
        BadReader{"Hangs", "exec sleep 60", "took too long in its list of tables"},
        BadReader{"UsesUpItsTime", "kill -XCPU $$", "took too long"},
        BadReader{"SaysNonsense", "head -c 100000 /dev/zero | tr '\\0' '\\377' >&3",
                  "went astray in its list of tables"},
        BadReader{"EndsWithoutTables", "printf '\\0\\0\\0\\0\\4' >&3", "went astray"},
        BadReader{"SendsRowsOfNoTable", "printf '\\0\\0\\0\\1\\1\\0' >&3", "went astray"},
        BadReader{"BreaksOffWithinAFrame", "printf '\\0\\0\\1\\0\\0ab' >&3", "broke off"},
        BadReader{"GivesAReason", "printf '\\0\\0\\0\\2\\5no' >&3", "is damaged: no"}),
    [](const auto& entry) { return std::string(entry.param.fault); });

TEST_F(BadFilesTest, TheReaderIsToldTheCodePage) {
  const QString reader =
      Write("reader", "#!/bin/sh\nprintf '\\0\\0\\0\\6\\5%s' \"$MDB_JET3_CHARSET\" >&3");
  QFile::setPermissions(reader, QFile::ReadOwner | QFile::ExeOwner);
  qputenv("QUILLARY_ACCESS_READER", reader.toLocal8Bit());
  ConversionOptions options;
  EXPECT_TRUE(FailureOf(Sample(12), options).contains("is damaged: CP1252"));
  options.codePage = "CP1250";
  EXPECT_TRUE(FailureOf(Sample(12), options).contains("is damaged: CP1250"));
  options.codePage = "CP1250//IGNORE";
  EXPECT_TRUE(FailureOf(Sample(12), options).contains("is no code page"));
  qunsetenv("QUILLARY_ACCESS_READER");
}

TEST_F(BadFilesTest, AMissingReaderIsNamed) {
  qputenv("QUILLARY_ACCESS_READER", "/nowhere/reader");
  EXPECT_TRUE(FailureOf(Sample(12)).contains("/nowhere/reader"));
  qunsetenv("QUILLARY_ACCESS_READER");
}

TEST_F(BadFilesTest, WithoutMemoryNothingIsMade) {
#ifdef __SANITIZE_ADDRESS__
  GTEST_SKIP() << "the sanitizer maps more memory than any limit";
#endif
  ConversionOptions options;
  options.limits.memoryBytes = 1 << 20;
  EXPECT_NE(FailureOf(Sample(12), options), "");
  EXPECT_EQ(Made({}), QStringList());
}

}  // namespace
}  // namespace quillary
