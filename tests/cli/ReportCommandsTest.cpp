#include "CompanionFixture.h"

#include <QDir>
#include <QFileInfo>

namespace quillary::cli {
namespace {

class ReportCommandsTest : public CompanionTest {
 protected:
  void SetUp() override {
    CompanionTest::SetUp();
    file = Path("DATA.MDB");
    Done({"demo", file, "--clients", "30", "--months", "3"});
    ASSERT_TRUE(QDir(folder.path()).mkdir("Files"));
    Write("Files/Gardens.jpg", Bytes(QUILLARY_TEST_DATA "/../pdf/data/rgb.jpg"));
  }
  QString file;
};

TEST_F(ReportCommandsTest, EachNameMakesAFileOfEachForm) {
  const QJsonArray kinds = Json({"report", "--list"}).array();
  EXPECT_GE(kinds.size(), 24);
  const std::pair<const char*, const char*> forms[] = {
      {"pdf", "%PDF-"}, {"word", "{\\rtf"}, {"csv", "\xEF\xBB\xBF"}, {"text", ""}};
  for (const QJsonValue kind : kinds) {
    const QString name = kind["Name"].toString();
    const QString asks = kind["Asks"].toString();
    QStringList order{"report", file, name, "--from", "2026-09-01", "--out", Path("out")};
    if (asks == "--client") order += {"--client", "1"};
    if (name == "pay-in-slip") continue;  // nobody has banked yet
    for (const auto& [form, begins] : forms) {
      const QString made = Done(order + QStringList{"--format", form}).trimmed().section(u'\n', -1);
      EXPECT_EQ(QFileInfo(made).absolutePath(), Path("out")) << name.toStdString();
      const QByteArray bytes = Bytes(made);
      EXPECT_TRUE(bytes.startsWith(begins)) << name.toStdString() << " as " << form;
      EXPECT_GT(bytes.size(), 20) << name.toStdString() << " as " << form;
    }
  }
}

TEST_F(ReportCommandsTest, WithJsonComeRowsGroupsAndTotals) {
  const QJsonObject report =
      Json({"report", file, "payments", "--from", "2026-08-01", "--to", "2026-10-31"}).object();
  EXPECT_EQ(report["title"].toString(), "Payments Received");
  EXPECT_EQ(report["columns"].toArray().size(), 6);
  double rows = 0;
  for (const QJsonValue group : report["groups"].toArray()) {
    EXPECT_FALSE(group["key"].toString().isEmpty());
    for (const QJsonValue row : group["rows"].toArray()) rows += row.toArray()[4].toDouble();
  }
  const double paid = Field(file,
                            "SELECT Sum(Amount) FROM Payments WHERE Payment_Date BETWEEN "
                            "#2026/8/1# AND #2026/10/31#")
                          .toDouble();
  EXPECT_GT(paid, 0);
  EXPECT_NEAR(rows, paid, 0.001);
  EXPECT_NEAR(report["totals"].toArray()[4].toDouble(), paid, 0.001);
}

TEST_F(ReportCommandsTest, APackIsAFileForEachPartAndFailsWhereItDoesNotTie) {
  const QStringList order{"report",     file,    "accountant-pack", "--from",
                          "2026-09-01", "--to",  "2026-10-31",      "--format",
                          "csv",        "--out", Path("pack")};
  Done(order);
  EXPECT_EQ(QDir(Path("pack")).entryList({"*.csv"}).size(), 8);
  Done({"sql", file,
        "UPDATE General_Ledger_Entries SET GL_Amount = 1 WHERE Purchase_ID IS NOT NULL"});
  const Result result = Run(order);
  EXPECT_EQ(result.exitCode, 1);
  EXPECT_TRUE(result.err.contains("do not tie")) << result.err.toStdString();
  EXPECT_FALSE(result.out.isEmpty()) << "the files are there to be read with it";
}

TEST_F(ReportCommandsTest, WhatCannotBeIsToldAndWritesNothing) {
  struct Case {
    QStringList more;
    int exitCode;
    const char* told;
  };
  const Case cases[] = {
      {{"weather"}, 2, "weather"},
      {{}, 2, "--list"},
      {{"gst", "--format", "html", "--out", Path("out")}, 2, "pdf, word, csv or text"},
      {{"gst", "--format", "pdf"}, 2, "--out"},
      {{"gst", "--paper", "a9"}, 2, "a4 or letter"},
      {{"gst", "--from", "2026-11-30", "--to", "2026-11-01", "--out", Path("out")},
       1,
       "valid date range"},
      {{"payments", "--sort", "colour", "--out", Path("out")}, 1, "colour"},
      {{"quote", "--record", "999", "--out", Path("out")}, 1, "no longer there"},
      {{"payments", "--client", "x"}, 2, "x"}};
  for (const Case& c : cases) {
    const Result result = Run(QStringList{"report", file} + c.more);
    EXPECT_EQ(result.exitCode, c.exitCode) << c.more.join(" ").toStdString();
    EXPECT_TRUE(result.err.contains(c.told)) << result.err.toStdString();
    EXPECT_EQ(result.out, "") << c.more.join(" ").toStdString();
  }
  EXPECT_FALSE(QFileInfo::exists(Path("out")));
}

}  // namespace
}  // namespace quillary::cli
