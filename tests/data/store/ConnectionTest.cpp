#include "data/store/Connection.h"

#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace quillary {
namespace {

class ConnectionTest : public ::testing::Test {
 protected:
  void SetUp() override {
    file.Open(OpenMode::Create);
    file.Run(
        "CREATE TABLE Jobs (Job_ID COUNTER, Name TEXT(50), Price CURRENCY, Day DATE, "
        "Paid YESNO, Notes MEMO, Sequence INT)");
  }
  qint64 Count() { return file.Run("SELECT COUNT(*) FROM Jobs").Field(size_t{0}).ToLong(); }

  QTemporaryDir folder;
  QString path = folder.filePath(QStringLiteral("DATA.MDB"));
  Connection file{path};
};

TEST_F(ConnectionTest, ValuesComeBackAsTheyWereWritten) {
  const DateTime moment(QDate(2019, 3, 5), QTime(14, 7, 9));
  const QString name = QStringLiteral("O'Brien {}; \"Zoë\" \u00fc");
  file.Run(
      Sql("INSERT INTO Jobs (Name, Price, Day, Paid, Notes, Sequence) "
          "VALUES ({}, {}, {}, {}, {}, {})",
          name, Money::FromUnits(1234567), moment, true, "line\nline", 7));
  const Recordset row = file.Run("SELECT * FROM Jobs");
  EXPECT_EQ(row.Field(u"Name"), Value(name));
  EXPECT_EQ(row.Field(u"Price"), Value(Money::FromUnits(1234567)));
  EXPECT_EQ(row.Field(u"Day"), Value(moment));
  EXPECT_EQ(row.Field(u"Paid"), Value(true));
  EXPECT_EQ(row.Field(u"Notes"), Value(QStringLiteral("line\nline")));
  EXPECT_EQ(row.Field(u"sequence"), Value(7));
}

TEST_F(ConnectionTest, TheSameShapeServesOtherLiteralsAndTypes) {
  for (int job = 1; job <= 3; ++job) {
    file.Run(Sql("INSERT INTO Jobs (Name, Sequence) VALUES ({}, {})", QString::number(job), job));
  }
  for (int job = 1; job <= 3; ++job) {
    const Sql byNumber("SELECT Name FROM Jobs WHERE Sequence = {}", job);
    EXPECT_EQ(file.Run(byNumber).Field(size_t{0}).ToText(), QString::number(job));
    const Sql byText("SELECT Name FROM Jobs WHERE Sequence = {}", QString::number(job));
    EXPECT_EQ(file.Run(byText).Field(size_t{0}).ToText(), QString::number(job));
  }
  EXPECT_TRUE(file.Run(Sql("SELECT Name FROM Jobs WHERE Sequence = {}", nullptr)).EndOfFile());
}

TEST_F(ConnectionTest, SumsOfCurrencyDoNotDrift) {
  file.Begin();
  for (int job = 0; job < 10000; ++job) file.Run("INSERT INTO Jobs (Price) VALUES (0.1)");
  EXPECT_EQ(file.Run("SELECT SUM(Price) FROM Jobs").Field(size_t{0}),
            Value(Money::FromWhole(1000)));
  for (int job = 0; job < 1000; ++job) {
    file.Run("UPDATE Jobs SET Price = Price + 0.1 WHERE Job_ID = 1");
  }
  EXPECT_FALSE(file.Run("SELECT Job_ID FROM Jobs WHERE Price = 100.1").EndOfFile());
  file.Commit();
}

TEST_F(ConnectionTest, CountersAreNeverHandedOutTwice) {
  file.Run("INSERT INTO Jobs (Name) VALUES ('a')");
  file.Run("INSERT INTO Jobs (Name) VALUES ('b')");
  file.Run("DELETE FROM Jobs WHERE Job_ID = 2");
  file.Run("INSERT INTO Jobs (Name) VALUES ('c')");
  EXPECT_EQ(file.Run("SELECT MAX(Job_ID) FROM Jobs").Field(size_t{0}), Value(3));
}

TEST_F(ConnectionTest, RefusedStatementsChangeNothing) {
  file.Run("INSERT INTO Jobs (Name, Sequence) VALUES ('a', 1)");
  const char* refused[] = {
      "UPDATE Jobs SET Nobody = 1",
      "SELECT * FROM Nowhere",
      "UPDATE Jobs SET Name = 'unbalanced",
      "UPDATE Jobs SET Day = #2026/2/30#",
      "UPDATE Jobs SET Sequence = 'many'",
      "UPDATE Jobs SET Price = 'twelve'",
      "INSERT INTO Jobs (Name) VALUES ('a'); DELETE FROM Jobs",
      "PRAGMA journal_mode = DELETE",
      "ATTACH 'other.db' AS other",
      "SELECT * FROM sqlite_sequence",
      "UPDATE sqlite_master SET sql = ''",
  };
  for (const char* statement : refused) {
    EXPECT_THROW(file.Run(statement), StatementRefused) << statement;
  }
  EXPECT_EQ(file.Run("SELECT Name, Sequence, Day FROM Jobs").RowCount(), 1u);
}

TEST_F(ConnectionTest, TenThousandParenthesesAreRefused) {
  const std::string deep =
      "SELECT " + std::string(10000, '(') + "1" + std::string(10000, ')') + " FROM Jobs";
  EXPECT_THROW(file.Run(deep), StatementRefused);
}

TEST_F(ConnectionTest, AnIndexSortsForAsLongAsItSortsRight) {
  const auto names = [&] {
    QString all;
    for (const Record row : file.Run("SELECT Name FROM Jobs ORDER BY Name")) {
      all += row[size_t{0}].ToText() + u' ';
    }
    return all;
  };
  const auto add = [&](const char* name) {
    file.Run(Sql("INSERT INTO Jobs (Name, Notes) VALUES ({}, {})", name, name));
  };
  file.Run("CREATE INDEX ByName ON Jobs (Name)");
  for (const char* name : {"paul", "Nora", "ole"}) add(name);
  EXPECT_EQ(names(), u"Nora ole paul ");
  add("Óla");
  EXPECT_EQ(names(), u"Nora Óla ole paul ");
  file.Run("DELETE FROM Jobs WHERE Name = 'óla'");
  file.Run("UPDATE Jobs SET Notes = 'Ärger' WHERE Name = 'PAUL'");
  EXPECT_EQ(names(), u"Nora ole paul ");
  file.Begin();
  file.Run("UPDATE Jobs SET Name = Notes");
  EXPECT_EQ(names(), u"Ärger Nora ole ");
  file.Run("DELETE FROM Jobs WHERE Name = 'ÄRGER'");
  EXPECT_EQ(names(), u"Nora ole ");
  file.Rollback();
  file.Run("INSERT INTO Jobs (Name) SELECT Left(Notes, 2) FROM Jobs");
  EXPECT_EQ(names(), u"Är No Nora ol ole paul ");
  file.Run("DELETE FROM Jobs WHERE Name LIKE 'ä*'");
  EXPECT_EQ(names(), u"No Nora ol ole paul ");
  Execute(file.Handle(), "UPDATE Jobs SET Name = 'Ówen' WHERE Name = 'No'");
  EXPECT_EQ(names(), u"Nora ol ole Ówen paul ");
}

TEST_F(ConnectionTest, SchemaChangesReachCachedStatements) {
  file.Run("INSERT INTO Jobs (Name) VALUES ('a')");
  EXPECT_EQ(file.Run("SELECT * FROM Jobs").Columns().size(), 7u);
  file.Run("ALTER TABLE Jobs ADD COLUMN Done YESNO, Owner TEXT(20)");
  const Recordset row = file.Run("SELECT * FROM Jobs");
  EXPECT_EQ(row.Columns().size(), 9u);
  EXPECT_EQ(row.Field(u"Done"), Value(false));
  EXPECT_THROW(file.Run("ALTER TABLE Jobs ADD COLUMN Fresh LONG, Name TEXT(20)"), StatementRefused);
  EXPECT_FALSE(file.Run("SELECT * FROM Jobs").FieldExists(u"Fresh"));
}

TEST_F(ConnectionTest, UndoneSchemaChangesAreForgotten) {
  file.Begin();
  file.Run("ALTER TABLE Jobs ADD COLUMN Done YESNO");
  file.Run("SELECT Done FROM Jobs");
  file.Rollback();
  EXPECT_THROW(file.Run("SELECT Done FROM Jobs"), StatementRefused);
}

TEST_F(ConnectionTest, AnInnerPartIsUndoneByItself) {
  file.Begin();
  file.Run("INSERT INTO Jobs (Name) VALUES ('kept')");
  file.Begin();
  file.Run("INSERT INTO Jobs (Name) VALUES ('undone')");
  file.Rollback();
  file.Commit();
  EXPECT_EQ(Count(), 1);
}

TEST_F(ConnectionTest, WorkDoesNotGoOnAfterItsTransactionFell) {
  file.Begin();
  file.Run("INSERT INTO Jobs (Name) VALUES ('piece')");
  Execute(file.Handle(), "ROLLBACK");  // as SQLite does by itself on a full disk
  EXPECT_THROW(file.Run("INSERT INTO Jobs (Name) VALUES ('piece')"), StorageFailure);
  EXPECT_THROW(file.Commit(), StorageFailure);
  file.Rollback();
  EXPECT_EQ(Count(), 0);
}

TEST_F(ConnectionTest, SelectIntoMakesATableHereOrInAnotherFile) {
  file.Run("INSERT INTO Jobs (Name, Price) VALUES ('a', 5.5)");
  file.Run("SELECT Job_ID, Name, Price INTO Copy FROM Jobs");
  EXPECT_EQ(file.Run("SELECT Price FROM Copy").Field(size_t{0}), Value(Money::FromUnits(55000)));
  EXPECT_THROW(file.Run("SELECT * INTO Copy FROM Jobs"), StatementRefused);
  file.Run("INSERT INTO Copy (Name) VALUES ('next')");
  EXPECT_TRUE(file.Run("SELECT Job_ID FROM Copy WHERE Name = 'next'").Field(size_t{0}).IsNull())
      << "a copied counter counts on";
  file.Run("INSERT INTO Copy (Job_ID) VALUES (1)");

  const QString otherPath = folder.filePath(QStringLiteral("OTHER.MDB"));
  {
    Connection other(otherPath);
    other.Open(OpenMode::Create);
  }
  file.Run("SELECT * INTO Moved IN '" + otherPath.toStdString() + "' FROM Jobs");
  Connection other(otherPath);
  other.Open(OpenMode::Existing);
  EXPECT_EQ(other.Run("SELECT Name FROM Moved").Field(size_t{0}), Value("a"));
  other.Close();
  file.Run("SELECT * INTO Back FROM Moved IN '" + otherPath.toStdString() + "' WHERE Name = 'A'");
  EXPECT_EQ(file.Run("SELECT Price FROM Back").Field(size_t{0}), Value(Money::FromUnits(55000)));
  EXPECT_THROW(file.Run("SELECT * INTO Moved IN '/nowhere/x.mdb' FROM Jobs"), StatementRefused);
}

TEST_F(ConnectionTest, StatementsAskTheClockTheyAreGiven) {
  DateTime now(QDate(2026, 11, 2), QTime(14, 7));
  Connection timed(folder.filePath(QStringLiteral("TIMED.MDB")), [&] { return now; });
  timed.Open(OpenMode::Create);
  timed.Run("CREATE TABLE Jobs (Day DATE)");
  for (int day = 0; day < 2; ++day) {
    timed.Run("INSERT INTO Jobs (Day) VALUES (Now())");
    now.date = now.date.addDays(1);
  }
  EXPECT_EQ(timed.Run("SELECT Max(Day) FROM Jobs WHERE Day < Date()").Field(size_t{0}),
            Value(DateTime(QDate(2026, 11, 3), QTime(14, 7))));
  EXPECT_THROW(file.Run("SELECT Date() FROM Jobs"), StatementRefused) << "the machine's own clock";
}

TEST_F(ConnectionTest, ASecondProgramIsRefused) {
  Connection second(path);
  try {
    second.Open(OpenMode::Existing);
    FAIL() << "opened twice";
  } catch (const StorageFailure& failure) {
    EXPECT_EQ(failure.Fault(), StorageFault::InUse);
  }
  file.Run("INSERT INTO Jobs (Name) VALUES ('still ours')");
  file.Close();
  EXPECT_NO_THROW(second.Open(OpenMode::Existing));
}

TEST_F(ConnectionTest, ClosingLeavesOneSingleFile) {
  file.Run("INSERT INTO Jobs (Name) VALUES ('a')");
  file.Close();
  EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files), QStringList{QStringLiteral("DATA.MDB")});
}

TEST_F(ConnectionTest, TheFileReadsInAnySQLiteTool) {
  file.Run("INSERT INTO Jobs (Name, Price, Day) VALUES ('a', 12.5, #2026/11/2#)");
  file.Close();
  sqlite3* plain = nullptr;
  ASSERT_EQ(sqlite3_open(path.toUtf8().constData(), &plain), SQLITE_OK);
  Statement select(plain, "SELECT Price, Day FROM Jobs WHERE Name = 'A'");
  ASSERT_TRUE(select.Step());
  EXPECT_EQ(select.Column(0, jet::ColumnType::Double), Value(12.5));
  EXPECT_EQ(select.Column(1, jet::ColumnType::Text), Value("2026-11-02 00:00:00"));
  select.Reset();
  sqlite3_close_v2(plain);
}

TEST_F(ConnectionTest, WhatFailsBelowAStatementIsToldApart) {
  const std::pair<int, StorageFault> cases[] = {
      {SQLITE_FULL, StorageFault::DiskFull},
      {SQLITE_IOERR_FSYNC, StorageFault::InputOutput},
      {SQLITE_CORRUPT_INDEX, StorageFault::Damaged},
      {SQLITE_NOTADB, StorageFault::NotADatabase},
      {SQLITE_BUSY, StorageFault::InUse},
      {SQLITE_READONLY_DBMOVED, StorageFault::ReadOnly},
      {SQLITE_PERM, StorageFault::ReadOnly},
      {SQLITE_CANTOPEN_ISDIR, StorageFault::CannotOpen},
      {SQLITE_NOMEM, StorageFault::OutOfMemory},
  };
  for (const auto& [code, fault] : cases) {
    try {
      ThrowFailure(nullptr, code);
    } catch (const StorageFailure& failure) {
      EXPECT_EQ(failure.Fault(), fault) << sqlite3_errstr(code);
    }
  }
  EXPECT_THROW(ThrowFailure(nullptr, SQLITE_CONSTRAINT), StatementRefused);
  Connection again(path);
  try {
    again.Open(OpenMode::Create);
    FAIL() << "a file took the place of another";
  } catch (const StorageFailure& failure) {
    EXPECT_EQ(failure.Fault(), StorageFault::CannotOpen);
  }
}

struct BadFile {
  const char* fault;
  QByteArray (*spoil)(QByteArray);
  StorageFault expected;
};

TEST_F(ConnectionTest, UnusableFilesAreToldApartAndLeftAlone) {
  file.Begin();
  for (int job = 0; job < 2000; ++job) {
    file.Run(Sql("INSERT INTO Jobs (Name, Notes) VALUES ({}, {})", job, QString(80, u'x')));
  }
  file.Commit();
  file.Close();
  QFile good(path);
  ASSERT_TRUE(good.open(QIODevice::ReadOnly));
  const QByteArray bytes = good.readAll();
  const BadFile cases[] = {
      {"truncated", [](QByteArray b) { return b.left(b.size() / 2); }, StorageFault::Damaged},
      {"empty", [](QByteArray) { return QByteArray(); }, StorageFault::NotADatabase},
      {"foreign", [](QByteArray) { return QByteArray(5000, 'z'); }, StorageFault::NotADatabase},
      {"Access",
       [](QByteArray) {
         return QByteArray("\0\1\0\0Standard Jet DB\0", 20) + QByteArray(5000, '\0');
       },
       StorageFault::NotADatabase},
      {"zeroed schema", [](QByteArray b) { return b.replace(100, 3000, QByteArray(3000, '\0')); },
       StorageFault::Damaged},
  };
  for (const BadFile& bad : cases) {
    const QString badPath = folder.filePath(QStringLiteral("BAD.MDB"));
    QFile(badPath).remove();
    QFile out(badPath);
    ASSERT_TRUE(out.open(QIODevice::WriteOnly));
    out.write(bad.spoil(bytes));
    out.close();
    Connection connection(badPath);
    try {
      connection.Open(OpenMode::Existing);
      ADD_FAILURE() << bad.fault << " was opened";
    } catch (const StorageFailure& failure) {
      EXPECT_EQ(failure.Fault(), bad.expected) << bad.fault << ": " << failure.what();
      EXPECT_NE(QString(failure.what()).indexOf(badPath), -1) << failure.what();
    }
    ASSERT_TRUE(out.open(QIODevice::ReadOnly));
    EXPECT_EQ(out.readAll(), bad.spoil(bytes)) << bad.fault;
    EXPECT_FALSE(QFileInfo::exists(badPath + "-wal")) << bad.fault;
  }
  Connection missing(folder.filePath(QStringLiteral("MISSING.MDB")));
  EXPECT_THROW(missing.Open(OpenMode::Existing), StorageFailure);
  EXPECT_FALSE(QFileInfo::exists(folder.filePath(QStringLiteral("MISSING.MDB"))));
}

}  // namespace
}  // namespace quillary
