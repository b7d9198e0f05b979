#include "data/jet/ScratchFile.h"

#include <gtest/gtest.h>

namespace quillary::jet {
namespace {

struct CalledCase {
  const char* expression;
  const char* result;  // nothing: the statement is refused
};

constexpr const char* kRefused = nullptr;

/// One row with a value of each type, and one with none.
class FunctionsTest : public ::testing::Test {
 protected:
  void SetUp() override {
    file_.RunAll(R"(CREATE TABLE One (Id Counter, Name TEXT(50), Day DATE, Price CURRENCY, Rate
  DOUBLE, Many LONG, Done YESNO, Nothing TEXT(5), Never DATE, Nought LONG)
INSERT INTO One (Name, Day, Price, Rate, Many, Done, Nought) VALUES ('Zoë 😀 Banana', #2026/11/2
  9:05:07#, 1234.5, .125, 7, True, 0))");
  }

  void Check(const std::vector<CalledCase>& cases) {
    for (const CalledCase& each : cases) {
      std::string result = "refused";
      try {
        result = Shown(file_.Run("SELECT " + std::string(each.expression) + " FROM One"));
      } catch (const std::runtime_error& error) {
        if (each.result) ADD_FAILURE() << error.what();
      }
      EXPECT_EQ(result, each.result ? each.result : "refused") << each.expression;
    }
  }

  ScratchFile file_;
};

TEST_F(FunctionsTest, TheClockIsTheBusinesss) {
  Check({{"Date()", "2026-11-02 00:00:00"},
         {"Now()", "2026-11-02 14:07:09"},
         {"Time()", "1899-12-30 14:07:09"},
         {"Date() - 1 & '|' & Now()", "1/11/2026|2/11/2026 2:07:09 PM"},
         {"Day BETWEEN Date() AND Now()", "True"},
         {"Date(1)", kRefused}});
  EXPECT_TRUE(Translate(CutLiterals("SELECT Now() FROM One"), file_).mayBeCached);
}

TEST_F(FunctionsTest, DatesAreShifted) {
  Check({{"DateAdd('m', 1, #2027/1/31#)", "2027-02-28 00:00:00"},
         {"DateAdd('yyyy', -2, #2028/2/29#)", "2026-02-28 00:00:00"},
         {"DateAdd('Q', 1, Day)", "2027-02-02 09:05:07"},
         {"DateAdd('ww', -1, Day)", "2026-10-26 09:05:07"},
         {"DateAdd('d', 1.5, Day)", "2026-11-04 09:05:07"},
         {"DateAdd('w', 5, Day)", "2026-11-07 09:05:07"},
         {"DateAdd('y', 60, Day)", "2027-01-01 09:05:07"},
         {"DateAdd('h', 15, Day)", "2026-11-03 00:05:07"},
         {"DateAdd('n', -546, Day)", "2026-11-01 23:59:07"},
         {"DateAdd('s', 86393, Day)", "2026-11-03 09:05:00"},
         {"DateAdd('d', 1, '5/3/2019')", "2019-03-06 00:00:00"},
         {"DateAdd('d', 1, Never)", "NULL"},
         {"DateAdd('d', Null, Day)", "NULL"},
         {"DateAdd('x', 1, Day)", kRefused},
         {"DateAdd('yyyy', 9000, Day)", kRefused},
         {"DateAdd('d', 1, 'soon')", kRefused},
         {"DateSerial(2026, 14, 0)", "2027-01-31 00:00:00"},
         {"DateSerial(Year(Day), Month(Day) + 1, 1) - 1", "2026-11-30 00:00:00"},
         {"DateSerial(26, 1, 1) & DateSerial(30, 1, 1)", "1/01/20261/01/1930"},
         {"DateSerial(10000, 1, 1)", kRefused},
         {"TimeSerial(12, -30, 0)", "1899-12-30 11:30:00"},
         {"DateValue(Day) + TimeValue('2:07 PM')", "2026-11-02 14:07:00"},
         {"CDate(1E+9)", kRefused}});
}

TEST_F(FunctionsTest, DatesAreMeasured) {
  Check({{"DateDiff('yyyy', #2026/12/31#, #2027/1/1#)", "1"},
         {"DateDiff('q', #2026/12/31#, #2026/1/1#)", "-3"},
         {"DateDiff('m', #2026/1/31#, #2026/2/1#)", "1"},
         {"DateDiff('d', Day, #2026/11/9#)", "7"},
         {"DateDiff('w', #2026/11/1#, #2026/11/14#)", "1"},
         {"DateDiff('ww', #2026/10/31#, #2026/11/1#)", "1"},
         {"DateDiff('ww', #2026/11/1#, #2026/11/2#)", "0"},
         {"DateDiff('ww', #2026/11/1#, #2026/11/2#, 2)", "1"},
         {"DateDiff('h', #2026/11/2 8:59:59#, Day)", "1"},
         {"DateDiff('n', #2026/11/2 9:05:59#, #2026/11/2 9:06:00#)", "1"},
         {"DateDiff('s', #2026/11/1#, Day)", "119107"},
         {"DateDiff('d', Never, Day)", "NULL"},
         {"DateDiff('', Day, Day)", kRefused},
         {"DateDiff('d', Day, Day, 9)", kRefused},
         {"DatePart('yyyy', Day) & DatePart('q', Day) & DatePart('y', Day)", "20264306"},
         {"DatePart('w', Day) & DatePart('w', Day, 2) & Weekday(Day) & Weekday(Day, 3)", "2127"},
         {"DatePart('ww', #2026/1/1#) & '|' & DatePart('ww', #2026/1/4#)", "1|2"},
         {"DatePart('ww', #2026/12/31#)", "53"},
         {"DatePart('ww', #2027/1/1#, 2, 2) & '|' & DatePart('ww', #2027/1/4#, 2, 2)", "53|1"},
         {"DatePart('ww', #2025/12/29#, 2, 2) & '|' & DatePart('ww', #2026/1/4#, 1, 3)", "1|1"},
         {"DatePart('h', Day) & DatePart('n', Day) & DatePart('s', Day) & DatePart('d', Day)",
          "9572"},
         {"DatePart('m', Never)", "NULL"},
         {"Weekday(Never)", "NULL"},
         {"Weekday(Day, 8)", kRefused},
         {"Hour(Day) + Minute(Day) + Second(Day)", "21"},
         {"MonthName(11) & MonthName(Month(Day), True)", "NovemberNov"},
         {"MonthName(13)", kRefused},
         {"MonthName(Month(Never))", "NULL"},
         {"WeekdayName(Weekday(Day)) & WeekdayName(1, True, 2)", "MondayMon"},
         {"WeekdayName(0)", kRefused}});
}

TEST_F(FunctionsTest, TextsAreTakenApart) {
  Check(
      {{"Left(Name, 3) & Right(Name, 3) & Mid(Name, 7, 2)", "ZoëanaBa"},
       {"Left(Name, 99) = Name AND Right(Name, 99) = Name AND Right(Name, 0) = ''", "True"},
       {"Left(Many + 5, 1) & Len(Price)", "16"},
       {"Mid(Name, 5) & '|' & Mid(Name, 99) & '|'", "😀 Banana||"},
       {"Len(Name)", "12"},
       {"Left(Nothing, 2)", "NULL"},
       {"Left(Name, -1)", kRefused},
       {"Right(Name, -1)", kRefused},
       {"Mid(Name, 0)", kRefused},
       {"Mid(Name, 1, -1)", kRefused},
       {"InStr(Name, 'B') & InStr(Name, 'ZOË') & InStr(9, Name, 'A')", "7110"},
       {"InStr(1, Name, 'b', 0) & InStr(Name, '') & InStr(99, Name, 'B') & InStr('', 'a')", "0100"},
       {"InStr(Nothing, 'a')", "NULL"},
       {"InStr(0, Name, 'a')", kRefused},
       {"InStr(1, Name, 'a', 5)", kRefused},
       {"Replace(Name, 'AN', 'x')", "Zoë 😀 Bxxa"},
       {"Replace(Name, 'AN', 'x', 1, -1, 0) = Name", "True"},
       {"Replace('aaa', 'a', 'aa')", "aaaaaa"},
       {"Replace(Name, 'a', '', 7, 2)", "Bnna"},
       {"Replace(Name, '', 'x') = Name", "True"},
       {"Replace(Nothing, 'a', 'b')", "NULL"},
       {"Replace(Name, 'a', 'b', 0)", kRefused}});
}

TEST_F(FunctionsTest, ValuesAreChosen) {
  Check(
      {{"Switch(Many > 9, 'many', Many > 5, 'some', True, 'few')", "some"},
       {"Switch(Many > 9, 1)", "NULL"},
       {"Switch(Never = Day, 1, Done, 2.5)", "2.5"},
       {"Switch(Many > 5)", kRefused},
       {"Choose(2, 'a', 5, Day)", "5"},
       {"Choose(3, 'a', 5, Day)", "2/11/2026 9:05:07 AM"},
       {"Choose(2.5, 'a', 'b', 'c')", "b"},
       {"Choose(4, 'a', 'b')", "NULL"},
       {"Choose(Nothing, 'a')", "NULL"},
       {"Nz(Nothing, 'none') & Nz(Nothing) & Nz(Many, 1)", "none7"},
       {"Nz(Never, Day)", "2026-11-02 09:05:07"},
       {"IsDate(Day) & IsDate('31/2/2019') & IsDate('5 Mar 2019') & IsDate(Never) & IsDate(5)",
        "-10-100"},
       {"IsDate('43529')", "False"},
       {"IsNumeric(Price) & IsNumeric('$1,200') & IsNumeric('12a') & IsNumeric(Nothing)", "-1-100"},
       {"IsNumeric(Day) & IsNumeric('') & IsNumeric(Done)", "00-1"}});
}

TEST_F(FunctionsTest, RowsAreGathered) {
  file_.RunAll(R"(INSERT INTO One (Price, Rate) VALUES (.1, Null)
INSERT INTO One (Price, Rate, Name) VALUES (.2, .5, 'last'))");
  Check({{"Avg(Price)", "411.6"},
         {"Avg(Rate) & '|' & Avg(Many)", "0.3125|7"},
         {"Avg(Done)", "-0.333333333333333"},
         {"Avg(Name)", kRefused},
         {"First(Name) & '|' & Last(Name)", "Zoë 😀 Banana|last"},
         {"First(Rate) + Last(Rate)", "0.625"},
         {"Last(Day)", "NULL"}});
  EXPECT_EQ(Shown(file_.Run("SELECT First(Name), Avg(Price), Last(Id) FROM One WHERE Id > 9")),
            "NULL|NULL|NULL");
  EXPECT_EQ(Shown(file_.Run("SELECT First(Day), Last(Price) FROM One GROUP BY IsNull(Name) ORDER "
                            "BY IsNull(Name)")),
            "NULL|0.1 / 2026-11-02 09:05:07|0.2");
}

TEST_F(FunctionsTest, WhatDoesNotWorkOutIsRefused) {
  Check({{"5 / 0", kRefused},
         {"5 \\ 0", kRefused},
         {"5 Mod 0", kRefused},
         {"5 \\ .4", kRefused},
         {"Price / Nought", kRefused},
         {"Many Mod Nought", kRefused},
         {"Many \\ (Rate * 2)", kRefused},
         {"Price / '0'", kRefused},
         {"Price / (Many - 7)", kRefused},
         {"IIf(Nought = 0, 0, Price / Nought)", "0"},
         {"Price / Null & 'x' & Many / Never", "x"},
         {"7 / -2 & '|' & 7 \\ -2 & '|' & -7 Mod 3", "-3.5|-3|-1"},
         {"CLng(2147483647.4)", "2147483647"},
         {"CLng(2147483647.5)", kRefused},
         {"CLng('-2147483649')", kRefused},
         {"Many = 99999999999", "False"}});
  for (const char* refused :
       {"UPDATE One SET Many = 3000000000", "UPDATE One SET Many = Many * 1000000000",
        "UPDATE One SET Many = '2147483648'", "INSERT INTO One (Id) VALUES (-2147483649)",
        "INSERT INTO One (Many) SELECT Sum(Price) * 10000000 FROM One",
        "UPDATE One SET Rate = Price / Nought", "DELETE FROM One WHERE Price / Nought > 1"}) {
    EXPECT_THROW(file_.Run(refused), std::runtime_error) << refused;
  }
  EXPECT_EQ(Shown(file_.Run("SELECT Count(*), Max(Many) FROM One")), "1|7");
}

TEST_F(FunctionsTest, DatesAreReadAndWrittenInTexts) {
  Check({{"'on ' & Day", "on 2/11/2026 9:05:07 AM"},
         {"'on ' & DateValue(Day) & ', ' & #2026/11/2#", "on 2/11/2026, 2/11/2026"},
         {"'at ' & #14:07#", "at 2:07:00 PM"},
         {"CStr(#2019/3/5#) & Left(#2019/3/15#, 2)", "5/03/201915"},
         {"CDate('' & Day) = Day", "True"},
         {"'2/11/2026' = DateValue(Day)", "True"},
         {"CDate('11/14/2026')", "2026-11-14 00:00:00"}});
}

}  // namespace
}  // namespace quillary::jet
