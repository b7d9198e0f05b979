#include "base/DateTime.h"
#include "base/Text.h"

#include <gtest/gtest.h>

namespace quillary {
namespace {

TEST(Text, FileNamesLoseWhatLeavesTheFolder) {
  const std::pair<const char*, const char*> cases[] = {
      {"../../etc/passwd", "etcpasswd"}, {"A\r\nB", "A B"},      {"50% off?", "50- off "},
      {"a:b*c|d<e>f.g", "abcdefg"},      {"O'Brien", "O'Brien"},
  };
  for (const auto& [text, name] : cases) {
    EXPECT_EQ(RemoveIllegalFileCharacters(text), QString(name)) << text;
  }
}

TEST(Text, PathsAreCutAtTheLastSeparatorOfEitherKind) {
  EXPECT_EQ(ParentFolder("C:\\Data\\DATA.MDB"), "C:\\Data");
  EXPECT_EQ(ParentFolder("/home/me/DATA.MDB"), "/home/me");
  EXPECT_EQ(ParentFolder("DATA.MDB"), "");
  EXPECT_EQ(FileNameOfPath("/home/me/DATA.MDB"), "DATA.MDB");
  EXPECT_EQ(FileNameWithoutExtension("a.b.mdb"), "a.b");
  EXPECT_EQ(FileNameWithoutExtension("plain"), "plain");
  EXPECT_EQ(FileExtension("plain"), "");
  EXPECT_EQ(FileExtension(".ini"), "ini");
}

TEST(DateTime, RefusesDaysThatDoNotExist) {
  EXPECT_TRUE(FromIsoText(u"2028-02-29"));
  for (const char* text : {"2026-02-29", "2026-13-01", "2026-11-31", "2026-11-02 24:00:00",
                           "2026-1-2", "02/11/2026", ""}) {
    EXPECT_FALSE(FromIsoText(QString(text))) << text;
  }
}

TEST(DateTime, ReadsDatesAsAnOwnerTypesThem) {
  const QDate today(2026, 11, 22);
  const std::pair<const char*, QDate> cases[] = {
      {"2/11/2026", {2026, 11, 2}},
      {"2-11-26", {2026, 11, 2}},
      {"2 nov 2026", {2026, 11, 2}},
      {"2 Nov", {2026, 11, 2}},
      {"29.2.28", {2028, 2, 29}},
      {"2026-11-02", {2026, 11, 2}},
      {"31/4/2026", {}},
      {"tomorrow", {}},
      {"2 xy 2026", {}},
  };
  for (const auto& [text, date] : cases) {
    EXPECT_EQ(ParseTypedDate(QString(text), today).value_or(QDate()), date) << text;
  }
}

TEST(DateTime, OfADateInFiguresTheCountrySaysWhichIsTheMonth) {
  const QDate today(2026, 11, 22);
  struct Case {
    const char* text;
    QDate dayFirst;
    QDate monthFirst;
  };
  for (const Case& c :
       {Case{"2/11/2026", {2026, 11, 2}, {2026, 2, 11}}, Case{"2/11", {2026, 11, 2}, {2026, 2, 11}},
        Case{"13/2/2026", {2026, 2, 13}, {}}, Case{"2/13/26", {}, {2026, 2, 13}},
        Case{"2 Nov 2026", {2026, 11, 2}, {2026, 11, 2}},
        Case{"Nov 2, 2026", {2026, 11, 2}, {2026, 11, 2}},
        Case{"2026-11-02", {2026, 11, 2}, {2026, 11, 2}}}) {
    EXPECT_EQ(ParseDate(QString(c.text), today, DateOrder::DayFirst).value_or(QDate()), c.dayFirst)
        << c.text;
    EXPECT_EQ(ParseDate(QString(c.text), today, DateOrder::MonthFirst).value_or(QDate()),
              c.monthFirst)
        << c.text;
  }
}

}  // namespace
}  // namespace quillary
