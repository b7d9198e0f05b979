#include "CompanionFixture.h"

#include <QDir>

#include <unistd.h>

namespace quillary::cli {
namespace {

constexpr int kFailed = 1;
constexpr int kWrongUsage = 2;

struct BadInput {
  const char* fault;
  QStringList arguments;
  int exitCode;
  const char* message;
};

class BadInputTest : public CompanionTest {
 protected:
  void SetUp() override {
    CompanionTest::SetUp();
    Done({"new", "good.mdb"});
    Done({"start", "good.mdb"});
    Done({"sql", "good.mdb", "INSERT INTO Diary (Status, Client_ID) VALUES ('J', 1)"});
    Done({"sql", "good.mdb", "INSERT INTO Diary (Status, Client_ID) VALUES ('JC', 1)"});
  }

  /// Each is told in one line, and leaves the file as it was.
  void Check(const std::vector<BadInput>& cases, const QString& file) {
    const QByteArray before = Bytes(Path(file));
    for (const BadInput& entry : cases) {
      const Result result = Run(entry.arguments);
      EXPECT_EQ(result.exitCode, entry.exitCode) << entry.fault;
      EXPECT_TRUE(result.err.contains(entry.message))
          << entry.fault << ": " << result.err.toStdString();
      EXPECT_EQ(result.err.count(u'\n'), entry.exitCode) << "a hint follows on wrong usage only";
      EXPECT_TRUE(result.err.startsWith("quillaryctl: ")) << result.err.toStdString();
      EXPECT_EQ(Bytes(Path(file)), before) << entry.fault;
    }
  }
};

TEST_F(BadInputTest, WrongUsage) {
  Check({{"nothing at all", {}, kWrongUsage, "a command is missing"},
         {"an unknown command", {"fly", "good.mdb"}, kWrongUsage, "no command fly"},
         {"an unknown option", {"roll", "good.mdb", "--fast"}, kWrongUsage, "no option --fast"},
         {"another command's option", {"roll", "good.mdb", "--seed", "1"}, kWrongUsage, "--seed"},
         {"no file", {"sql"}, kWrongUsage, "sql needs FILE STATEMENT"},
         {"a word too many", {"start", "good.mdb", "now"}, kWrongUsage, "\"now\""},
         {"an option without its value", {"demo", "x.mdb", "--seed"}, kWrongUsage, "needs a value"},
         {"a number that is none", {"demo", "x.mdb", "--clients", "ten"}, kWrongUsage, "\"ten\""},
         {"a number out of range", {"demo", "x.mdb", "--clients", "-1"}, kWrongUsage, "\"-1\""},
         {"a switch with a value", {"--json=yes", "start", "good.mdb"}, kWrongUsage, "no value"},
         {"diary of no day", {"diary", "good.mdb"}, kWrongUsage, "--from"},
         {"an entry that is no number", {"done", "good.mdb", "1x"}, kWrongUsage, "\"1x\""}},
        "good.mdb");
  EXPECT_EQ(Bytes(Path("x.mdb")), "(none)");
}

TEST_F(BadInputTest, StatementsAndDates) {
  const QString nested = QString(10'000, u'(') + u'1' + QString(10'000, u')');
  Check({{"a day that does not exist",
          {"diary", "good.mdb", "--from", "2026-02-30"},
          kFailed,
          "2026-02-30 is no date"},
         {"today does not exist",
          {"--today", "2026-13-01", "roll", "good.mdb"},
          kFailed,
          "2026-13-01 is no date"},
         {"the range runs backwards",
          {"diary", "good.mdb", "--from", "2026-11-03", "--to", "2026-11-02"},
          kFailed,
          "Please enter a valid date range."}},
        "good.mdb");
  const QStringList before = Dump("good.mdb");
  const std::pair<QString, const char*> statements[] = {
      {"SELECT Foo FROM Clients", "Foo"},
      {"SELECT * FROM Nowhere", "Nowhere"},
      {"UPDATE Diary SET Status = 'JD", "refused"},
      {"SELECT " + nested + " FROM Clients", "refused"},
      {"UPDATE Diary SET Schedule_Date = #2026/2/30#", "refused"},
      {"UPDATE Diary SET Total_Price = 'dear'", "refused"},
      {"DROP TABLE Clients; DROP TABLE Diary", "refused"},
      {"", "refused"},
  };
  for (const auto& [statement, message] : statements) {
    const Result result = Run({"sql", "good.mdb", statement});
    EXPECT_EQ(result.exitCode, kFailed) << statement.left(60).toStdString();
    EXPECT_TRUE(result.err.contains(message)) << result.err.toStdString();
    EXPECT_EQ(result.err.count(u'\n'), 1);
  }
  EXPECT_EQ(Dump("good.mdb"), before);
}

TEST_F(BadInputTest, APinnedDayThatDoesNotExist) {
  environment.insert("QUILLARY_TODAY", "2026-02-30");
  Check({{"the day is pinned from outside", {"start", "good.mdb"}, kFailed, "2026-02-30"}},
        "good.mdb");
}

TEST_F(BadInputTest, EntriesThatCannotBeDone) {
  const QStringList before = Dump("good.mdb");
  const std::pair<QStringList, const char*> cases[] = {
      {{"done", "good.mdb", "1", "99"}, "there is no entry 99"},
      {{"done", "good.mdb", "1", "2"}, "entry 2 is no job to be done: its status is JC"},
      {{"roll", "good.mdb", "--client", "77"}, "no client 77"},
  };
  for (const auto& [arguments, message] : cases) {
    const Result result = Run(arguments);
    EXPECT_EQ(result.exitCode, kFailed);
    EXPECT_TRUE(result.err.contains(message)) << result.err.toStdString();
  }
  EXPECT_EQ(Dump("good.mdb"), before);
}

TEST_F(BadInputTest, FilesThatAreNoBusiness) {
  const QByteArray good = Bytes(Path("good.mdb"));
  const QByteArray access = Bytes(Path(Sample(12)));
  const struct {
    const char* fault;
    QByteArray bytes;
    const char* message;
  } cases[] = {
      {"empty", "", "no business file"},
      {"a text", QByteArray("Dear Sir or Madam").repeated(400), "no business file"},
      {"cut in half", good.left(good.size() / 2 / 4096 * 4096 + 100), "bad.mdb"},
      {"a genuine Access file", access, "genuine Access file"},
  };
  for (const auto& entry : cases) {
    Write("bad.mdb", entry.bytes);
    Check({{entry.fault, {"start", "bad.mdb"}, kFailed, entry.message},
           {entry.fault, {"roll", "bad.mdb"}, kFailed, entry.message},
           {entry.fault, {"sql", "bad.mdb", "SELECT * FROM Clients"}, kFailed, entry.message}},
          "bad.mdb");
  }
  Check({{"missing", {"start", "none.mdb"}, kFailed, "was not found"},
         {"a folder", {"sql", ".", "SELECT 1"}, kFailed, "was not found"},
         {"a business is no Access file",
          {"convert", "good.mdb", "x.mdb"},
          kFailed,
          "no Access file"},
         {"nothing to convert", {"convert", "none.mdb", "x.mdb"}, kFailed, "was not found"},
         {"there already", {"new", "good.mdb"}, kFailed, "exists already"},
         {"there already", {"demo", "good.mdb"}, kFailed, "exists already"},
         {"there already", {"convert", Sample(12), "good.mdb"}, kFailed, "exists already"},
         {"no folder", {"new", "no/where.mdb"}, kFailed, "no folder"}},
        "good.mdb");
  EXPECT_EQ(Bytes(Path("x.mdb")), "(none)");
}

TEST_F(BadInputTest, AnOlderFileIsNotWorkedOn) {
  Done({"convert", Sample(12), "old.mdb"});
  const QStringList before = {Done({"sql", "old.mdb", "SELECT * FROM Diary"})};
  for (const QStringList& arguments : {QStringList{"roll", "old.mdb"},
                                       {"done", "old.mdb", "1"},
                                       {"diary", "old.mdb", "--from", "2026-11-02"}}) {
    const Result result = Run(arguments);
    EXPECT_EQ(result.exitCode, kFailed);
    EXPECT_TRUE(result.err.contains("version 12")) << result.err.toStdString();
  }
  EXPECT_EQ(QStringList{Done({"sql", "old.mdb", "SELECT * FROM Diary"})}, before);
}

TEST_F(BadInputTest, AFileInUse) {
  Connection holder(Path("good.mdb"));
  holder.Open(OpenMode::Existing);
  for (const QStringList& arguments : {QStringList{"start", "good.mdb"},
                                       {"roll", "good.mdb"},
                                       {"sql", "good.mdb", "SELECT * FROM Clients"}}) {
    const Result result = Run(arguments);
    EXPECT_EQ(result.exitCode, kFailed);
    EXPECT_TRUE(result.err.contains("in use")) << result.err.toStdString();
  }
}

TEST_F(BadInputTest, AFileThatMayOnlyBeRead) {
  if (geteuid() == 0) GTEST_SKIP() << "the superuser may write to everything";
  QFile::setPermissions(Path("good.mdb"), QFile::ReadOwner);
  Check({{"read only", {"start", "good.mdb"}, kFailed, "may only be read"}}, "good.mdb");
}

TEST_F(BadInputTest, SettingsThatCannotBeUsed) {
  Write("qy.ini", "[OSTREL4NET]\r\nOstrel4NetPassword=#{Ostrel4NetPassword}\r\n");
  Check({{"placeholders", {"start", "good.mdb"}, kFailed, "invalid connection values"}},
        "good.mdb");
  QFile::remove(Path("qy.ini"));
  QDir(folder.path()).mkdir("qy.ini");
  Check({{"unreadable", {"start", "good.mdb"}, kFailed, "cannot be read"}}, "good.mdb");
}

}  // namespace
}  // namespace quillary::cli
